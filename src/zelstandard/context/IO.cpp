#include <zelstandard/context/IO.h>

#include <zelstandard/context/ZelStandard.h>
#include <zelstandard/datafiles/DataFile.h>
#include <zelstandard/datafiles/XmlDocument.h>
#include <zelstandard/datafiles/zelofstream.h>
#include <zelstandard/platform/ZelXml.h>
#include <zelstandard/vocabulary/Constants.h>
#include <zelstandard/vocabulary/XMLUtil.h>

namespace Standard
{

using Constants::Label;

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
    const ZelXmlData* settings = ZelXmlData::findTree(root, Label::Settings, true);
    if (!settings)
        return;
    const auto word = [&](const char* name) {
        return ZelXmlDataUtil::getChildString(settings, name);
    };
    XMLUtil& words = *XMLUtil::get();
    standard->setMode(words.getModeToString(word(Label::StandardMode)));
    standard->setClassification(words.getClassificationToString(word(Label::ClassificationMode)));
    standard->setBridgeType(words.getBridgeTypeToString(word(Label::BridgeType)));
    standard->setBuildingType(words.getBuildingTypeToString(word(Label::BuildingType)));
    standard->setDesignMaterial(words.getDgnMaterialToString(word(Label::DesignMaterial)));
    standard->setSituation(words.getDgnSituationToString(word(Label::Situation)));
    standard->setDuctilityClass(words.getDuctilityClassToString(word(Label::DuctilityClass)));

    const int serviceClass = ZelXmlDataUtil::getChildInt(settings, Label::ServiceClass);
    standard->setServiceClass(serviceClass >= 1 && serviceClass <= 3 ? serviceClass : 1);
}

void IO::write(ZelXmlTree& tree, const ZelStandard* standard)
{
    ZelXmlData* settings = giveElement(tree, {Label::Settings});
    const auto set = [&](const char* name, const auto& value) {
        if (ZelXmlData* child = ZelXmlData::openChild(settings, name, false))
            ZelXmlData::setData(child, value);
    };
    XMLUtil& words = *XMLUtil::get();
    set(Label::StandardMode, words.getStringToMode(standard->getMode()));
    set(Label::ClassificationMode, words.getStringToClassification(standard->getClassification()));
    set(Label::BridgeType, words.getStringToBridgeType(standard->getBridgeType()));
    set(Label::BuildingType, words.getStringToBuildingType(standard->getBuildingType()));
    set(Label::DesignMaterial, words.getStringToDgnMaterial(standard->getDesignMaterial()));
    set(Label::Situation, words.getStringToDgnSituation(standard->getSituation()));
    set(Label::DuctilityClass, words.getStringToDuctilityClass(standard->getDuctilityClass()));
    set(Label::ServiceClass, standard->getServiceClass());
}

void IO::write(const std::string& path, const ZelStandard* standard)
{
    ZelXmlTree tree;
    tree.open(rootElement, false);
    write(tree, standard);
    zelofstream file(path.c_str(), std::ios::out);
    tree.putToStream(file.stream(), true);
}

} // namespace Standard
