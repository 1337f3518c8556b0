#include <zelstandard/attributes/StateAttributeReader.h>

#include <cstring>

#include <zelstandard/attributes/StateAttributeManager.h>
#include <zelstandard/attributes/detail/StateAttributeElements.h>
#include <zelstandard/attributes/detail/Tokens.h>
#include <zelstandard/datafiles/detail/XmlDocument.h>
#include <zelstandard/vocabulary/Constants.h>
#include <zelstandard/vocabulary/XMLUtil.h>

namespace Standard
{

using Constants::Label;

namespace
{

/// Adds the value of each element of the table that stands below the parent.
template <class Value, std::size_t count, class Add>
void readSet(const ZelXmlData* parent, const SetElement<Value> (&elements)[count], Add add)
{
    for (const ZelXmlData* child : ChildElements(parent))
        for (const auto& [value, name] : elements)
            if (std::strcmp(ZelXmlData::getName(child), name) == 0)
                add(value);
}

} // namespace

void StateAttributeReader::readXml(std::istream& stream)
{
    ZelXmlTree tree;
    tree.buildOfStream(stream);
    readXml(tree);
}

void StateAttributeReader::readXml(const ZelXmlTree& tree)
{
    XMLUtil& words = *XMLUtil::get();
    auto known = firstOfEachToken(manager_);
    const ZelXmlData* list = ZelXmlData::findTree(tree.getRoot(), Label::StateAttributes, true);
    for (const ZelXmlData* element : ChildElements(list)) {
        const StateAttributeToken token = words.getStateAttrTokenToString(nameOf(element));
        StateAttribute*& attribute = known[static_cast<std::size_t>(token)];
        if (!attribute)
            attribute = manager_->append(
                token, words.getActionTypeIDToString(
                           ZelXmlDataUtil::getChildString(element, Label::ActionType)));
        readStateAttribute(element, *attribute);
    }
}

void StateAttributeReader::readStateAttribute(const ZelXmlData* element, StateAttribute& attribute)
{
    XMLUtil& words = *XMLUtil::get();
    const auto [operation, type, loadType, kind, combGroup] =
        firstChildren(element, std::array{Label::Operator, Label::Type, Label::LoadType,
                                          Label::Classification, Label::CombGroup});
    const auto word = [](const ZelXmlData* child) { return ZelXmlData::getData(child); };
    attribute.setOperator(words.getOperatorToString(word(operation)));
    attribute.setType(words.getAttributeTypeToString(word(type)));
    attribute.setLoadType(words.getAttributeLoadTypeToString(word(loadType)));

    const std::string classification = word(kind);
    if (classification == Label::Building)
        attribute.addClassification(Classification::BUILDING);
    else if (classification == Label::Bridge)
        attribute.addClassification(Classification::BRIDGE);
    else
        attribute.clearClassifications();

    attribute.clearStandards();
    readSet(ZelXmlData::findTree(element, standardElement, true), standardElements,
            [&](Mode mode) { attribute.addStandard(mode); });

    attribute.clearBridgeTypes();
    readSet(ZelXmlData::findTree(element, Label::BridgeType, true), bridgeTypeElements,
            [&](BridgeType bridgeType) { attribute.addBridgeType(bridgeType); });

    attribute.setExclGroup(ZelXmlDataUtil::getChildInt(element, Label::ExclGroup));
    attribute.setCombGroup(words.getComboGroupToString(word(combGroup)));
}

} // namespace Standard
