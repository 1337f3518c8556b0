#include <zelstandard/platform/ZelXml.h>

#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

namespace
{

/// The number that the whole text is. std::from_chars knows neither locale nor "+".
template <class Number> std::optional<Number> toNumber(const std::string& text)
{
    const char* begin = text.data();
    const char* const end = begin + text.size();
    if (text.starts_with('+') && !text.starts_with("+-"))
        ++begin;
    Number value{};
    const auto read = std::from_chars(begin, end, value);
    if (read.ec != std::errc{} || read.ptr != end || !std::isfinite(static_cast<double>(value)))
        return std::nullopt;
    return value;
}

/// The count of decimals in a format "%.2f", nothing for a format of another form.
std::optional<int> decimalsOf(const char* format)
{
    const std::string_view text = format ? format : "";
    if (text.size() < 4 || text.size() > 5 || !text.starts_with("%.") || !text.ends_with('f'))
        return std::nullopt;
    return toNumber<int>(std::string(text.substr(2, text.size() - 3)));
}

} // namespace

std::string ZelXmlDataUtil::getChildString(const ZelXmlData* element, const char* name)
{
    return ZelXmlData::getData(ZelXmlData::findChild(element, name));
}

int ZelXmlDataUtil::getChildInt(const ZelXmlData* element, const char* name)
{
    return toNumber<int>(getChildString(element, name)).value_or(0);
}

double ZelXmlDataUtil::getChildDouble(const ZelXmlData* element, const char* name)
{
    return toNumber<double>(getChildString(element, name)).value_or(0.0);
}

void ZelXmlDataUtil::readValToChild(const ZelXmlData* element, double& value)
{
    value = toNumber<double>(ZelXmlData::getData(element)).value_or(value);
}

void ZelXmlDataUtil::setChildData(ZelXmlData* element, const char* name, double value,
                                  const char* format)
{
    ZelXmlData* const child = ZelXmlData::openChild(element, name, false);
    const std::optional<int> decimals = decimalsOf(format);
    if (!decimals || *decimals < 0) {
        ZelXmlData::setData(child, value);
        return;
    }
    std::array<char, 512> text; // up to 309 digits before the point and 99 behind it
    const auto written = std::to_chars(text.data(), text.data() + text.size(), value,
                                       std::chars_format::fixed, *decimals);
    ZelXmlData::setData(child, std::string(text.data(), written.ptr));
}
