#include <zelstandard/actions/SafetyFactors.h>

namespace Standard
{

SafetyFactors::SafetyFactors(double value)
    : gammaSup_(value), gammaInf_(value), psi0_(value), psi1_(value), psi2_(value), psi11_(value),
      psi21_(value), psi22_(value), crackRed_(1.0)
{
}

int SafetyFactors::operator!=(const SafetyFactors& other) const
{
    return gammaSup_ != other.gammaSup_ || gammaInf_ != other.gammaInf_ || psi0_ != other.psi0_ ||
           psi1_ != other.psi1_ || psi2_ != other.psi2_ || psi11_ != other.psi11_ ||
           psi21_ != other.psi21_ || psi22_ != other.psi22_ || crackRed_ != other.crackRed_;
}

int SafetyFactors::operator==(const SafetyFactors& other) const { return !(*this != other); }

void SafetyFactors::takeOverFrom(const SafetyFactors& other)
{
    const auto take = [](double& field, double given) {
        if (given >= 0.0) // false for NaN
            field = given;
    };
    take(gammaSup_, other.gammaSup_);
    take(gammaInf_, other.gammaInf_);
    take(psi0_, other.psi0_);
    take(psi1_, other.psi1_);
    take(psi2_, other.psi2_);
    take(psi11_, other.psi11_);
    take(psi21_, other.psi21_);
    take(psi22_, other.psi22_);
    take(crackRed_, other.crackRed_);
}

} // namespace Standard
