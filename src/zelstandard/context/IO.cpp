#include <zelstandard/context/IO.h>

#include <array>

#include <zelstandard/context/ZelStandard.h>
#include <zelstandard/datafiles/detail/DataFile.h>
#include <zelstandard/datafiles/detail/XmlDocument.h>
#include <zelstandard/vocabulary/Constants.h>
#include <zelstandard/vocabulary/XMLUtil.h>

namespace Standard
{

using Constants::Label;

namespace
{

/// One setting that is a word: its element, and how it is set from the word and got as one.
struct Setting {
    const char* element;
    void (*set)(ZelStandard& standard, const std::string& word);
    std::string (*get)(const ZelStandard& standard);
};

template <auto set, auto valueOf, auto get, auto wordOf>
constexpr Setting setting(const char* element)
{
    return {element,
            [](ZelStandard& s, const std::string& w) { (s.*set)((XMLUtil::get()->*valueOf)(w)); },
            [](const ZelStandard& s) { return (XMLUtil::get()->*wordOf)((s.*get)()); }};
}

using Z = ZelStandard;
using W = XMLUtil;

// clang-format off
const std::array settings = {
    setting<&Z::setMode,           &W::getModeToString,           &Z::getMode,           &W::getStringToMode          >(Label::StandardMode),
    setting<&Z::setClassification, &W::getClassificationToString, &Z::getClassification, &W::getStringToClassification>(Label::ClassificationMode),
    setting<&Z::setBridgeType,     &W::getBridgeTypeToString,     &Z::getBridgeType,     &W::getStringToBridgeType    >(Label::BridgeType),
    setting<&Z::setBuildingType,   &W::getBuildingTypeToString,   &Z::getBuildingType,   &W::getStringToBuildingType  >(Label::BuildingType),
    setting<&Z::setDesignMaterial, &W::getDgnMaterialToString,    &Z::getDesignMaterial, &W::getStringToDgnMaterial   >(Label::DesignMaterial),
    setting<&Z::setSituation,      &W::getDgnSituationToString,   &Z::getSituation,      &W::getStringToDgnSituation  >(Label::Situation),
    setting<&Z::setDuctilityClass, &W::getDuctilityClassToString, &Z::getDuctilityClass, &W::getStringToDuctilityClass>(Label::DuctilityClass),
};
// clang-format on

} // namespace

void IO::read(const std::string& path, ZelStandard* standard)
{
    const auto stream = openInputFile(path);
    if (!stream->good())
        return;
    ZelXmlTree tree;
    tree.buildOfStream(*stream);
    read(tree.getRoot(), standard);
}

void IO::read(ZelXmlData* root, ZelStandard* standard)
{
    const ZelXmlData* element = ZelXmlData::findTree(root, Label::Settings, true);
    if (!element)
        return;
    std::array<std::string, settings.size()> words; // all read before the first is set
    for (std::size_t i = 0; i < settings.size(); ++i)
        words[i] = ZelXmlDataUtil::getChildString(element, settings[i].element);
    const int serviceClass = ZelXmlDataUtil::getChildInt(element, Label::ServiceClass);

    for (std::size_t i = 0; i < settings.size(); ++i)
        settings[i].set(*standard, words[i]);
    standard->setServiceClass(serviceClass >= 1 && serviceClass <= 3 ? serviceClass : 1);
}

void IO::write(ZelXmlTree& tree, const ZelStandard* standard)
{
    ZelXmlData* element = giveElement(tree, {Label::Settings});
    for (const Setting& setting : settings)
        setChild(element, setting.element, setting.get(*standard));
    setChild(element, Label::ServiceClass, standard->getServiceClass());
}

void IO::write(const std::string& path, const ZelStandard* standard)
{
    ZelXmlTree tree;
    tree.open(rootElement, false);
    write(tree, standard);
    saveTree(tree, path);
}

} // namespace Standard
