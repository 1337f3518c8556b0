#include <cmath>
#include <limits>
#include <type_traits>

#include "actions/Catalogue.h"

using Standard::SafetyFactors;
using support::FactorField;
using support::factorFields;
using support::text;

namespace
{

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

SafetyFactors with(SafetyFactors factors, const FactorField& field, double value)
{
    (factors.*field.set)(value);
    return factors;
}

/// Gives nothing, crack reduction neither.
SafetyFactors emptyOverlay()
{
    SafetyFactors factors(-1.0);
    factors.setCrackRed(-1.0);
    return factors;
}

} // namespace

static_assert(std::is_trivially_copyable_v<SafetyFactors>);
static_assert(std::is_same_v<decltype(SafetyFactors() != SafetyFactors()), int>);
static_assert(std::is_same_v<decltype(SafetyFactors() == SafetyFactors()), int>);

TEST(SafetyFactors, AValueGivenAtConstructionReachesAllButCrackReduction)
{
    EXPECT_EQ(text(SafetyFactors()), "0 0 0 0 0 0 0 0 0");
    EXPECT_EQ(text(SafetyFactors(0.0)), "0 0 0 0 0 0 0 0 1");
    EXPECT_EQ(text(SafetyFactors(-1.0)), "-1 -1 -1 -1 -1 -1 -1 -1 1");
    EXPECT_EQ(text(SafetyFactors(2.5)), "2.5 2.5 2.5 2.5 2.5 2.5 2.5 2.5 1");
}

TEST(SafetyFactors, EachSetterReachesItsOwnFieldAlone)
{
    for (const FactorField& changed : factorFields)
        for (const FactorField& field : factorFields)
            EXPECT_EQ((with({}, changed, -7.5).*field.get)(), &field == &changed ? -7.5 : 0.0)
                << field.name << " after a change of " << changed.name;
}

TEST(SafetyFactors, EveryFieldIsComparedWithoutTolerance)
{
    for (const FactorField& field : factorFields) {
        SCOPED_TRACE(field.name);
        const SafetyFactors one = with({}, field, 1.0);
        const SafetyFactors next = with({}, field, std::nextafter(1.0, 2.0));
        const SafetyFactors none = with({}, field, notANumber);
        EXPECT_EQ(one != one, 0);
        EXPECT_EQ(one == one, 1);
        EXPECT_EQ(one != next, 1);
        EXPECT_EQ(one == next, 0);
        EXPECT_EQ(none != none, 1) << "NaN differs from itself";
        EXPECT_EQ(none == none, 0);
    }
    EXPECT_EQ(SafetyFactors() != SafetyFactors(0.0), 1);
}

TEST(SafetyFactors, OnlyValuesOfZeroOrMoreAreTakenOver)
{
    struct Case {
        double value;
        bool isTaken;
    };
    constexpr Case cases[] = {
        {0.5,                                        true },
        {0.0,                                        true },
        {-0.0,                                       true },
        {infinity,                                   true },
        {std::numeric_limits<double>::denorm_min(),  true },
        {-std::numeric_limits<double>::denorm_min(), false},
        {-0.5,                                       false},
        {-infinity,                                  false},
        {notANumber,                                 false},
    };
    const SafetyFactors before = support::distinctFactors(1);
    for (const FactorField& field : factorFields) {
        for (const Case& c : cases) {
            SafetyFactors factors = before;
            factors.takeOverFrom(with(emptyOverlay(), field, c.value));
            EXPECT_EQ(text(factors), text(c.isTaken ? with(before, field, c.value) : before))
                << field.name << " of " << c.value;
        }
    }
}

TEST(SafetyFactors, AnOverlayWithoutValuesGivesACrackReductionOfOne)
{
    SafetyFactors factors;
    factors.takeOverFrom(SafetyFactors(-1.0));
    EXPECT_EQ(text(factors), "0 0 0 0 0 0 0 0 1");
}
