#include <zelsuite/zelsuite.h>

#include "actions/Catalogue.h"
#include "support/Files.h"

using Standard::ActionType;
using Standard::ActionTypeManager;
using Standard::LoadDuration;
using support::contents;
using support::emptyCatalogue;
using support::enciphered;
using support::readCatalogue;

namespace
{

const std::string snowDocument =
    "<SMOD><ACTIONTYPES><ACTIONTYPE NAME=\"SNOW\"/></ACTIONTYPES></SMOD>";
const std::string snow = "SNOW, group NONE, MEDIUMTERM\n";
const std::string selfWeight = "G1, group NONE, MEDIUMTERM\n";

/// Contents of a catalogue that held G1 before it read a file.
std::string afterReading(const std::string& path)
{
    ActionTypeManager catalogue = emptyCatalogue();
    catalogue.giveActionType(ActionType::Id::G1);
    catalogue.init(path);
    return contents(catalogue);
}

} // namespace

TEST(Catalogue, AFileReplacesTheContentsAndAMissingOneKeepsThem)
{
    const support::TemporaryDirectory directory;
    struct Case {
        const char* what;
        std::string path;
        std::string contents;
    };
    const Case cases[] = {
        {"missing",                    directory.file("missing.xml"), selfWeight         },
        {                                                       "no name",                          "",                    selfWeight                   },
        {                                                 "plain",               directory.write("plain.xml",                                        snowDocument),                    snow},
        {                                            "enciphered",   directory.write("secret.xml",                            enciphered(snowDocument)),                    snow},
        {                                         "without types", directory.write("other.xml",                            "<SMOD><SETTINGS/></SMOD>"),                    ""},
        {                                                 "empty",                         directory.write("empty.xml",                                                    ""),                    ""},
        {                                             "malformed",         directory.write("bad.xml",                                    snowDocument + "<"),                    ""},
        {                                           "a directory",                          directory.path().string(),                                                       ""},
        { "enciphered nothing",                          directory.write("nothing.xml",                                                       enciphered("")),                                                       ""},
        { "enciphered rubbish",                          directory.write("rubbish.xml",                                                       enciphered("<SMOD>")),                                                         ""},
        {   "enciphered twice",                          directory.write("twice.xml",                                                       enciphered(enciphered("<a/>"))),                                                                           ""},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(afterReading(c.path), c.contents) << c.what;
        const ActionTypeManager fresh(c.path);
        EXPECT_EQ(contents(fresh), c.contents == selfWeight ? "" : c.contents) << c.what;
        EXPECT_EQ(fresh.hasActionTypes(), !contents(fresh).empty()) << c.what;
    }
}

TEST(Catalogue, ATreeReplacesTheContents)
{
    ActionTypeManager catalogue = emptyCatalogue();
    catalogue.giveActionType(ActionType::Id::G1);
    std::istringstream stream(snowDocument);
    ZelXmlTree tree;
    ASSERT_TRUE(tree.buildOfStream(stream));
    catalogue.init(tree);
    EXPECT_EQ(contents(catalogue), snow);
    catalogue.init(ZelXmlTree());
    EXPECT_EQ(contents(catalogue), "");
}

TEST(Catalogue, NothingIsReadFromADamagedEncipheredFile)
{
    const support::TemporaryDirectory directory;
    const std::string whole = enciphered(snowDocument);
    ASSERT_EQ(afterReading(directory.write("file.xml", whole)), snow);
    for (std::size_t at = 0; at < whole.size(); ++at) {
        std::string flipped = whole;
        flipped[at] = static_cast<char>(flipped[at] ^ 1);
        ASSERT_EQ(afterReading(directory.write("file.xml", flipped)), "") << "changed at " << at;
        ASSERT_EQ(afterReading(directory.write("file.xml", whole.substr(0, at))), "")
            << "cut at " << at;
    }
    EXPECT_EQ(afterReading(directory.write("file.xml", whole + "\n")), "")
        << "a byte behind the end";
    EXPECT_EQ(afterReading(directory.write("file.xml", whole + whole)), "");
}

