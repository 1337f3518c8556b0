#pragma once

#include <iosfwd>

#include <zelstandard/Export.h>

class ZelXmlTree;

namespace Standard
{

class StateInstructionManager;

/// Reads superposition rules into a catalogue. The library has no writer for them.
///
///     <STATEINSTRUCTIONS>
///       <DEFAULT_BLOCKS>
///         <BLOCK NAME="permanent"> <STATEATTRIBUTE NAME="G1" OPERATOR="AND"/> ... </BLOCK>
///       </DEFAULT_BLOCKS>
///       <STATEINSTRUCTION TYPE="FUNDAMENTAL" TEMPLATE="EC-BUILDING">
///         <STATEATTRIBUTES>
///           <DEFAULT_BLOCKS> <permanent/> </DEFAULT_BLOCKS>
///           <STATEATTRIBUTE NAME="SNOW" OPERATOR="AND_MINMAX"/>
///
/// A block is defined under the value of its NAME and pulled in by an element of that name: this is
/// wanted, and it means that a block's name must be a name of XML. Blocks of one name add up. They
/// are resolved while reading, so a reference in front of the definition adds nothing.
///
/// Two instructions of one type and template are merged, and the first mention of a token in an
/// instruction decides its operator. Nothing is reported: an instruction without STATEATTRIBUTES
/// stays without attributes, and unknown words become what XMLUtil gives for them (no TEMPLATE is
/// DIN-BUILDING, no TYPE is NONE).
///
/// One thread may read into a catalogue at a time, and none use it meanwhile.
class ZELSTANDARD_API StateInstructionReader
{
public:
    /// The catalogue is not owned.
    explicit StateInstructionReader(StateInstructionManager* manager);
    // In the library, for callers that find it by name. NOLINTNEXTLINE(performance-trivially-*)
    ~StateInstructionReader();

    /// Each document has its own blocks. When memory ends, what was read stays; reading the
    /// document again adds the rest.
    void readXml(std::istream& stream);
    void readXml(const ZelXmlTree& tree);

private:
    StateInstructionManager* manager_;
};

} // namespace Standard
