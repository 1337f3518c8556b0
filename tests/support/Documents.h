#pragma once

#include <charconv>
#include <sstream>
#include <string>

#include <zelstandard/platform/ZelXml.h>

namespace support
{

/// Appends the shortest text that reads back equal, behind a blank if there is text already.
inline void append(std::string& text, double value)
{
    char number[32];
    const auto end = std::to_chars(number, number + sizeof number, value).ptr;
    text += (text.empty() ? "" : " ") + std::string(number, end);
}

inline bool build(ZelXmlTree& tree, const std::string& document)
{
    std::istringstream stream(document);
    return tree.buildOfStream(stream);
}

/// The document without declaration, line ends and indentation.
inline std::string raw(const ZelXmlTree& tree)
{
    std::ostringstream stream;
    tree.putToStream(stream, false);
    std::string text = stream.str();
    return text.erase(0, text.find("?>") + 2);
}

} // namespace support