TEST(Catalogue, NothingIsReadFromAFileOfAnotherKey)
{
    const support::TemporaryDirectory directory;
    for (const char* key : {"kT$WqRmYdNc5", "kT$WqRmYdNc", "kT$WqRmYdNc4 ", ""}) {
        std::istringstream plain(snowDocument);
        std::ostringstream secret;
        ASSERT_TRUE(zelsuite::encrypt(plain, secret, key));
        EXPECT_EQ(afterReading(directory.write("file.xml", secret.str())), "") << key;
    }
}

TEST(Catalogue, FindsTheFirstOfAnIdentityAndMakesWhatIsMissing)
{
    ActionTypeManager catalogue = emptyCatalogue();
    EXPECT_EQ(catalogue.findActionType(ActionType::Id::P), nullptr);
    EXPECT_FALSE(catalogue.hasActionTypes());

    ActionType* const made = catalogue.giveActionType(ActionType::Id::P);
    catalogue.addType(new ActionType(ActionType::Id::P));
    catalogue.addType(nullptr);
    catalogue.addType(new ActionType(ActionType::Id::T));

    EXPECT_EQ(made->getId(), ActionType::Id::P);
    EXPECT_EQ(catalogue.findActionType(ActionType::Id::P), made);
    EXPECT_EQ(catalogue.giveActionType(ActionType::Id::P), made);
    EXPECT_EQ(catalogue.giveActionType(ActionType::Id::T), catalogue.getActionTypes().back());
    EXPECT_EQ(catalogue.getActionTypes().size(), 4U);
}

TEST(Catalogue, ATypeWithoutAnIdentityIsFoundButNeverMade)
{
    ActionTypeManager catalogue = emptyCatalogue();
    EXPECT_EQ(catalogue.giveActionType(ActionType::Id::NONE), nullptr);
    EXPECT_FALSE(catalogue.hasActionTypes());

    auto* const none = new ActionType(ActionType::Id::NONE);
    catalogue.addType(none);
    EXPECT_EQ(catalogue.giveActionType(ActionType::Id::NONE), none);
    EXPECT_EQ(catalogue.findActionType(ActionType::Id::NONE), none);
}

TEST(Catalogue, ReplacingAssignsToTheFirstOfTheIdentity)
{
    ActionTypeManager catalogue = emptyCatalogue();
    ActionType* const first = catalogue.giveActionType(ActionType::Id::P);
    catalogue.addType(new ActionType(ActionType::Id::P));
    ActionType replacement(ActionType::Id::P);
    replacement.setLoadDurationClass(LoadDuration::LONGTERM);
    *replacement.giveFactors(Standard::Mode::EC, Standard::Classification::BUILDING,
                             Standard::BridgeType::ROADWAY) = support::distinctFactors(1);

    EXPECT_TRUE(catalogue.replaceActionType(&replacement));
    replacement
        .giveFactors(Standard::Mode::EC, Standard::Classification::BUILDING,
                     Standard::BridgeType::ROADWAY)
        ->setPsi0(9);

    EXPECT_EQ(catalogue.findActionType(ActionType::Id::P), first);
    EXPECT_EQ(contents(catalogue), "P, group NONE, LONGTERM\n"
                                   "EC BUILDING 0.01 0.02 0.03 0.04 0.05 0.06 0.07 0.08 0.09\n"
                                   "P, group NONE, MEDIUMTERM\n");

    const ActionType absent(ActionType::Id::T);
    EXPECT_FALSE(catalogue.replaceActionType(&absent));
    EXPECT_FALSE(catalogue.replaceActionType(nullptr));
    EXPECT_EQ(catalogue.getActionTypes().size(), 2U);
}

TEST(Catalogue, ACopySharesTheTypes)
{
    // Only one of a catalogue and its copies may be destroyed, so these two never are.
    static auto* const copy = new ActionTypeManager(readCatalogue(snowDocument));
    static auto* const assigned = new ActionTypeManager(ZelXmlTree());
    const ActionTypeManager source(*copy);
    *assigned = source;
    EXPECT_EQ(copy->getActionTypes(), source.getActionTypes());
    EXPECT_EQ(assigned->getActionTypes(), source.getActionTypes());
    EXPECT_EQ(source.findActionType(ActionType::Id::SNOW)->getId(), ActionType::Id::SNOW);

    ActionTypeManager self = readCatalogue(snowDocument);
    const ActionTypeManager& same = self;
    self = same;
    EXPECT_EQ(contents(self), snow);
}
