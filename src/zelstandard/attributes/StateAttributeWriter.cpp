#include <zelstandard/attributes/StateAttributeWriter.h>

#include <algorithm>
#include <iterator>
#include <string_view>

#include <zelstandard/actions/ActionType.h>
#include <zelstandard/attributes/StateAttributeManager.h>
#include <zelstandard/attributes/detail/StateAttributeElements.h>
#include <zelstandard/datafiles/detail/XmlDocument.h>
#include <zelstandard/vocabulary/Constants.h>
#include <zelstandard/vocabulary/XMLUtil.h>
#include <zelstandard/vocabulary/detail/Words.h>

namespace Standard
{

using Constants::Label;

namespace
{

/// A child for each element of the table whose value the attribute has, and none for the others.
template <class Value, std::size_t count, class Has>
void writeSet(ZelXmlData* parent, const SetElement<Value> (&elements)[count], Has has)
{
    for (ZelXmlData* child : ChildElements(parent)) {
        const std::string_view name = ZelXmlData::getName(child);
        const auto* row = std::ranges::find(elements, name, &SetElement<Value>::name);
        if (row != std::end(elements) && !has(row->value))
            ZelXmlData::removeChild(parent, child);
    }
    for (const auto& [value, name] : elements)
        if (has(value))
            ZelXmlData::openChild(parent, name, false);
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
    using Tokens = Words<stateAttributeTokens, 0>;
    WrittenChildren children(parent, Label::StateAttribute);
    for (const auto& [name, attribute] :
         byWord(manager_->getAttributes(),
                [](const StateAttribute& one) { return Tokens::word(one.getToken()); }))
        writeStateAttribute(children.give(name), *attribute);
    children.removeRivals([&](const std::string& name) {
        const auto* row = Tokens::find(name);
        return row && manager_->findStateAttributeToToken(row->value);
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
    writeTrees(element, std::array{standardElement, Label::BridgeType},
               [&](std::size_t i, ZelXmlData* set) {
                   if (i == 0)
                       writeSet(set, standardElements,
                                [&](Mode mode) { return attribute.hasStandard(mode); });
                   else
                       writeSet(set, bridgeTypeElements,
                                [&](BridgeType bridge) { return attribute.hasBridgeType(bridge); });
               });
    setChild(element, Label::ExclGroup, attribute.getExclGroup());
    const std::string combGroup = words.getStringToComboGroupType(attribute.getCombGroup());
    setChild(element, Label::CombGroup, combGroup == "-" ? std::string("0") : combGroup);
}

} // namespace Standard
