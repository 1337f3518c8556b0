// What only the interface of a catalogue shows: identity, ownership and copies, and files that the
// command would not hand over. Contents of documents stand in text/actions.

#include <zelstandard/actions/ActionTypeManager.h>
#include <zelstandard/actions/ActionTypeReader.h>
#include <zelstandard/actions/ActionTypeWriter.h>
#include <zelstandard/platform/ZelXml.h>

#include "support/Files.h"

using Standard::ActionType;
using Standard::ActionTypeManager;

namespace
{

const std::string snowDocument = "<ACTIONTYPES><ACTIONTYPE NAME=\"SNOW\"/></ACTIONTYPES>";

ActionTypeManager emptyCatalogue() { return ActionTypeManager(ZelXmlTree()); }

/// The identities in their order.
std::vector<ActionType::Id> ids(const ActionTypeManager& catalogue)
{
    std::vector<ActionType::Id> result;
    for (const ActionType* type : catalogue.getActionTypes())
        result.push_back(type->getId());
    return result;
}

using Ids = std::vector<ActionType::Id>;
const Ids none;
const Ids snow = {ActionType::Id::SNOW};
const Ids selfWeight = {ActionType::Id::G1};

} // namespace

TEST(Catalogue, AFileReplacesTheContentsAndAMissingOneKeepsThem)
{
    const support::TemporaryDirectory directory;
    const std::string secret = support::enciphered(snowDocument);
    const std::pair<std::string, Ids> rows[] = {
        {directory.write("plain",   snowDocument), snow                                },
        {directory.write("secret",  secret),       snow                                },
        {directory.file("missing"), selfWeight   },
        {"",               selfWeight             },
        {directory.path().string(),                         none               },
        {directory.write("empty",                         ""),                none                                    },
        {directory.write("other",                         "<SMOD><SETTINGS/></SMOD>"),            none            },
        {directory.write("malformed",                         snowDocument + "<"),                  none         },
        {directory.write("cut",                     secret.substr(0,                                  secret.size() - 1)),none},
        {directory.write("twice",                     support::enciphered(secret)),                                  none},
        {directory.write("secretly malformed",                     support::enciphered("<a>")),                                  none         },
    };
    for (const auto& [path, expected] : rows) {
        SCOPED_TRACE(path);
        ActionTypeManager catalogue = emptyCatalogue();
        catalogue.giveActionType(ActionType::Id::G1);
        catalogue.init(path);
        EXPECT_EQ(ids(catalogue), expected);
        EXPECT_EQ(ActionTypeManager(path).hasActionTypes(), expected == snow);
        catalogue.init(ZelXmlTree());
        EXPECT_EQ(ids(catalogue), none);
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
    auto* const unnamed = new ActionType(ActionType::Id::NONE);
    catalogue.addType(unnamed);
    EXPECT_EQ(made->getId(), ActionType::Id::P);
    EXPECT_EQ(catalogue.findActionType(ActionType::Id::P), made);
    EXPECT_EQ(catalogue.giveActionType(ActionType::Id::P), made);
    EXPECT_EQ(catalogue.giveActionType(ActionType::Id::NONE), unnamed);
    EXPECT_EQ(catalogue.getActionTypes().size(), 4U);
    std::ostringstream written;
    catalogue.output(written); // passes over the null entry

    *made = ActionType(ActionType::Id::T); // an assignment changes the identity
    EXPECT_EQ(catalogue.findActionType(ActionType::Id::T), made);
    EXPECT_EQ(catalogue.findActionType(ActionType::Id::P), catalogue.getActionTypes()[1]);
    const ActionType* const other = catalogue.giveActionType(ActionType::Id{99}); // no member
    EXPECT_EQ(catalogue.giveActionType(ActionType::Id{99}), other);
}

TEST(Catalogue, ReplacingAssignsToTheFirstOfTheIdentity)
{
    ActionTypeManager catalogue = emptyCatalogue();
    ActionType* const first = catalogue.giveActionType(ActionType::Id::P);
    auto* const second = new ActionType(ActionType::Id::P);
    catalogue.addType(second);
    ActionType replacement(ActionType::Id::P);
    replacement.setLoadDurationClass(Standard::LoadDuration::LONGTERM);

    EXPECT_TRUE(catalogue.replaceActionType(&replacement));
    EXPECT_EQ(catalogue.findActionType(ActionType::Id::P), first);
    EXPECT_EQ(first->getLoadDurationClass(), Standard::LoadDuration::LONGTERM);
    EXPECT_EQ(second->getLoadDurationClass(), Standard::LoadDuration::MEDIUMTERM);
    const ActionType absent(ActionType::Id::T);
    EXPECT_FALSE(catalogue.replaceActionType(&absent));
    EXPECT_FALSE(catalogue.replaceActionType(nullptr));
    EXPECT_EQ(catalogue.getActionTypes().size(), 2U);
}

TEST(Catalogue, ACopySharesTheTypes)
{
    // Only one of a catalogue and its copies may be destroyed, so these two never are.
    static auto* const copy = new ActionTypeManager(ZelXmlTree());
    static auto* const assigned = new ActionTypeManager(ZelXmlTree());
    copy->giveActionType(ActionType::Id::SNOW);
    const ActionTypeManager source(*copy);
    *assigned = source;
    EXPECT_EQ(copy->getActionTypes(), source.getActionTypes());
    EXPECT_EQ(assigned->getActionTypes(), source.getActionTypes());

    ActionTypeManager self = emptyCatalogue();
    self.giveActionType(ActionType::Id::SNOW);
    const ActionTypeManager& same = self;
    self = same;
    EXPECT_EQ(ids(self), snow);
}

TEST(Catalogue, AReaderAddsToItAndAWriterWritesBelowAnyElement)
{
    ActionTypeManager catalogue = emptyCatalogue();
    catalogue.giveActionType(ActionType::Id::G1);
    std::istringstream document(snowDocument);
    Standard::ActionTypeReader(&catalogue).readXml(document);
    EXPECT_EQ(ids(catalogue), (Ids{ActionType::Id::G1, ActionType::Id::SNOW}));

    ZelXmlTree tree;
    catalogue.output(tree); // leaves nothing open
    ZelXmlData* const parent = tree.open("MINE", false);
    EXPECT_EQ(ZelXmlData::findChild(tree.getRoot(), "MINE"), parent);
    Standard::ActionTypeWriter(&catalogue).writeActionTypes(parent);
    EXPECT_EQ(ZelXmlData::getAttributeString(ZelXmlData::getFirstChild(parent), "NAME"), "G1");
}
