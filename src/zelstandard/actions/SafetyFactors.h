#pragma once

#include <zelstandard/Export.h>

namespace Standard
{

/// The partial safety factors and combination coefficients of one action for one design code and
/// structure (EN 1990 Annex A1 and A2). All are without unit.
///
/// A set may also serve as an overlay for takeOverFrom(): there a field that is negative or NaN
/// counts as not given.
///
/// Several threads may read an object that none changes.
class ZELSTANDARD_API SafetyFactors
{
public:
    /// All nine fields 0.
    SafetyFactors();

    /// The eight gammas and psis take the value, crack reduction 1.0 whatever the value. This is
    /// wanted: SafetyFactors(-1.0) is an overlay that gives a crack reduction of 1.0 and nothing
    /// else.
    explicit SafetyFactors(double value);

    SafetyFactors(const SafetyFactors& other) = default;
    SafetyFactors& operator=(const SafetyFactors& other);
    SafetyFactors& operator=(SafetyFactors&& other) noexcept;

    // clang-format off
    [[nodiscard]] double getGammaSup() const { return factors_[0]; } ///< unfavourable action
    [[nodiscard]] double getGammaInf() const { return factors_[1]; } ///< favourable action
    [[nodiscard]] double getPsi0()     const { return factors_[2]; } ///< combination value
    [[nodiscard]] double getPsi1()     const { return factors_[3]; } ///< frequent value
    [[nodiscard]] double getPsi2()     const { return factors_[4]; } ///< quasi-permanent value
    [[nodiscard]] double getPsi11()    const { return factors_[5]; } ///< infrequent value
    [[nodiscard]] double getPsi21()    const { return factors_[6]; } ///< quasi-permanent value, first variant
    [[nodiscard]] double getPsi22()    const { return factors_[7]; } ///< quasi-permanent value, second variant
    [[nodiscard]] double getCrackRed() const { return factors_[8]; } ///< reduction for crack widths

    // No setter checks its value.

    void setGammaSup(double value) { factors_[0] = value; }
    void setGammaInf(double value) { factors_[1] = value; }
    void setPsi0(double value)     { factors_[2] = value; }
    void setPsi1(double value)     { factors_[3] = value; }
    void setPsi2(double value)     { factors_[4] = value; }
    void setPsi11(double value)    { factors_[5] = value; }
    void setPsi21(double value)    { factors_[6] = value; }
    void setPsi22(double value)    { factors_[7] = value; }
    void setCrackRed(double value) { factors_[8] = value; }
    // clang-format on

    /// 1 when any field differs, else 0. There is no tolerance, and NaN differs from itself.
    [[nodiscard]] int operator!=(const SafetyFactors& other) const;
    [[nodiscard]] int operator==(const SafetyFactors& other) const;

    /// Takes each field of the other set that is 0 or more; the others keep their values.
    void takeOverFrom(const SafetyFactors& other);

private:
    friend struct FactorAccess;

    double factors_[9];
};

inline SafetyFactors::SafetyFactors() : factors_{} {}
inline SafetyFactors& SafetyFactors::operator=(const SafetyFactors& other) = default;
inline SafetyFactors& SafetyFactors::operator=(SafetyFactors&& other) noexcept = default;

} // namespace Standard
