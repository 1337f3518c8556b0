#include <zelstandard/platform/ZelXml.h>

#include <array>
#include <charconv>
#include <cmath>
#include <optional>

#include "Nodes.h"

using namespace zelsuite::xml;

namespace
{

/// The number that the whole text is. std::from_chars knows neither locale nor "+".
template <class Number> std::optional<Number> toNumber(std::string_view text)
{
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    const char* const end = text.data() + text.size();
    Number value{};
    const auto read = std::from_chars(text.data(), end, value);
    if (read.ec != std::errc{} || read.ptr != end || !std::isfinite(static_cast<double>(value)))
        return std::nullopt;
    return value;
}

template <class Number> std::optional<Number> numberIn(const ZelXmlData* element)
{
    std::string joined;
    return toNumber<Number>(textOf(toNode(element), joined));
}

/// The count of decimals in a format "%.2f", nothing for a format of another form.
std::optional<int> decimalsOf(std::string_view format)
{
    if (format.size() < 4 || format.size() > 5 || !format.starts_with("%.") ||
        !format.ends_with('f'))
        return std::nullopt;
    return toNumber<int>(format.substr(2, format.size() - 3));
}

} // namespace

std::string ZelXmlDataUtil::getChildString(const ZelXmlData* element, const char* name)
{
    return ZelXmlData::getData(ZelXmlData::findChild(element, name));
}

int ZelXmlDataUtil::getChildInt(const ZelXmlData* element, const char* name)
{
    return numberIn<int>(ZelXmlData::findChild(element, name)).value_or(0);
}

double ZelXmlDataUtil::getChildDouble(const ZelXmlData* element, const char* name)
{
    return numberIn<double>(ZelXmlData::findChild(element, name)).value_or(0.0);
}

void ZelXmlDataUtil::readValToChild(const ZelXmlData* element, double& value)
{
    value = numberIn<double>(element).value_or(value);
}

void ZelXmlDataUtil::setChildData(ZelXmlData* element, const char* name, double value,
                                  const char* format)
{
    ZelXmlData* const child = ZelXmlData::openChild(element, name, false);
    const std::optional<int> decimals = decimalsOf(format ? format : "");
    if (!decimals || *decimals < 0) {
        ZelXmlData::setData(child, value);
        return;
    }
    std::array<char, 512> text; // up to 309 digits before the point and 99 behind it
    const auto written = std::to_chars(text.data(), text.data() + text.size(), value,
                                       std::chars_format::fixed, *decimals);
    setText(toNode(child), {text.data(), written.ptr});
}
