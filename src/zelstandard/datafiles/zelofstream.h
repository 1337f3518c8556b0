#pragma once

#include <fstream>
#include <memory>
#include <ostream>
#include <string>

#include <zelstandard/Export.h>

/// An output stream that writes to a temporary file and puts it in the target's place when it is
/// destroyed.
///
/// The target is untouched until then. The commit removes the target and moves the temporary file
/// to its name, without looking at the result of either and even after a failed write: this is
/// wanted, and it means that a full temporary disk commits a truncated text, and that a target that
/// cannot be written is gone while the text stays in the temporary directory. A stream without
/// anything written leaves an empty target. A target that is a symbolic link is replaced by a file.
///
/// Streams in several threads do not disturb one another; of two with one target the later one
/// stays.
class ZELSTANDARD_API zelofstream
{
public:
    /// @param path the target; null sets up no stream
    /// @param mode std::ios::app continues the target's present contents
    zelofstream(const char* path, std::ios::openmode mode);

    /// Closes and commits.
    ~zelofstream();

    zelofstream(const zelofstream&) = delete;
    zelofstream& operator=(const zelofstream&) = delete;

    /// The stream to write to. When no temporary file could be made or opened it takes nothing, is
    /// in a bad state, and nothing is committed; a temporary file that did not open stays behind.
    [[nodiscard]] std::ostream& stream();

private:
    std::string target_;
    std::string temporary_; ///< empty when the stream could not be set up
    std::unique_ptr<std::ofstream> file_;
    std::ostream nothing_{nullptr};
};

namespace Standard
{
using ::zelofstream;
}
