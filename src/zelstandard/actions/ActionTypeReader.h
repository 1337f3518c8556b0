#pragma once

#include <iosfwd>

#include <zelstandard/Export.h>

class ZelXmlData;
class ZelXmlTree;

namespace Standard
{

class ActionType;
class ActionTypeManager;
class SafetyFactors;

/// Reads an action type document into a catalogue.
///
///     <SMOD>
///       <ACTIONTYPES>
///         <ACTIONTYPE NAME="SNOW">
///           <ACTIONGROUP>SNOW</ACTIONGROUP>
///           <LOADDURATION>SHORTTERM</LOADDURATION>
///           <ANNEXES>
///             <ANNEX NAME="EC">
///               <CLASSIFICATION NAME="BUILDING"> <GAMMA_SUP>1.50</GAMMA_SUP> ... </CLASSIFICATION>
///             </ANNEX>
///             <ANNEX NAME="BS"/>
///
/// Every annex but EC starts from a copy of the EC sets read so far, so EC comes first. The name
/// DEFAULT gives values for the named sets that follow it in its annex and, in an annex other than
/// EC, for all sets that the annex has at that point. Every set that is named takes crack reduction
/// 1.0 unless a DEFAULT or its own CrackRed gives another.
///
/// ACTIONTYPES (at any depth), ACTIONGROUP, LOADDURATION, ANNEXES (at any depth) and the value
/// elements go by their element names; types, annexes and sets go by their attribute NAME alone. A
/// negative value counts as not given in a DEFAULT and is taken as it is in a named set. A type
/// that occurs twice yields two entries. Nothing is reported: what is missing is skipped, unknown
/// words become what XMLUtil gives for them.
///
/// One thread may read into a catalogue at a time, and none use it meanwhile.
class ZELSTANDARD_API ActionTypeReader
{
public:
    /// The catalogue is not owned and only added to.
    explicit ActionTypeReader(ActionTypeManager* manager) : manager_(manager) {}

    void readXml(std::istream& stream);
    void readXml(const ZelXmlTree& tree);

private:
    void readActionType(const ZelXmlData* element);
    static void readAnnex(const ZelXmlData* element, ActionType& type);
    static void readFactors(const ZelXmlData* element, SafetyFactors& factors);

    ActionTypeManager* manager_;
};

} // namespace Standard
