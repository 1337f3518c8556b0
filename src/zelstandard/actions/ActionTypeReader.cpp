#include <zelstandard/actions/ActionTypeReader.h>

#include <array>
#include <memory>
#include <string_view>

#include <zelstandard/actions/ActionGroupManager.h>
#include <zelstandard/actions/ActionTypeManager.h>
#include <zelstandard/actions/detail/FactorElements.h>
#include <zelstandard/datafiles/detail/XmlDocument.h>
#include <zelstandard/vocabulary/Constants.h>
#include <zelstandard/vocabulary/XMLUtil.h>

namespace Standard
{

using Constants::Label;

void ActionTypeReader::readXml(std::istream& stream)
{
    ZelXmlTree tree;
    tree.buildOfStream(stream);
    readXml(tree);
}

void ActionTypeReader::readXml(const ZelXmlTree& tree)
{
    const ZelXmlData* types = ZelXmlData::findTree(tree.getRoot(), Label::ActionTypes, true);
    for (const ZelXmlData* element : ChildElements(types))
        readActionType(element);
}

void ActionTypeReader::readActionType(const ZelXmlData* element)
{
    auto type =
        std::make_unique<ActionType>(XMLUtil::get()->getActionTypeIDToString(nameOf(element)));
    if (const ZelXmlData* group = ZelXmlData::findChild(element, Label::ActionGroup)) {
        const auto id = XMLUtil::get()->getActionGroupIDToString(ZelXmlData::getData(group));
        type->setActionGroup(ActionGroupManager::get()->findActionGroupToId(id));
    }
    if (const ZelXmlData* duration = ZelXmlData::findChild(element, Label::LoadDuration))
        type->setLoadDurationClass(
            XMLUtil::get()->getLoadDurationToString(ZelXmlData::getData(duration)));
    const ZelXmlData* annexes = ZelXmlData::findTree(element, Label::Annexes, true);
    for (const ZelXmlData* annex : ChildElements(annexes))
        readAnnex(annex, *type);
    manager_->addType(type.get());
    (void)type.release();
}

void ActionTypeReader::readAnnex(const ZelXmlData* element, ActionType& type)
{
    const Mode mode = XMLUtil::get()->getModeToString(nameOf(element));
    if (mode != Mode::EC)
        type.copyFromEC(mode);

    SafetyFactors defaults(-1.0);
    for (const ZelXmlData* child : ChildElements(element)) {
        const std::string name = nameOf(child);
        if (name == defaultSetName) {
            readFactors(child, defaults);
            if (mode != Mode::EC)
                type.takeOver(mode, defaults);
        } else {
            const auto classification =
                name == Label::Building ? Classification::BUILDING : Classification::BRIDGE;
            const auto bridgeType = XMLUtil::get()->getBridgeTypeToString(name);
            SafetyFactors& factors = *type.giveFactors(mode, classification, bridgeType);
            factors.takeOverFrom(defaults);
            readFactors(child, factors);
        }
    }
}

void ActionTypeReader::readFactors(const ZelXmlData* element, SafetyFactors& factors)
{
    const auto elements = firstChildren(element, factorNames);
    for (std::size_t i = 0; i < factorCount; ++i)
        ZelXmlDataUtil::readValToChild(elements[i], FactorAccess::of(factors)[i]);
}

} // namespace Standard
