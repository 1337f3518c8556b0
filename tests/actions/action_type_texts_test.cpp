#include <map>

#include <zelstandard/actions/ActionType.h>
#include <zelstandard/platform/ZelText.h>
#include <zelstandard/vocabulary/XMLUtil.h>
#include <zelsuite/zelsuite.h>

#include "support/Golden.h"

using Standard::ActionType;

namespace
{

/// A name in every language and variant, by which a text is told from the others.
using Wording = std::vector<std::string>;

template <class Add> Wording inAllLanguages(Add add)
{
    Wording wording;
    for (const char* language : {"de", "en"}) {
        EXPECT_TRUE(zelsuite::setLanguage(language));
        add(wording);
    }
    return wording;
}

Wording wordingOf(const ActionType& type)
{
    return inAllLanguages([&](Wording& wording) {
        wording.push_back(type.getName());
        wording.push_back(type.getReportName());
    });
}

Wording wordingOf(unsigned int text)
{
    return inAllLanguages([&](Wording& wording) {
        wording.push_back(ZelText::Load(text));
        wording.push_back(ZelText::LoadReport(text));
    });
}

constexpr unsigned int lastText = 9999;

} // namespace

TEST(ActionTypeTexts, NameEachTypeAndMeanOne)
{
    std::map<Wording, std::string> textsOf;
    for (unsigned int text = 1; text <= lastText; ++text)
        if (!ZelText::Load(text).empty())
            textsOf[wordingOf(text)] += " " + std::to_string(text);

    std::ostringstream table;
    table << "Action types and the texts that read as their names:\n";
    for (int id = -1; id <= 52; ++id) {
        const ActionType type(ActionType::Id{id});
        table << id << " " << Standard::XMLUtil::get()->getStringToActionType(type.getId()) << ":";
        const auto found = textsOf.find(wordingOf(type));
        if (found != textsOf.end())
            table << found->second;
        else
            table << (type.getName() == "-" ? " none" : " other");
        table << "\n";
    }
    table << "Texts and the action types that they mean:\n";
    for (unsigned int text = 0; text <= lastText; ++text)
        if (const auto id = ActionType::getIdByTextId(text); id != ActionType::Id::NONE)
            table << text << ": " << static_cast<int>(id) << "\n";
    support::expectGolden("action_type_texts.txt", table.str());
}

TEST(ActionTypeTexts, BrakingIsNamedByTwoTexts)
{
    const ActionType braking(ActionType::Id::B);
    EXPECT_EQ(braking.getName(), ZelText::Load(6048) + "-" + ZelText::Load(6049));
    EXPECT_EQ(braking.getReportName(), ZelText::LoadReport(6048) + "-" + ZelText::LoadReport(6049));
    EXPECT_EQ(braking.getDescription(), braking.getName());
}

TEST(ActionTypeTexts, OnlyImposedLoadsAreDescribedByTheirUse)
{
    for (int id = -1; id <= 52; ++id) {
        const ActionType type(ActionType::Id{id});
        std::string use;
        std::string reportUse;
        if (type.getId() >= ActionType::Id::NLA && type.getId() <= ActionType::Id::NLH) {
            const auto text = 6001U + static_cast<unsigned int>(id) - 14U;
            use = " (" + ZelText::Load(text) + ")";
            reportUse = " (" + ZelText::LoadReport(text) + ")";
        }
        EXPECT_EQ(type.getDescription(), type.getName() + use) << id;
        EXPECT_EQ(type.getReportDescription(), type.getReportName() + reportUse) << id;
    }
}
