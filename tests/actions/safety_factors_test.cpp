#include <cmath>
#include <limits>
#include <type_traits>

#include "actions/Catalogue.h"

using Standard::SafetyFactors;
using support::FactorField;
using support::text;

static_assert(std::is_same_v<decltype(SafetyFactors() != SafetyFactors()), int>);
static_assert(std::is_same_v<decltype(SafetyFactors() == SafetyFactors()), int>);

TEST(SafetyFactors, AValueGivenAtConstructionReachesAllButCrackReduction)
{
    EXPECT_EQ(text(SafetyFactors()), "0 0 0 0 0 0 0 0 0");
    EXPECT_EQ(text(SafetyFactors(-1.0)), "-1 -1 -1 -1 -1 -1 -1 -1 1");
}

TEST(SafetyFactors, AreComparedWithoutToleranceAndTakenOverFromZeroOn)
{
    using Limits = std::numeric_limits<double>;
    const auto with = [](SafetyFactors factors, const FactorField& field, double value) {
        (factors.*field.set)(value);
        return factors;
    };
    const SafetyFactors before(7.0);
    SafetyFactors givesNothing(-1.0);
    givesNothing.setCrackRed(-1.0);
    for (const FactorField& field : support::factorFields) {
        SCOPED_TRACE(field.name);
        const SafetyFactors one = with({}, field, 1.0);
        const SafetyFactors next = with({}, field, std::nextafter(1.0, 2.0));
        const SafetyFactors none = with({}, field, Limits::quiet_NaN());
        EXPECT_TRUE((one != one) == 0 && (one == one) == 1);
        EXPECT_TRUE((one != next) == 1 && (one == next) == 0);
        EXPECT_TRUE((none != none) == 1 && (none == none) == 0) << "NaN differs from itself";
        for (const double value : {0.5, 0.0, -0.0, Limits::infinity(), -Limits::denorm_min(), -0.5,
                                   Limits::quiet_NaN()}) {
            SafetyFactors factors = before;
            factors.takeOverFrom(with(givesNothing, field, value));
            EXPECT_EQ(text(factors), text(value >= 0.0 ? with(before, field, value) : before));
        }
    }
}
