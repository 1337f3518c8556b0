#include <map>

#include <zelstandard/actions/ActionType.h>
#include <zelstandard/platform/ZelText.h>
#include <zelstandard/vocabulary/XMLUtil.h>
#include <zelsuite/zelsuite.h>

#include "support/Golden.h"

using Standard::ActionType;

namespace
{

/// A name and its report variant in every language, by which a text is told from the others.
template <class Load> std::vector<std::string> inAllLanguages(Load load)
{
    std::vector<std::string> wording;
    for (const char* language : {"de", "en"}) {
        EXPECT_TRUE(zelsuite::setLanguage(language));
        load(wording);
    }
    return wording;
}

constexpr unsigned int lastText = 9999;

} // namespace

TEST(ActionTypeTexts, NameEachTypeAndMeanOne)
{
    std::map<std::vector<std::string>, std::string> textsOf;
    for (unsigned int text = 1; text <= lastText; ++text)
        if (!ZelText::Load(text).empty())
            textsOf[inAllLanguages([&](auto& wording) {
                wording.insert(wording.end(), {ZelText::Load(text), ZelText::LoadReport(text)});
            })] += " " + std::to_string(text);

    std::ostringstream table;
    table << "Action types and the texts that read as their names:\n";
    for (int id = -1; id <= 52; ++id) {
        const ActionType type(ActionType::Id{id});
        const auto found = textsOf.find(inAllLanguages([&](auto& wording) {
            wording.insert(wording.end(), {type.getName(), type.getReportName()});
        }));
        table << id << " " << Standard::XMLUtil::get()->getStringToActionType(type.getId()) << ":"
              << (found != textsOf.end()  ? found->second
                  : type.getName() == "-" ? " none"
                                          : " other")
              << "\n";
    }
    table << "Texts and the action types that they mean:\n";
    for (unsigned int text = 0; text <= lastText; ++text)
        if (const auto id = ActionType::getIdByTextId(text); id != ActionType::Id::NONE)
            table << text << ": " << static_cast<int>(id) << "\n";
    support::expectGolden("action_type_texts.txt", table.str());

    const ActionType braking(ActionType::Id::B);
    EXPECT_EQ(braking.getName(), ZelText::Load(6048) + "-" + ZelText::Load(6049));
    EXPECT_EQ(braking.getReportName(), ZelText::LoadReport(6048) + "-" + ZelText::LoadReport(6049));
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
