#pragma once

#include <iosfwd>

#include <zelstandard/Export.h>

class ZelXmlData;
class ZelXmlTree;

namespace Standard
{

class StateAttribute;
class StateAttributeManager;

/// Writes a catalogue as the document that StateAttributeReader reads.
///
/// The document cannot hold everything: of the codes it knows DIN-2008, EC, OENORM and CSN, of the
/// bridge types all but FOOTBRIDGE2; a classification set of both classifications is written empty,
/// which means the same; a combination group takes the alphabetically first of its words; a
/// token, operator or type without a word is written "-", which reads as unknown. All this is
/// wanted.
///
/// Written into a tree that holds attributes already, their elements are updated in place. Unknown
/// content stays, elements whose NAME is no word and attributes that the catalogue does not have
/// among it; what would give an attribute of the catalogue another value when read again is
/// removed. As for reading, the first STATEATTRIBUTES of the tree is taken, even the list of an
/// instruction.
///
/// Several threads may write a catalogue that none changes, each into a tree of its own.
class ZELSTANDARD_API StateAttributeWriter
{
public:
    /// The catalogue is not owned.
    explicit StateAttributeWriter(StateAttributeManager* manager) : manager_(manager) {}

    void writeXML(std::ostream& stream);
    void writeXML(ZelXmlTree& tree);

    /// Writes every attribute, in the order of the catalogue, below the element.
    void writeStateAttributes(ZelXmlData* parent);

private:
    static void writeStateAttribute(ZelXmlData* element, const StateAttribute& attribute);

    StateAttributeManager* manager_;
};

} // namespace Standard
