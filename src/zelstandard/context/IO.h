#pragma once

#include <string>

#include <zelstandard/Export.h>

class ZelStandard;
class ZelXmlData;
class ZelXmlTree;

namespace Standard
{

/// Reads and writes the settings of the design context.
///
///     <SMOD>
///       <SETTINGS>
///         <STANDARD_MODE>EC</STANDARD_MODE>
///         <CLASSIFICATION_MODE>BUILDING</CLASSIFICATION_MODE>
///         <BRIDGETYPE>ROADWAY</BRIDGETYPE>
///         ...
///         <SERVICE_CLASS>1</SERVICE_CLASS>
///       </SETTINGS>
///     </SMOD>
///
/// Nothing is reported: a file that does not open, or has no SETTINGS, changes nothing.
///
/// One thread may read or write settings at a time, and none change them meanwhile.
class ZELSTANDARD_API IO
{
public:
    static void read(const std::string& path, ZelStandard* standard);

    /// Applies the first SETTINGS at or below the element. Every setting is set: a missing or
    /// unknown word sets what XMLUtil gives for it (no code, BUILDING, no bridge type ...), and a
    /// service class other than 1, 2 and 3 sets 1.
    static void read(ZelXmlData* root, ZelStandard* standard);

    /// Updates the first SETTINGS of a tree, or adds one to the element that is open in it;
    /// everything else in the tree stays.
    static void write(ZelXmlTree& tree, const ZelStandard* standard);

    /// Replaces the whole file by one that holds the settings alone.
    static void write(const std::string& path, const ZelStandard* standard);

    IO() = delete;
};

} // namespace Standard
