#include <zelstandard/actions/ActionTypeWriter.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>

#include <zelstandard/actions/ActionTypeManager.h>
#include <zelstandard/actions/detail/FactorElements.h>
#include <zelstandard/datafiles/detail/XmlDocument.h>
#include <zelstandard/vocabulary/Constants.h>
#include <zelstandard/vocabulary/XMLUtil.h>
#include <zelstandard/vocabulary/detail/Words.h>

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
    const auto differs = [](double a, double b) { return std::fabs(a - b) > tolerance; };
    const double* first = FactorAccess::of(left);
    return !std::equal(first, first + factorCount, FactorAccess::of(right), std::not_fn(differs));
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
    using Identities = Words<actionTypeIdWords, 0>;
    WrittenChildren children(parent, Label::ActionType);
    for (const auto& [name, type] : byWord(manager_->getActionTypes(), [](const ActionType& type) {
             return Identities::word(type.getId());
         }))
        writeActionType(children.give(name), *type);
    children.removeRivals([&](const std::string& name) {
        const auto* row = Identities::find(name);
        return row && manager_->findActionType(row->value);
    });
}

void ActionTypeWriter::writeActionType(ZelXmlData* element, const ActionType& type)
{
    XMLUtil& words = *XMLUtil::get();
    setChild(element, Label::ActionGroup, words.getStringToActionGroup(type.getActionGroupId()));
    setChild(element, Label::LoadDuration,
             words.getStringToLoadDuration(type.getLoadDurationClass()));

    WrittenChildren annexes(giveTree(element, Label::Annexes), Label::Annex);
    ZelXmlData* ec = nullptr;
    for (const Mode mode : writtenModes) {
        if (!type.hasValues(mode))
            continue;
        ZelXmlData* annex = annexes.give(words.getStringToMode(mode));
        writeAnnex(annex, type, mode);
        if (mode == Mode::EC)
            ec = annex;
    }
    annexes.moveToFront(ec); // the others start from it when read
    annexes.removeRivals([&](const std::string& name) {
        return std::ranges::find(writtenModes, words.getModeToString(name)) !=
               std::end(writtenModes);
    });
}

void ActionTypeWriter::writeAnnex(ZelXmlData* element, const ActionType& type, Mode mode)
{
    XMLUtil& words = *XMLUtil::get();
    WrittenChildren sets(element, Label::Classification);
    if (mode == Mode::EC || differsFromEC(type, mode)) {
        for (const Structure& structure : structures) {
            const SafetyFactors* factors = factorsOf(type, mode, structure);
            if (!factors || !isWritten(structure))
                continue;
            writeFactors(sets.give(structure.classification == Classification::BUILDING
                                       ? Label::Building
                                       : words.getStringToBridgeType(structure.bridgeType)),
                         *factors);
        }
    }
    sets.removeRivals([&](const std::string& name) {
        return name == defaultSetName || name == Label::Building ||
               words.getBridgeTypeToString(name) >= BridgeType::ROADWAY;
    });
}

void ActionTypeWriter::writeFactors(ZelXmlData* element, const SafetyFactors& factors)
{
    const double* factor = FactorAccess::of(factors);
    for (const FactorElement& written : factorElements)
        ZelXmlDataUtil::setChildData(element, written.name, *factor++, written.format);
}

} // namespace Standard
