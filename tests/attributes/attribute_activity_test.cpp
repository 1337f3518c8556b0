#include <algorithm>
#include <functional>

#include <zelstandard/attributes/StateAttributeValidator.h>

#include "attributes/Attributes.h"
#include "support/Context.h"
#include "support/Files.h"
#include "support/Golden.h"

using Standard::BridgeType;
using Standard::Classification;
using Standard::DesignMaterial;
using Standard::Mode;
using Standard::StateAttribute;
using Standard::StateAttributeValidator;
using Token = Standard::StateAttributeToken;

namespace
{

/// One setting of the context, with all values that it takes.
struct Setting {
    int first, last;
    void (*set)(int);
    std::string (*word)(int);
};

const std::vector<Setting> settings = {
    {1,  2, [](int value) { ZelStandard::get()->setClassification(Classification{value}); },
     [](int value) { return support::word(Classification{value}); }},
    {0,  6, [](int value) { ZelStandard::get()->setBridgeType(BridgeType{value}); },
     [](int value) { return support::word(BridgeType{value}); }    },
    {-1, 5, [](int value) { ZelStandard::get()->setDesignMaterial(DesignMaterial{value}); },
     [](int value) {
         const DesignMaterial material{value};
         return support::wordOrNumber(Standard::XMLUtil::get()->getStringToDgnMaterial(material),
                                      material);
     }                                                             },
    {0,  8, [](int value) { ZelStandard::get()->setMode(Mode{value}); },
     [](int value) { return support::word(Mode{value}); }          },
};

using Test = std::function<bool()>;

/// Where the test is true, in terms of the settings from the given one on: "always", "never" or the
/// values of the first setting that matters, those with further conditions followed by them:
/// "BUILDING, BRIDGE(ROADWAY FOOTBRIDGE1)"; behind "not" the fewer values where it is false.
std::string where(const Test& test, std::size_t number = 0)
{
    if (number == settings.size())
        return test() ? "always" : "never";
    const Setting& setting = settings[number];
    struct Group {
        std::string condition;
        std::string values;
        int count;
    };
    std::vector<Group> groups;
    for (int value = setting.first; value <= setting.last; ++value) {
        setting.set(value);
        const std::string condition = where(test, number + 1);
        auto group = std::ranges::find(groups, condition, &Group::condition);
        if (group == groups.end())
            group = groups.insert(group, {condition, "", 0});
        group->values += (group->count++ ? " " : "") + setting.word(value);
    }
    if (groups.size() == 1)
        return groups[0].condition;
    if (groups.size() == 2 && groups[0].condition == "always" && groups[1].condition == "never" &&
        groups[0].count > groups[1].count)
        return "not " + groups[1].values;
    std::string result;
    for (const Group& group : groups)
        if (group.condition != "never")
            result += (result.empty() ? "" : ", ") + group.values +
                      (group.condition == "always" ? "" : "(" + group.condition + ")");
    return result;
}

/// Where the attribute is active, and what the validator's rules say otherwise.
std::string activity(const StateAttribute& attribute)
{
    const auto own = [&] { return attribute.isActive(); };
    const auto validator = [&] { return StateAttributeValidator::isAttributeActive(&attribute); };
    std::string result = where(own);
    if (const auto more = where([&] { return validator() && !own(); }); more != "never")
        result += "; validator also " + more;
    if (const auto less = where([&] { return own() && !validator(); }); less != "never")
        result += "; validator not " + less;
    return result;
}

/// Ascending numbers: "1-3, 7".
std::string ranges(const std::vector<int>& numbers)
{
    std::string result;
    for (auto first = numbers.begin(); first != numbers.end();) {
        auto last = first;
        while (last + 1 != numbers.end() && last[1] == *last + 1)
            ++last;
        result += (result.empty() ? "" : ", ") + std::to_string(*first) +
                  (last == first ? "" : "-" + std::to_string(*last));
        first = last + 1;
    }
    return result;
}

/// A line for each attribute whose activity depends on the settings, and the others by number.
std::string activities(const std::function<const StateAttribute*(Token)>& find)
{
    std::string result;
    std::vector<int> always;
    std::vector<int> missing;
    for (int token = 0; token < support::tokenCount; ++token) {
        const StateAttribute* attribute = find(Token{token});
        if (!attribute)
            missing.push_back(token);
        else if (const std::string active = activity(*attribute); active == "always")
            always.push_back(token);
        else
            result += std::to_string(token) + " " +
                      StateAttribute::getPersistenceStringFromToken(Token{token}) + ": " + active +
                      "\n";
    }
    return result + "always: " + ranges(always) + "\n" +
           (missing.empty() ? "" : "not in the file: " + ranges(missing) + "\n");
}

} // namespace

TEST(AttributeActivity, OfAllTokens)
{
    const support::FreshContext context;
    support::Attributes unrestricted;
    for (int token = 0; token < support::tokenCount; ++token)
        unrestricted->add(Token{token}, nullptr);
    support::Attributes shipped;
    shipped->init(support::sourceFile("data/StateAttributes.xml").string());
    const auto of = [](support::Attributes& attributes) {
        return activities(
            [&](Token token) { return attributes->findStateAttributeToToken(token); });
    };
    support::expectGolden("attribute_activity.txt",
                          "Attributes without restrictions of their own\n" + of(unrestricted) +
                              "\nAttributes of data/StateAttributes.xml\n" + of(shipped));
}

// The shipped attributes are valid for every code, so the golden file shows nothing of that.
TEST(AttributeActivity, NeedsEverySetThatIsNotEmpty)
{
    const support::FreshContext context;
    context->setDesignMaterial(DesignMaterial::TIMBER); // rejects no token
    StateAttribute attribute(Token::SNOW, nullptr);
    attribute.addStandard(Mode::CSN);
    attribute.addStandard(Mode::DIN_EN);
    attribute.addBridgeType(BridgeType::RAILWAY1);
    for (int classification = 0; classification <= 3; ++classification)
        for (int mode = 0; mode <= 8; ++mode)
            for (int bridgeType = 0; bridgeType <= 6; ++bridgeType) {
                context->setClassification(Classification{classification});
                context->setMode(Mode{mode});
                context->setBridgeType(BridgeType{bridgeType});
                const bool active =
                    (mode == 6 || mode == 8) &&
                    (classification != 2 || BridgeType{bridgeType} == BridgeType::RAILWAY1);
                EXPECT_EQ(attribute.isActive(), active) << mode << " " << bridgeType;
                EXPECT_EQ(StateAttributeValidator::isAttributeActive(&attribute), active);
                EXPECT_TRUE(attribute.isValidForBridgeDesignType())
                    << "asks for the material alone";
            }
    EXPECT_FALSE(StateAttributeValidator::isAttributeActive(nullptr));
}
