#include <command/verbs/Selection.h>

#include <functional>
#include <map>
#include <ostream>

#include <zelstandard/attributes/StateAttributeValidator.h>
#include <zelstandard/vocabulary/XMLUtil.h>

namespace command
{

using namespace Standard;

namespace
{

/// The words of the tags for which it holds, a blank before each.
std::string tagsThat(Data& data, const std::function<bool(bool isActive, bool isValidated)>& holds)
{
    std::string list;
    for (const StateAttribute* attribute : data.attributes().getAttributes())
        if (holds(attribute->isActive(), StateAttributeValidator::isAttributeActive(attribute)))
            list += " " + XMLUtil::get()->getStringToStateAttrToken(attribute->getToken());
    return list;
}

std::string wordOrNumber(const std::string& word, int value)
{
    return word == "-" ? std::to_string(value) : word;
}

} // namespace

void dumpActive(Data& data, std::ostream& out)
{
    out << "active " << XMLUtil::get()->getStringToSupTemplate(data.rules().getCurrentTemplateID())
        << tagsThat(data, std::logical_or<bool>()) << '\n';
}

void dumpInactive(Data& data, std::ostream& out)
{
    out << "inactive" << tagsThat(data, [](bool a, bool b) { return !a && !b; }) << '\n';
    if (const std::string tags = tagsThat(data, std::less<bool>()); !tags.empty())
        out << "inactive for the attribute alone" << tags << '\n';
    if (const std::string tags = tagsThat(data, std::greater<bool>()); !tags.empty())
        out << "inactive for the validator alone" << tags << '\n';
}

void dumpTemplates(Data& data, std::ostream& out)
{
    XMLUtil& words = *XMLUtil::get();
    for (int kind = 0; kind <= 3; ++kind)
        for (int mode = -1; mode <= 9; ++mode) {
            std::map<std::string, std::string> materials;
            for (int value = -1; value <= 6; ++value) {
                const DesignMaterial material{value};
                const auto chosen =
                    data.rules().getTemplateID(Mode{mode}, Classification{kind}, material);
                materials[words.getStringToSupTemplate(chosen)] +=
                    " " + wordOrNumber(words.getStringToDgnMaterial(material), value);
            }
            out << wordOrNumber(words.getStringToClassification(Classification{kind}), kind) << ' '
                << wordOrNumber(words.getStringToMode(Mode{mode}), mode) << ':';
            for (const char* separator = " "; const auto& [word, list] : materials) {
                out << separator << word << (materials.size() == 1 ? "" : list);
                separator = ", ";
            }
            out << '\n';
        }
}

} // namespace command
