#include <zelsuite/zelsuite.h>

#include "actions/Catalogue.h"
#include "support/Files.h"

using Standard::ActionType;
using Standard::ActionTypeManager;
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
    EXPECT_EQ(afterReading(directory.file("missing.xml")), selfWeight);
    EXPECT_EQ(afterReading(""), selfWeight);
    EXPECT_EQ(afterReading(directory.path().string()), "");
    for (const std::string& document : {snowDocument, enciphered(snowDocument)}) {
        const std::string path = directory.write("types.xml", document);
        EXPECT_EQ(afterReading(path), snow);
        EXPECT_EQ(contents(ActionTypeManager(path)), snow);
    }
    for (const std::string& document :
         {std::string("<SMOD><SETTINGS/></SMOD>"), std::string(), snowDocument + "<",
          enciphered(""), enciphered("<SMOD>"), enciphered(enciphered(snowDocument))}) {
        const std::string path = directory.write("none.xml", document);
        EXPECT_EQ(afterReading(path), "") << document;
        EXPECT_FALSE(ActionTypeManager(path).hasActionTypes()) << document;
    }

    ActionTypeManager catalogue = readCatalogue(snowDocument);
    catalogue.init(ZelXmlTree());
    EXPECT_EQ(contents(catalogue), "");
}

TEST(Catalogue, NothingIsReadFromADamagedEncipheredFileOrOneOfAnotherKey)
{
    const support::TemporaryDirectory directory;
    const auto read = [&](const std::string& content) {
        return afterReading(directory.write("file.xml", content));
    };
    const std::string whole = enciphered(snowDocument);
    ASSERT_EQ(read(whole), snow);
    for (std::size_t at = 0; at < whole.size(); ++at) {
        std::string flipped = whole;
        flipped[at] = static_cast<char>(flipped[at] ^ 1);
        ASSERT_EQ(read(flipped), "") << "changed at " << at;
        ASSERT_EQ(read(whole.substr(0, at)), "") << "cut at " << at;
    }
    EXPECT_EQ(read(whole + "\n"), "") << "a byte behind the end";
    EXPECT_EQ(read(whole + whole), "");
    for (const char* key : {"kT$WqRmYdNc5", "kT$WqRmYdNc", "kT$WqRmYdNc4 ", ""}) {
        std::istringstream plain(snowDocument);
        std::ostringstream secret;
        ASSERT_TRUE(zelsuite::encrypt(plain, secret, key));
        EXPECT_EQ(read(secret.str()), "") << key;
    }
}

TEST(Catalogue, FindsTheFirstOfAnIdentityAndMakesWhatIsMissingButNone)
{
    ActionTypeManager catalogue = emptyCatalogue();
    EXPECT_EQ(catalogue.findActionType(ActionType::Id::P), nullptr);
    EXPECT_EQ(catalogue.giveActionType(ActionType::Id::NONE), nullptr);
    EXPECT_FALSE(catalogue.hasActionTypes());

    ActionType* const made = catalogue.giveActionType(ActionType::Id::P);
    catalogue.addType(new ActionType(ActionType::Id::P));
    catalogue.addType(nullptr);
    auto* const none = new ActionType(ActionType::Id::NONE);
    catalogue.addType(none);

    EXPECT_EQ(made->getId(), ActionType::Id::P);
    EXPECT_EQ(catalogue.findActionType(ActionType::Id::P), made);
    EXPECT_EQ(catalogue.giveActionType(ActionType::Id::P), made);
    EXPECT_EQ(catalogue.giveActionType(ActionType::Id::NONE), none);
    EXPECT_EQ(catalogue.getActionTypes().size(), 4U);

    *made = ActionType(ActionType::Id::T); // an assignment changes the identity
    EXPECT_EQ(catalogue.findActionType(ActionType::Id::T), made);
    EXPECT_EQ(catalogue.findActionType(ActionType::Id::P), catalogue.getActionTypes()[1]);
}

TEST(Catalogue, ReplacingAssignsToTheFirstOfTheIdentity)
{
    ActionTypeManager catalogue = emptyCatalogue();
    ActionType* const first = catalogue.giveActionType(ActionType::Id::P);
    catalogue.addType(new ActionType(ActionType::Id::P));
    ActionType replacement(ActionType::Id::P);
    replacement.setLoadDurationClass(Standard::LoadDuration::LONGTERM);

    EXPECT_TRUE(catalogue.replaceActionType(&replacement));

    EXPECT_EQ(catalogue.findActionType(ActionType::Id::P), first);
    EXPECT_EQ(contents(catalogue), "P, group NONE, LONGTERM\nP, group NONE, MEDIUMTERM\n");
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

    ActionTypeManager self = readCatalogue(snowDocument);
    const ActionTypeManager& same = self;
    self = same;
    EXPECT_EQ(contents(self), snow);
}
