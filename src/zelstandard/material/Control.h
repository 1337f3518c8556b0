#pragma once

#include <string>

#include <zelstandard/Export.h>
#include <zelstandard/vocabulary/Enumerations.h>

class ZelXmlTree;

namespace Standard
{

/// The control values of concrete design; all factors are without unit.
///
/// There are two records: one for DIN-1988, and one that all other codes share. This is wanted, and
/// it means that a value set for one of them changes it for all of them.
///
///     <SMOD>
///       <STRESSBLOCK>
///         <ANNEX NAME="EC">
///           <STRUTFACTOR>0.6</STRUTFACTOR> <ETA>1</ETA> <LAMBDA>0.8</LAMBDA>
///         </ANNEX>
///
/// The first use of any operation installs the built-in values and reads the element STRESSBLOCK of
/// the settings file at ZelStandard::getDataBaseDir(), once for the life of the process. A value
/// that does not exceed 1e-7 is passed over. Gamma, gamma factor and internal factor stand in no
/// file.
///
/// Several threads may read the values once one has been read, while none changes any.
class ZELSTANDARD_API Control
{
public:
    Control() = default;
    Control(const Control&) = default;
    Control& operator=(const Control&) { return *this; }
    Control& operator=(Control&&) noexcept { return *this; }

    [[nodiscard]] static double getGamma(Mode mode);          ///< global factor; 1.75, others 1.0
    [[nodiscard]] static double getGammaFactor(Mode mode);    ///< 1.2, others 1.0
    [[nodiscard]] static double getStrutFactor(Mode mode);    ///< strength of struts over fcd
    [[nodiscard]] static double getCompressionEta(Mode mode); ///< strength of the stress block
    [[nodiscard]] static double getCompressionLambda(Mode mode); ///< depth of the stress block
    [[nodiscard]] static bool getInternalFactor(Mode mode);      ///< true, others false

    static void setGamma(Mode mode, double value);
    static void setGammaFactor(Mode mode, double value);
    static void setStrutFactor(Mode mode, double value);
    static void setCompressionEta(Mode mode, double value);
    static void setCompressionLambda(Mode mode, double value);
    static void setInternalFactor(Mode mode, bool value);

    /// Reads a document, which is never enciphered; one that does not open changes nothing.
    static void input(const std::string& fileName);
    static void input(const ZelXmlTree& tree);

    /// Writes into a tree: the annexes EC and DIN-1988, and no other, whatever was read; a value up
    /// to 1e-7 is passed over when it is read again. Unknown content of the tree stays.
    static void output(ZelXmlTree& tree);
    /// Replaces the whole file by one that holds the control values alone.
    static void output(const std::string& fileName);
};

} // namespace Standard
