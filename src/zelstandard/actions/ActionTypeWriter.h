#pragma once

#include <iosfwd>

#include <zelstandard/Export.h>
#include <zelstandard/vocabulary/Enumerations.h>

class ZelXmlData;
class ZelXmlTree;

namespace Standard
{

class ActionType;
class ActionTypeManager;
class SafetyFactors;

/// Writes a catalogue as the document that ActionTypeReader reads.
///
/// The document cannot hold everything: gammas and psis are rounded to two decimals, crack
/// reduction to three; codes are written but SIA; a set for FOOTBRIDGE2 is compared but never
/// written; an annex whose sets all equal those of EC within 1e-7 is written empty, so a set that
/// has no twin under EC is lost with it; of two types of one identity the last is written; sets
/// without a structure or code, and what has no word, come back as unknown or not at all, and so do
/// values that are no finite numbers. All this is wanted.
///
/// Written into a tree that holds action types already, their elements are updated in place:
/// unknown content, comments, the annex of SIA, elements whose NAME is no known word and types that
/// the catalogue does not have stay, and what would give another value when read again (DEFAULT
/// elements, sets and annexes that the type does not have, repeated elements) is removed. A type of
/// an unknown name, or of none, is read again as one of the identity NONE.
///
/// Several threads may write a catalogue that none changes, each into a tree of its own.
class ZELSTANDARD_API ActionTypeWriter
{
public:
    /// The catalogue is not owned.
    explicit ActionTypeWriter(ActionTypeManager* manager) : manager_(manager) {}

    void writeXml(std::ostream& stream);
    void writeXml(ZelXmlTree& tree);

    /// Writes every type, in the order of the catalogue, below the element.
    void writeActionTypes(ZelXmlData* parent);

private:
    static void writeActionType(ZelXmlData* element, const ActionType& type);
    static void writeAnnex(ZelXmlData* element, const ActionType& type, Mode mode);
    static void writeFactors(ZelXmlData* element, const SafetyFactors& factors);

    ActionTypeManager* manager_;
};

} // namespace Standard
