#include <zelstandard/attributes/StateAttributeWriter.h>

#include <vector>

#include <zelstandard/actions/ActionType.h>
#include <zelstandard/attributes/StateAttributeElements.h>
#include <zelstandard/attributes/StateAttributeManager.h>
#include <zelstandard/datafiles/XmlDocument.h>
#include <zelstandard/vocabulary/Constants.h>
#include <zelstandard/vocabulary/XMLUtil.h>

namespace Standard
{

using Constants::Label;

namespace
{

/// A child for each element of the table whose value the attribute has, and none for the others.
template <class Value, std::size_t count, class Has>
void writeSet(ZelXmlData* parent, const SetElement<Value> (&elements)[count], Has has)
{
    for (const auto& [name, value] : elements) {
        if (has(value))
            ZelXmlData::openChild(parent, name, false);
        else
            while (ZelXmlData* child = ZelXmlData::findChild(parent, name))
                ZelXmlData::removeChild(parent, child);
    }
}

const char* classificationWord(const StateAttribute& attribute)
{
    const bool building = attribute.hasClassification(Classification::BUILDING);
    const bool bridge = attribute.hasClassification(Classification::BRIDGE);
    if (building == bridge)
        return "";
    return building ? Label::Building : Label::Bridge;
}

} // namespace

void StateAttributeWriter::writeXML(std::ostream& stream)
{
    ZelXmlTree tree;
    writeXML(tree);
    tree.putToStream(stream, true);
}

void StateAttributeWriter::writeXML(ZelXmlTree& tree)
{
    writeStateAttributes(giveElement(tree, {Label::StateAttributes}));
}

void StateAttributeWriter::writeStateAttributes(ZelXmlData* parent)
{
    XMLUtil& words = *XMLUtil::get();
    std::vector<ZelXmlData*> written;
    for (const StateAttribute* attribute : manager_->getAttributes()) {
        ZelXmlData* element = giveNamedChild(
            parent, Label::StateAttribute, words.getStringToStateAttrToken(attribute->getToken()));
        writeStateAttribute(element, *attribute);
        written.push_back(element);
    }
    removeRivals(parent, written, [&](const std::string& name) {
        return manager_->findStateAttributeToToken(words.getStateAttrTokenToString(name)) !=
               nullptr;
    });
}

void StateAttributeWriter::writeStateAttribute(ZelXmlData* element, const StateAttribute& attribute)
{
    XMLUtil& words = *XMLUtil::get();
    const ActionType* type = attribute.getActionType();
    setChild(element, Label::ActionType,
             words.getStringToActionType(type ? type->getId() : ActionType::Id::NONE));
    setChild(element, Label::Operator, words.getStringToOperator(attribute.getOperator()));
    setChild(element, Label::Type, words.getStringToAttributeType(attribute.getType()));
    setChild(element, Label::LoadType, words.getStringToAttributeLoadType(attribute.getLoadType()));
    setChild(element, Label::Classification, std::string(classificationWord(attribute)));
    writeSet(giveTree(element, standardElement), standardElements,
             [&](Mode mode) { return attribute.hasStandard(mode); });
    writeSet(giveTree(element, Label::BridgeType), bridgeTypeElements,
             [&](BridgeType bridgeType) { return attribute.hasBridgeType(bridgeType); });
    setChild(element, Label::ExclGroup, attribute.getExclGroup());
    const std::string combGroup = words.getStringToComboGroupType(attribute.getCombGroup());
    setChild(element, Label::CombGroup, combGroup == "-" ? std::string("0") : combGroup);
}

} // namespace Standard
