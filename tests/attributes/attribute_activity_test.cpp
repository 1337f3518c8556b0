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

/// Numbers in ascending order: "1-3, 7".
class Ranges
{
public:
    void add(int number)
    {
        if (!text_.empty() && number == last_ + 1)
            range_ = "-" + std::to_string(number);
        else
            text_ = text() + (text_.empty() ? "" : ", ") + std::to_string(number), range_.clear();
        last_ = number;
    }
    [[nodiscard]] std::string text() const { return text_ + range_; }

private:
    std::string text_;
    std::string range_;
    int last_ = 0;
};

/// A line for each attribute whose activity depends on the settings, and the others by number.
class ActivityTable
{
public:
    void add(const StateAttribute& attribute)
    {
        const auto token = attribute.getToken();
        const std::string result = activity(attribute);
        if (result == "always")
            always_.add(static_cast<int>(token));
        else
            lines_ += std::to_string(static_cast<int>(token)) + " " +
                      StateAttribute::getPersistenceStringFromToken(token) + ": " + result + "\n";
    }
    [[nodiscard]] std::string text() const { return lines_ + "always: " + always_.text() + "\n"; }

private:
    std::string lines_;
    Ranges always_;
};

} // namespace

TEST(AttributeActivity, OfAllTokens)
{
    const support::FreshContext context;
    support::Attributes shipped;
    shipped->init(support::sourceFile("data/StateAttributes.xml").string());
    ActivityTable unrestricted;
    ActivityTable ofTheFile;
    Ranges missing;
    for (int token = 0; token < support::tokenCount; ++token) {
        unrestricted.add(StateAttribute(Token{token}, nullptr));
        if (const auto* attribute = shipped->findStateAttributeToToken(Token{token}))
            ofTheFile.add(*attribute);
        else
            missing.add(token);
    }
    support::expectGolden("attribute_activity.txt",
                          "Attributes without restrictions of their own\n" + unrestricted.text() +
                              "\nAttributes of data/StateAttributes.xml\n" + ofTheFile.text() +
                              "not in the file: " + missing.text() + "\n");
}

TEST(AttributeActivity, NeedsEverySetThatIsNotEmpty)
{
    const support::FreshContext context;
    context->setDesignMaterial(DesignMaterial::TIMBER); // rejects no token
    for (int sets = 0; sets < 8; ++sets) {
        StateAttribute attribute(Token::SNOW, nullptr);
        if (sets & 1)
            attribute.addClassification(Classification::BRIDGE);
        if (sets & 2) {
            attribute.addStandard(Mode::CSN);
            attribute.addStandard(Mode::DIN_EN);
        }
        if (sets & 4) {
            attribute.addBridgeType(BridgeType::ROADWAY);
            attribute.addBridgeType(BridgeType::FOOTBRIDGE2);
        }
        for (int classification = 0; classification <= 3; ++classification)
            for (int mode = 0; mode <= 8; ++mode)
                for (int bridgeType = 0; bridgeType <= 6; ++bridgeType) {
                    context->setClassification(Classification{classification});
                    context->setMode(Mode{mode});
                    context->setBridgeType(BridgeType{bridgeType});
                    const bool isBridge = classification == 2;
                    const bool active =
                        (!(sets & 1) || isBridge) && (!(sets & 2) || mode == 6 || mode == 8) &&
                        // Without a bridge type it is a road bridge.
                        (!(sets & 4) || !isBridge || bridgeType <= 1 || bridgeType == 6);
                    ASSERT_EQ(attribute.isActive(), active)
                        << sets << " " << classification << " " << mode << " " << bridgeType;
                    ASSERT_EQ(StateAttributeValidator::isAttributeActive(&attribute), active)
                        << sets << " " << classification << " " << mode << " " << bridgeType;
                }
    }
    EXPECT_FALSE(StateAttributeValidator::isAttributeActive(nullptr));
}

TEST(AttributeActivity, OnABridgeTheMaterialIsTheLastWord)
{
    const support::FreshContext context;
    for (const int classification : {1, 2, 3})
        for (int material = -1; material <= 5; ++material) {
            context->setClassification(Classification{classification});
            context->setDesignMaterial(DesignMaterial{material});
            for (int token = 0; token < support::tokenCount; ++token) {
                StateAttribute attribute(Token{token}, nullptr);
                EXPECT_EQ(attribute.isActive(), attribute.isValidForBridgeDesignType()) << token;
                EXPECT_TRUE(classification == 2 || attribute.isActive()) << token;
                const bool isValid = attribute.isValidForBridgeDesignType();
                attribute.addStandard(Mode::CSN); // not in force
                EXPECT_EQ(attribute.isValidForBridgeDesignType(), isValid)
                    << "asks for the material alone";
                EXPECT_FALSE(attribute.isActive()) << token;
            }
        }
}
