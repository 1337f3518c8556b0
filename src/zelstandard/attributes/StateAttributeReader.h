#pragma once

#include <iosfwd>

#include <zelstandard/Export.h>

class ZelXmlData;
class ZelXmlTree;

namespace Standard
{

class StateAttribute;
class StateAttributeManager;

/// Reads a state attribute document into a catalogue.
///
///     <STATEATTRIBUTES>
///       <STATEATTRIBUTE NAME="SNOW">
///         <ACTIONTYPE>SNOW</ACTIONTYPE>
///         <OPERATOR>AND_MINMAX</OPERATOR> <TYPE>SNOW</TYPE> <LOAD_TYPE>UNDEFINED</LOAD_TYPE>
///         <CLASSIFICATION>BRIDGE</CLASSIFICATION>
///         <STANDARD><EC/><OENORM/></STANDARD>
///         <BRIDGETYPE><ROADWAY/></BRIDGETYPE>
///         <EXCLGROUP>0</EXCLGROUP> <COMBGROUP>AGR_AU</COMBGROUP>
///
/// The first STATEATTRIBUTES at or below the root is read. In a document that also holds
/// superposition rules that may be the list of an instruction: its entries then become attributes
/// with nothing but their token. So keep attributes in a document of their own, or in front.
///
/// A token that occurs twice makes one attribute: the action type of the first stays, the later one
/// replaces everything else, save that its classification adds to the earlier one. Nothing is
/// reported; what is missing or unknown becomes what XMLUtil gives for it: an attribute without
/// OPERATOR gets the operator -1, which is no member and counts as an operator.
///
/// One thread may read into a catalogue at a time, and none use it meanwhile.
class ZELSTANDARD_API StateAttributeReader
{
public:
    /// The catalogue is not owned.
    explicit StateAttributeReader(StateAttributeManager* manager) : manager_(manager) {}

    void readXml(std::istream& stream);
    void readXml(const ZelXmlTree& tree);

private:
    static void readStateAttribute(const ZelXmlData* element, StateAttribute& attribute);

    StateAttributeManager* manager_;
};

} // namespace Standard
