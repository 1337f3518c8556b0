#include <zelstandard/actions/ActionTypeWriter.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include <zelstandard/actions/ActionTypeManager.h>
#include <zelstandard/actions/FactorElements.h>
#include <zelstandard/datafiles/XmlDocument.h>
#include <zelstandard/vocabulary/Constants.h>
#include <zelstandard/vocabulary/XMLUtil.h>

namespace Standard
{

using Constants::Label;

namespace
{

/// SIA is left out; this is wanted.
constexpr Mode writtenModes[] = {Mode::EC,  Mode::DIN_1988, Mode::DIN_2008, Mode::OENORM,
                                 Mode::CSN, Mode::BS,       Mode::DIN_EN};

struct Structure {
    Classification classification;
    BridgeType bridgeType;
};

/// The structures whose sets are compared; the last one is compared only and never written, which
/// is wanted.
constexpr Structure structures[] = {
    {Classification::BUILDING, BridgeType::ROADWAY    },
    {Classification::BRIDGE,   BridgeType::ROADWAY    },
    {Classification::BRIDGE,   BridgeType::RAILWAY1   },
    {Classification::BRIDGE,   BridgeType::RAILWAY2   },
    {Classification::BRIDGE,   BridgeType::RAILWAY3   },
    {Classification::BRIDGE,   BridgeType::FOOTBRIDGE1},
    {Classification::BRIDGE,   BridgeType::FOOTBRIDGE2},
};

bool isWritten(const Structure& structure)
{
    return structure.bridgeType != BridgeType::FOOTBRIDGE2;
}

SafetyFactors* factorsOf(const ActionType& type, Mode mode, const Structure& structure)
{
    return type.getFactors(mode, structure.classification, structure.bridgeType);
}

bool differ(const SafetyFactors& left, const SafetyFactors& right)
{
    constexpr double tolerance = 1e-7;
    return std::ranges::any_of(factorElements, [&](const FactorElement& factor) {
        return std::fabs((left.*factor.get)() - (right.*factor.get)()) > tolerance;
    });
}

/// True when a set of the code differs from the same set of EC; a set missing on either side does
/// not count.
bool differsFromEC(const ActionType& type, Mode mode)
{
    return std::ranges::any_of(structures, [&](const Structure& structure) {
        const SafetyFactors* factors = factorsOf(type, mode, structure);
        const SafetyFactors* ec = factorsOf(type, Mode::EC, structure);
        return factors && ec && differ(*factors, *ec);
    });
}

} // namespace

void ActionTypeWriter::writeXml(std::ostream& stream)
{
    ZelXmlTree tree;
    writeXml(tree);
    tree.putToStream(stream, true);
}

void ActionTypeWriter::writeXml(ZelXmlTree& tree)
{
    writeActionTypes(giveElement(tree, {rootElement, Label::ActionTypes}));
}

void ActionTypeWriter::writeActionTypes(ZelXmlData* parent)
{
    std::vector<ZelXmlData*> written;
    for (const ActionType* type : manager_->getActionTypes()) {
        if (!type)
            continue;
        ZelXmlData* element = giveNamedChild(parent, Label::ActionType,
                                             XMLUtil::get()->getStringToActionType(type->getId()));
        writeActionType(element, *type);
        if (std::ranges::find(written, element) == written.end())
            written.push_back(element);
    }
    removeRivals(parent, written, [&](const std::string& name) {
        return manager_->findActionType(XMLUtil::get()->getActionTypeIDToString(name)) != nullptr;
    });
}

void ActionTypeWriter::writeActionType(ZelXmlData* element, const ActionType& type)
{
    XMLUtil& words = *XMLUtil::get();
    setChild(element, Label::ActionGroup, words.getStringToActionGroup(type.getActionGroupId()));
    setChild(element, Label::LoadDuration,
             words.getStringToLoadDuration(type.getLoadDurationClass()));

    ZelXmlData* annexes = giveTree(element, Label::Annexes);
    std::vector<ZelXmlData*> written;
    for (const Mode mode : writtenModes) {
        if (!type.hasValues(mode))
            continue;
        ZelXmlData* annex = giveNamedChild(annexes, Label::Annex, words.getStringToMode(mode));
        writeAnnex(annex, type, mode);
        written.push_back(annex);
        if (mode == Mode::EC)
            ZelXmlData::moveToFront(annexes, annex); // the others start from it when read
    }
    removeRivals(annexes, written, [&](const std::string& name) {
        return std::ranges::find(writtenModes, words.getModeToString(name)) !=
               std::end(writtenModes);
    });
}

void ActionTypeWriter::writeAnnex(ZelXmlData* element, const ActionType& type, Mode mode)
{
    XMLUtil& words = *XMLUtil::get();
    std::vector<ZelXmlData*> written;
    if (mode == Mode::EC || differsFromEC(type, mode)) {
        for (const Structure& structure : structures) {
            const SafetyFactors* factors = factorsOf(type, mode, structure);
            if (!factors || !isWritten(structure))
                continue;
            const std::string name = structure.classification == Classification::BUILDING
                                         ? Label::Building
                                         : words.getStringToBridgeType(structure.bridgeType);
            ZelXmlData* child = giveNamedChild(element, Label::Classification, name);
            writeFactors(child, *factors);
            written.push_back(child);
        }
    }
    removeRivals(element, written, [&](const std::string& name) {
        return name == defaultSetName || name == Label::Building ||
               words.getBridgeTypeToString(name) >= BridgeType::ROADWAY;
    });
}

void ActionTypeWriter::writeFactors(ZelXmlData* element, const SafetyFactors& factors)
{
    for (const FactorElement& factor : factorElements)
        ZelXmlDataUtil::setChildData(element, factor.name, (factors.*factor.get)(), factor.format);
}

} // namespace Standard
