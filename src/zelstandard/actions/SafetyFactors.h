#pragma once

#include <zelstandard/Export.h>

namespace Standard
{

/// The partial safety factors and combination coefficients of one action for one design code and
/// structure (EN 1990 Annex A1 and A2). All are without unit.
///
/// A set may also serve as an overlay for takeOverFrom(): there a field that is negative or NaN
/// counts as not given.
class ZELSTANDARD_API SafetyFactors
{
public:
    /// All nine fields 0.
    SafetyFactors() = default;

    /// The eight gammas and psis take the value, crack reduction 1.0 whatever the value. This is
    /// wanted: SafetyFactors(-1.0) is an overlay that gives a crack reduction of 1.0 and nothing
    /// else.
    explicit SafetyFactors(double value);

    [[nodiscard]] double getGammaSup() const { return gammaSup_; } ///< unfavourable action
    [[nodiscard]] double getGammaInf() const { return gammaInf_; } ///< favourable action
    [[nodiscard]] double getPsi0() const { return psi0_; }         ///< combination value
    [[nodiscard]] double getPsi1() const { return psi1_; }         ///< frequent value
    [[nodiscard]] double getPsi2() const { return psi2_; }         ///< quasi-permanent value
    [[nodiscard]] double getPsi11() const { return psi11_; }       ///< infrequent value
    [[nodiscard]] double getPsi21() const { return psi21_; } ///< quasi-permanent, first variant
    [[nodiscard]] double getPsi22() const { return psi22_; } ///< quasi-permanent, second variant
    [[nodiscard]] double getCrackRed() const { return crackRed_; } ///< reduction for crack widths

    // No setter checks its value.

    void setGammaSup(double value) { gammaSup_ = value; }
    void setGammaInf(double value) { gammaInf_ = value; }
    void setPsi0(double value) { psi0_ = value; }
    void setPsi1(double value) { psi1_ = value; }
    void setPsi2(double value) { psi2_ = value; }
    void setPsi11(double value) { psi11_ = value; }
    void setPsi21(double value) { psi21_ = value; }
    void setPsi22(double value) { psi22_ = value; }
    void setCrackRed(double value) { crackRed_ = value; }

    /// 1 when any field differs, else 0. There is no tolerance, and NaN differs from itself.
    [[nodiscard]] int operator!=(const SafetyFactors& other) const;
    [[nodiscard]] int operator==(const SafetyFactors& other) const;

    /// Takes each field of the other set that is 0 or more; the others keep their values.
    void takeOverFrom(const SafetyFactors& other);

private:
    double gammaSup_ = 0.0;
    double gammaInf_ = 0.0;
    double psi0_ = 0.0;
    double psi1_ = 0.0;
    double psi2_ = 0.0;
    double psi11_ = 0.0;
    double psi21_ = 0.0;
    double psi22_ = 0.0;
    double crackRed_ = 0.0;
};

} // namespace Standard
