#pragma once

#include <memory>
#include <string>
#include <vector>

#include <zelstandard/Export.h>
#include <zelstandard/vocabulary/Enumerations.h>

class ZelXmlData;
class ZelXmlTree;

namespace Standard
{

/// The material partial safety factors per design code and design situation, and the long-term
/// coefficients of concrete per design code and classification. All are without unit.
///
/// There are no built-in values: they come from the element COEFFICIENTS of the settings file, from
/// later calls of input(), and from the setters. A value that nobody gave is 0.0.
///
///     <COEFFICIENTS>
///       <GAMMA_S>
///         <ANNEX NAME="EC"> <PERSISTENT>1.15</PERSISTENT> <ACCIDENTAL>1.00</ACCIDENTAL> ...
///         </ANNEX> <ANNEX NAME="DIN-EN"> ... </ANNEX>
///       </GAMMA_S>
///       ...
///       <ALPHA_CC>
///         <ANNEX NAME="EC"> <BUILDING>1.00</BUILDING> <BRIDGE>0.85</BRIDGE> </ANNEX>
///
/// An annex EC gives its values to all codes, over what earlier annexes gave; so it comes first,
/// and the annex of a code names what the nation decided. Values of a magnitude up to 1e-7 are
/// passed over. Nothing is reported.
///
/// Several threads may read the values once get() has been called, while none changes any.
class ZELSTANDARD_API Coefficients
{
public:
    /// The one instance, alive until the process ends; made at the first call, which reads the
    /// settings file at ZelStandard::getDataBaseDir().
    static Coefficients* get();

    Coefficients(const Coefficients&) = delete;
    Coefficients& operator=(const Coefficients&) = delete;
    ~Coefficients();

    /// Reinforcing steel.
    [[nodiscard]] double getGammaS(Mode mode, DesignSituation situation) const;
    /// Concrete.
    [[nodiscard]] double getGammaC(Mode mode, DesignSituation situation) const;
    /// Structural steel.
    [[nodiscard]] double getGammaA(Mode mode, DesignSituation situation) const;
    /// Timber.
    [[nodiscard]] double getGammaT(Mode mode, DesignSituation situation) const;
    /// Fatigue load.
    [[nodiscard]] double getGammaF(Mode mode, DesignSituation situation) const;
    /// Global resistance of non-linear analysis.
    [[nodiscard]] double getGammaR(Mode mode, DesignSituation situation) const;
    /// Bearing resistance of the ground.
    [[nodiscard]] double getGammaRV(Mode mode, DesignSituation situation) const;
    /// Sliding resistance of the ground.
    [[nodiscard]] double getGammaRH(Mode mode, DesignSituation situation) const;
    /// Earth resistance.
    [[nodiscard]] double getGammaRE(Mode mode, DesignSituation situation) const;
    /// Long-term effects on the compressive strength of concrete.
    [[nodiscard]] double getAlphaCC(Mode mode, Classification classification) const;
    /// Long-term effects on the tensile strength of concrete.
    [[nodiscard]] double getAlphaCT(Mode mode, Classification classification) const;

    // Keys are not checked; files hold the situations and classifications that are members, for the
    // codes EC to DIN-EN.

    void setGammaS(Mode mode, DesignSituation situation, double value);
    void setGammaC(Mode mode, DesignSituation situation, double value);
    void setGammaA(Mode mode, DesignSituation situation, double value);
    void setGammaT(Mode mode, DesignSituation situation, double value);
    void setGammaF(Mode mode, DesignSituation situation, double value);
    void setGammaR(Mode mode, DesignSituation situation, double value);
    void setGammaRV(Mode mode, DesignSituation situation, double value);
    void setGammaRH(Mode mode, DesignSituation situation, double value);
    void setGammaRE(Mode mode, DesignSituation situation, double value);
    void setAlphaCC(Mode mode, Classification classification, double value);
    void setAlphaCT(Mode mode, Classification classification, double value);

    /// The codes EC to DIN-EN, in the order of their values.
    [[nodiscard]] const std::vector<Mode>& getSupportedModes() const;

    /// Reads a document, which is never enciphered; one that does not open changes nothing.
    void input(const std::string& fileName);
    /// Reads the first COEFFICIENTS at or below the element.
    void input(ZelXmlData* element);

    /// Writes into a tree. EC is written in full, the other codes where they differ from EC by more
    /// than 1e-7; two decimals. A value up to 1e-7 is lost where EC has a greater one. Unknown
    /// content of the tree stays; what would give another value when read again is removed, and the
    /// annex EC moves to the front.
    void output(ZelXmlTree& tree);
    /// Replaces the whole file by one that holds the coefficients alone.
    void output(const std::string& fileName);

private:
    struct Tables;

    Coefficients();

    std::unique_ptr<Tables> tables_;
};

} // namespace Standard
