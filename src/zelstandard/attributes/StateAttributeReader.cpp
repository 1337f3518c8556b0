#include <zelstandard/attributes/StateAttributeReader.h>

#include <zelstandard/attributes/StateAttributeElements.h>
#include <zelstandard/attributes/StateAttributeManager.h>
#include <zelstandard/datafiles/XmlDocument.h>
#include <zelstandard/vocabulary/Constants.h>
#include <zelstandard/vocabulary/XMLUtil.h>

namespace Standard
{

using Constants::Label;

void StateAttributeReader::readXml(std::istream& stream)
{
    ZelXmlTree tree;
    tree.buildOfStream(stream);
    readXml(tree);
}

void StateAttributeReader::readXml(const ZelXmlTree& tree)
{
    const ZelXmlData* list = ZelXmlData::findTree(tree.getRoot(), Label::StateAttributes, true);
    for (const ZelXmlData* element : ChildElements(list))
        readStateAttribute(element);
}

void StateAttributeReader::readStateAttribute(const ZelXmlData* element)
{
    XMLUtil& words = *XMLUtil::get();
    const auto word = [&](const char* name) {
        return ZelXmlDataUtil::getChildString(element, name);
    };
    StateAttribute& attribute =
        *manager_->giveStateAttribute(words.getStateAttrTokenToString(nameOf(element)),
                                      words.getActionTypeIDToString(word(Label::ActionType)));
    attribute.setOperator(words.getOperatorToString(word(Label::Operator)));
    attribute.setType(words.getAttributeTypeToString(word(Label::Type)));
    attribute.setLoadType(words.getAttributeLoadTypeToString(word(Label::LoadType)));

    const std::string classification = word(Label::Classification);
    if (classification == Label::Building)
        attribute.addClassification(Classification::BUILDING);
    else if (classification == Label::Bridge)
        attribute.addClassification(Classification::BRIDGE);
    else
        attribute.clearClassifications();

    attribute.clearStandards();
    const ZelXmlData* standards = ZelXmlData::findTree(element, standardElement, true);
    for (const auto& [name, mode] : standardElements)
        if (ZelXmlData::findChild(standards, name))
            attribute.addStandard(mode);

    attribute.clearBridgeTypes();
    const ZelXmlData* bridgeTypes = ZelXmlData::findTree(element, Label::BridgeType, true);
    for (const auto& [name, type] : bridgeTypeElements)
        if (ZelXmlData::findChild(bridgeTypes, name))
            attribute.addBridgeType(type);

    attribute.setExclGroup(ZelXmlDataUtil::getChildInt(element, Label::ExclGroup));
    attribute.setCombGroup(words.getComboGroupToString(word(Label::CombGroup)));
}

} // namespace Standard
