#include <zelstandard/actions/SafetyFactors.h>

#include <algorithm>
#include <iterator>

namespace Standard
{

SafetyFactors::SafetyFactors(double value)
{
    std::ranges::fill(factors_, value);
    setCrackRed(1.0);
}

int SafetyFactors::operator!=(const SafetyFactors& other) const { return !(*this == other); }

int SafetyFactors::operator==(const SafetyFactors& other) const
{
    return std::ranges::equal(factors_, other.factors_);
}

void SafetyFactors::takeOverFrom(const SafetyFactors& other)
{
    for (std::size_t i = 0; i < std::size(factors_); ++i)
        if (other.factors_[i] >= 0.0) // false for NaN
            factors_[i] = other.factors_[i];
}

} // namespace Standard
