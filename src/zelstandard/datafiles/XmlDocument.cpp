#include <zelstandard/datafiles/XmlDocument.h>

#include <cstring>

#include <zelstandard/vocabulary/Constants.h>

namespace Standard
{

using Constants::Label;

std::string nameOf(const ZelXmlData* element)
{
    return ZelXmlData::getAttributeString(element, Label::Name);
}

ZelXmlData* giveNamedChild(ZelXmlData* parent, const char* element, const std::string& name)
{
    for (ZelXmlData* child : ChildElements(parent)) {
        const auto* attribute = ZelXmlData::findAttribute(child, Label::Name);
        if (std::strcmp(ZelXmlData::getName(child), element) == 0 &&
            ZelXmlAttributeData::checkValue(attribute, name))
            return child;
    }
    ZelXmlData* made = ZelXmlData::addChild(parent, element);
    ZelXmlData::setAttribute(made, Label::Name, name);
    return made;
}

ZelXmlData* giveTree(ZelXmlData* parent, const char* element)
{
    ZelXmlData* found = ZelXmlData::findTree(parent, element, true);
    return found ? found : ZelXmlData::addChild(parent, element);
}

} // namespace Standard
