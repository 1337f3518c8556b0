// Every public operation of the library, called once with arguments of the documented types. Never
// run: that it compiles and links is the check, so that no operation is lost or changes its form
// unnoticed.

#include <sstream>

#include <zelstandard/platform/ZelXml.h>
#include <zelstandard/zelstandard.h>

using namespace Standard;

namespace
{

/// Takes a result of exactly the given type.
template <class Expected, class Actual> void gives(Actual&&)
{
    static_assert(std::is_same_v<Expected, Actual>);
}

const std::string text;
double number = 0;

} // namespace

void vocabulary()
{
    XMLUtil& words = *XMLUtil::get();
    gives<Mode>(words.getModeToString(text));
    gives<Classification>(words.getClassificationToString(text));
    gives<DesignMaterial>(words.getDgnMaterialToString(text));
    gives<DesignSituation>(words.getDgnSituationToString(text));
    gives<BridgeType>(words.getBridgeTypeToString(text));
    gives<BuildingType>(words.getBuildingTypeToString(text));
    gives<DuctilityClass>(words.getDuctilityClassToString(text));
    gives<LoadDuration>(words.getLoadDurationToString(text));
    gives<Operator>(words.getOperatorToString(text));
    gives<SuperpositionTemplate>(words.getSupTemplateToString(text));
    gives<ActionGroup::Type>(words.getActionGroupIDToString(text));
    gives<ActionType::Id>(words.getActionTypeIDToString(text));
    gives<AttributeLoadType>(words.getAttributeLoadTypeToString(text));
    gives<AttributeType>(words.getAttributeTypeToString(text));
    gives<InstructionType>(words.getInstructionToString(text));
    gives<int>(words.getComboGroupToString(text));
    gives<StateAttributeToken>(words.getStateAttrTokenToString(text));
    gives<std::string>(words.getStringToMode(Mode::EC));
    gives<std::string>(words.getStringToClassification(Classification::BRIDGE));
    gives<std::string>(words.getStringToDgnMaterial(DesignMaterial::STEEL));
    gives<std::string>(words.getStringToDgnSituation(DesignSituation::ACCIDENTAL));
    gives<std::string>(words.getStringToBridgeType(BridgeType::ROADWAY));
    gives<std::string>(words.getStringToBuildingType(BuildingType::COMMON));
    gives<std::string>(words.getStringToDuctilityClass(DuctilityClass::DCL));
    gives<std::string>(words.getStringToLoadDuration(LoadDuration::PERMANENT));
    gives<std::string>(words.getStringToOperator(Operator::AND));
    gives<std::string>(words.getStringToSupTemplate(SuperpositionTemplate::EC_BRIDGE));
    gives<std::string>(words.getStringToActionGroup(ActionGroup::Type::G));
    gives<std::string>(words.getStringToActionType(ActionType::Id::G1));
    gives<std::string>(words.getStringToAttributeLoadType(AttributeLoadType::LANE));
    gives<std::string>(words.getStringToAttributeType(AttributeType::SNOW));
    gives<std::string>(words.getStringToInstruction(InstructionType::RARE));
    gives<std::string>(words.getStringToComboGroupType(1));
    gives<std::string>(words.getStringToStateAttrToken(StateAttributeToken::G1));
    static_assert(std::has_virtual_destructor_v<XMLUtil>);

    gives<std::string>(GetSignificantInstantName(SignificantInstant::Infinity));
    gives<SignificantInstant>(ReadSignificantInstant(text));
    gives<const std::string&>(WriteSignificantInstant(SignificantInstant::Infinity));
    gives<const char* const&>(Constants::Instant::Concreting);
    gives<const char* const&>(Constants::Label::ActionTypes);

    gives<std::string>(getOperatorName(Operator::AND));
    gives<std::string>(getOperatorReportName(Operator::AND));
    gives<std::string>(getOperatorSymbol(Operator::AND));
    gives<Operator>(getOperatorToName(text));
    gives<std::string>(GetCombinationText(Combination::FATIGUE));
}

void callback(Classification) {}

void context()
{
    ZelStandard& standard = *ZelStandard::get();
    ZelStandard::kill();
    standard.setMode(standard.getMode());
    standard.setDesignMaterial(standard.getDesignMaterial());
    standard.setBridgeType(standard.getBridgeType());
    standard.setBuildingType(standard.getBuildingType());
    standard.setClassification(standard.getClassification());
    standard.setSituation(standard.getSituation());
    standard.setDuctilityClass(standard.getDuctilityClass());
    standard.setServiceClass(standard.getServiceClass());
    standard.addCallbackFunction(&callback);
    gives<bool>(standard.isBuildingClassification());
    gives<bool>(standard.isBridgeClassification());
    gives<bool>(standard.isConcrete());
    gives<bool>(standard.isSteel());
    gives<bool>(standard.isCompositeSteel());
    gives<bool>(standard.isCompositeConcrete());
    gives<bool>(standard.isComposite());
    gives<bool>(standard.isPersistentSituation());
    gives<bool>(standard.isAccidentalSituation());
    gives<bool>(standard.isAccidentalEarthquakeSituation());
    gives<bool>(standard.isRailwayBridge());
    gives<bool>(standard.isFootbridge());
    gives<int>(standard.getCODE());
    gives<int>(standard.getNUTZ(true));
    gives<std::string>(standard.getStandardText(Mode::EC));
    gives<std::string>(ZelStandard::getStandardText_static(Mode::EC));
    gives<std::string>(standard.getStandardDescription(Classification::BUILDING,
                                                       DesignMaterial::CONCRETE, Mode::EC));
    gives<const std::vector<RequirementClass*>&>(standard.getRequirementClasses());
    gives<const std::vector<Requirement*>&>(standard.getRequirements());
    gives<const std::vector<ExposureClass*>&>(standard.getExposureClasses());
    gives<RequirementClass*>(standard.findRequirementClass('A'));
    gives<Requirement*>(standard.findRequirement(Requirement::Type::TYPE_1));
    gives<ExposureClass*>(standard.findExposureClass(text));
    standard.setAlternativeDBPath(text);
    gives<std::string>(standard.getDataBaseDir());
    standard.input(text);
    standard.output(text);
    gives<bool>(Standard::isBridgeClassification());
    gives<bool>(Standard::isBuildingClassification());
    gives<bool>(Standard::isComposite());
    gives<bool>(Standard::isCompositeConcrete());
    gives<bool>(Standard::isCompositeSteel());
    gives<bool>(Standard::isRailwayBridge());

    ZelXmlTree tree;
    IO::read(text, &standard);
    IO::read(tree.getRoot(), &standard);
    IO::write(tree, &standard);
    IO::write(text, &standard);

    RequirementClass requirementClass('A', text, 0.0002);
    Class copy(requirementClass);
    copy = requirementClass;
    copy.setName(copy.getName());
    gives<const std::string&>(copy.getDescription());
    gives<std::string>(copy.getNameAndDescription());
    gives<int>(copy.getNClas());
    gives<double>(requirementClass.getCrackWidth());
    static_assert(std::is_move_constructible_v<RequirementClass>);
    Requirement requirement('A', text, Requirement::Type::TYPE_1);
    Requirement moved(std::move(requirement));
    moved = Requirement('B', text, Requirement::Type::TYPE_2);
    gives<Requirement::Type>(moved.getBridgeRequirement());
    moved.updateNClas(BridgeType::RAILWAY1);
    gives<std::string>(GetBridgeRequirementText(Requirement::Type::TYPE_1));
    const ExposureClass exposure(text, text, 0, 1);
    gives<const std::string&>(exposure.getName());
    gives<const std::string&>(exposure.getDescription());
    gives<int>(exposure.getGroup());
    gives<int>(exposure.getNumber());

    zelofstream file(text.c_str(), std::ios::out | std::ios::app);
    gives<std::ostream&>(file.stream());
}

void actions()
{
    SafetyFactors factors(-1.0);
    factors.takeOverFrom(SafetyFactors());
    gives<int>(factors == factors);
    gives<int>(factors != factors);
    ActionType type(ActionType::Id::SNOW);
    // The same nine names on both.
    const auto nine = [](auto& set) {
        set.setGammaSup(set.getGammaSup());
        set.setGammaInf(set.getGammaInf());
        set.setPsi0(set.getPsi0());
        set.setPsi1(set.getPsi1());
        set.setPsi2(set.getPsi2());
        set.setPsi11(set.getPsi11());
        set.setPsi21(set.getPsi21());
        set.setPsi22(set.getPsi22());
        set.setCrackRed(set.getCrackRed());
    };
    nine(factors);
    nine(type);

    ActionGroup group(ActionGroup::Type::G);
    gives<ActionGroup::Type>(group.getId());
    gives<unsigned int>(group.getTextID());
    gives<std::string>(group.getName());
    gives<const ActionGroup::Type*>(ActionGroup::getTypes());
    gives<std::size_t>(ActionGroup::getNumberOfTypes());
    ActionGroupManager& groups = *ActionGroupManager::get();
    gives<ActionGroup*>(groups.giveActionGroup(ActionGroup::Type::G));
    gives<ActionGroup*>(groups.findActionGroupToId(ActionGroup::Type::G));
    gives<ActionGroup*>(groups.findActionGroup(text));
    gives<const std::vector<ActionGroup*>&>(groups.getActionGroups());

    ActionType copy(type);
    copy = type;
    gives<const int&>(ActionType::IdCount);
    gives<ActionType::Id>(type.getId());
    type.setActionGroup(type.getActionGroup());
    gives<ActionGroup::Type>(type.getActionGroupId());
    type.setLoadDurationClass(type.getLoadDurationClass());
    gives<bool>(type == copy);
    gives<bool>(type != copy);
    gives<SafetyFactors*>(type.getFactors(Mode::EC, Classification::BUILDING, BridgeType::ROADWAY));
    gives<SafetyFactors*>(
        type.giveFactors(Mode::EC, Classification::BUILDING, BridgeType::ROADWAY));
    gives<double>(type.getGammaSupReduced());
    gives<double>(type.getGammaInfReduced());
    gives<bool>(type.hasSafetyFactors());
    gives<bool>(type.hasValues(Mode::EC));
    gives<bool>(type.isActive());
    gives<bool>(type.isSecondary());
    type.copyFromEC(Mode::BS);
    type.copyGammasAndPsis(copy);
    type.takeOver(Mode::EC, factors);
    gives<std::string>(type.getName());
    gives<std::string>(type.getReportName());
    gives<std::string>(type.getDescription());
    gives<std::string>(type.getReportDescription());
    gives<ActionType::Id>(ActionType::getIdByTextId(0));

    ZelXmlTree tree;
    std::stringstream stream;
    ActionTypeManager manager(text);
    ActionTypeManager fromTree(tree);
    manager.init(text);
    manager.init(tree);
    manager.addType(new ActionType(type));
    gives<ActionType*>(manager.findActionType(ActionType::Id::SNOW));
    gives<ActionType*>(manager.giveActionType(ActionType::Id::SNOW));
    gives<bool>(manager.replaceActionType(&type));
    gives<bool>(manager.hasActionTypes());
    gives<const std::vector<ActionType*>&>(manager.getActionTypes());
    manager.output(stream);
    manager.output(tree);
    manager.output(text);
    ActionTypeReader(&manager).readXml(stream);
    ActionTypeReader(&manager).readXml(tree);
    ActionTypeWriter(&manager).writeXml(stream);
    ActionTypeWriter(&manager).writeXml(tree);
    ActionTypeWriter(&manager).writeActionTypes(tree.getRoot());

    gives<int>(ZelStandardInitialiseFile(text.c_str()));
    gives<int>(ZelStandardGetCombValues("", "", "", &number, 1));
}

void material()
{
    Coefficients& coefficients = *Coefficients::get();
    constexpr auto situation = DesignSituation::PERSISTENT;
    constexpr auto classification = Classification::BUILDING;
    coefficients.setGammaS(Mode::EC, situation, coefficients.getGammaS(Mode::EC, situation));
    coefficients.setGammaC(Mode::EC, situation, coefficients.getGammaC(Mode::EC, situation));
    coefficients.setGammaA(Mode::EC, situation, coefficients.getGammaA(Mode::EC, situation));
    coefficients.setGammaT(Mode::EC, situation, coefficients.getGammaT(Mode::EC, situation));
    coefficients.setGammaF(Mode::EC, situation, coefficients.getGammaF(Mode::EC, situation));
    coefficients.setGammaR(Mode::EC, situation, coefficients.getGammaR(Mode::EC, situation));
    coefficients.setGammaRV(Mode::EC, situation, coefficients.getGammaRV(Mode::EC, situation));
    coefficients.setGammaRH(Mode::EC, situation, coefficients.getGammaRH(Mode::EC, situation));
    coefficients.setGammaRE(Mode::EC, situation, coefficients.getGammaRE(Mode::EC, situation));
    coefficients.setAlphaCC(Mode::EC, classification,
                            coefficients.getAlphaCC(Mode::EC, classification));
    coefficients.setAlphaCT(Mode::EC, classification,
                            coefficients.getAlphaCT(Mode::EC, classification));
    gives<const std::vector<Mode>&>(coefficients.getSupportedModes());
    ZelXmlTree tree;
    coefficients.input(text);
    coefficients.input(tree.getRoot());
    coefficients.output(tree);
    coefficients.output(text);

    Control::setGamma(Mode::EC, Control::getGamma(Mode::EC));
    Control::setGammaFactor(Mode::EC, Control::getGammaFactor(Mode::EC));
    Control::setStrutFactor(Mode::EC, Control::getStrutFactor(Mode::EC));
    Control::setCompressionEta(Mode::EC, Control::getCompressionEta(Mode::EC));
    Control::setCompressionLambda(Mode::EC, Control::getCompressionLambda(Mode::EC));
    Control::setInternalFactor(Mode::EC, Control::getInternalFactor(Mode::EC));
    Control::input(text);
    Control::input(tree);
    Control::output(tree);
    Control::output(text);
    static_assert(std::is_copy_assignable_v<Control> && std::is_move_assignable_v<Control>);
}

void attributes()
{
    StateAttributeBase base(StateAttributeToken::SNOW);
    StateAttributeBase withOperator(StateAttributeToken::SNOW, Operator::OR);
    static_assert(std::has_virtual_destructor_v<StateAttributeBase>);
    base.setToken(base.getToken());
    base.setOperator(base.getOperator());
    base.setType(base.getType());
    base.setLoadType(base.getLoadType());
    base.setData(&withOperator);
    gives<bool>(base.hasOperator());
    gives<bool>(base.isType(AttributeType::SNOW));
    gives<bool>(base.isImposedLoadType());
    gives<int>(base == withOperator);
    gives<int>(base != withOperator);
    gives<std::string>(base.getName());
    gives<std::string>(base.getReportName());
    gives<std::string>(base.getDescriptionText());
    gives<std::string>(base.getReportDescriptionText());
    gives<std::string>(base.getDescription());
    gives<std::string>(base.getReportDescription());
    gives<std::string>(StateAttributeBase::getPersistenceStringFromToken(base.getToken()));
    gives<StateAttributeToken>(StateAttributeBase::getTokenFromPersistenceString(text));

    StateAttribute attribute(StateAttributeToken::SNOW, nullptr);
    StateAttribute copy(attribute);
    copy = attribute;
    attribute.setData(&copy);
    std::vector<StateAttribute*> list;
    StateAttribute::copyList(list, list);
    StateAttribute::deleteContentOfList(list);
    attribute.setActionType(attribute.getActionType());
    gives<ActionGroup*>(attribute.getActionGroup());
    attribute.setActionTypeInstanceFlag(attribute.getActionTypeInstanceFlag());
    attribute.setExclGroup(attribute.getExclGroup());
    attribute.setCombGroup(attribute.getCombGroup());
    attribute.addStandard(Mode::EC);
    gives<bool>(attribute.hasStandard(Mode::EC));
    gives<int>(attribute.getStandardBitField());
    gives<bool>(attribute.isValidForAllStandards());
    attribute.clearStandards();
    attribute.addClassification(Classification::BRIDGE);
    gives<bool>(attribute.hasClassification(Classification::BRIDGE));
    gives<int>(attribute.getClassificationBitField());
    gives<bool>(attribute.isValidForAllClassifications());
    attribute.clearClassifications();
    attribute.addBridgeType(BridgeType::ROADWAY);
    gives<bool>(attribute.hasBridgeType(BridgeType::ROADWAY));
    gives<int>(attribute.getBridgeTypeBitField());
    gives<bool>(attribute.isValidForAllBridgeTypes());
    attribute.clearBridgeTypes();
    attribute.setGammaSup(attribute.getGammaSup());
    attribute.setGammaInf(attribute.getGammaInf());
    attribute.setPsi0(attribute.getPsi0());
    attribute.setPsi1(attribute.getPsi1());
    attribute.setPsi2(attribute.getPsi2());
    attribute.setPsi11(attribute.getPsi11());
    attribute.setPsi21(attribute.getPsi21());
    attribute.setPsi22(attribute.getPsi22());
    attribute.setCrackRed(attribute.getCrackRed());
    gives<double>(attribute.getGammaSupReduced());
    gives<double>(attribute.getGammaInfReduced());
    gives<std::string>(attribute.getOperatorString());
    gives<bool>(attribute.isActive());
    gives<bool>(attribute.isValidForBridgeDesignType());
    gives<int>(attribute == copy);
    gives<int>(attribute != copy);

    ActionTypeManager types(text);
    StateAttributeManager manager(&types);
    ZelXmlTree tree;
    std::stringstream stream;
    manager.reset();
    manager.add(StateAttributeToken::SNOW, nullptr);
    gives<StateAttribute*>(
        manager.giveStateAttribute(StateAttributeToken::SNOW, ActionType::Id::SNOW));
    gives<StateAttribute*>(manager.findStateAttributeToToken(StateAttributeToken::SNOW));
    gives<StateAttribute*>(manager.findStateAttributeToName(text));
    gives<StateAttribute*>(manager.findStateAttributeToNameAndDescription(text));
    gives<StateAttribute*>(manager.findStateAttributeFileInput(text));
    gives<const std::vector<StateAttribute*>&>(manager.getAttributes());
    gives<ActionTypeManager*>(manager.getActionTypeManager());
    manager.setCurrentAttribute(manager.getCurrentAttribute());
    manager.init(text);
    manager.init(tree);
    manager.output(stream);
    manager.output(tree);
    manager.output(text);
    StateAttributeReader(&manager).readXml(stream);
    StateAttributeReader(&manager).readXml(tree);
    StateAttributeWriter(&manager).writeXML(stream);
    StateAttributeWriter(&manager).writeXML(tree);
    StateAttributeWriter(&manager).writeStateAttributes(tree.getRoot());
    gives<bool>(StateAttributeValidator::isAttributeActive(&attribute));
    static_assert(std::is_copy_assignable_v<StateAttributeValidator> &&
                  std::is_move_assignable_v<StateAttributeValidator>);
}

void instructions()
{
    StateInstruction instruction(InstructionType::FUNDAMENTAL);
    StateInstruction copy(instruction);
    copy = instruction;
    static_assert(std::has_virtual_destructor_v<StateInstruction>);
    instruction.addAttribute(new StateAttributeBase(StateAttributeToken::SNOW));
    gives<StateAttributeBase*>(instruction.findAttributeToToken(StateAttributeToken::SNOW));
    gives<const std::vector<StateAttributeBase*>&>(instruction.getAttributes());
    instruction.setType(instruction.getType());
    gives<bool>(instruction.isType(InstructionType::FUNDAMENTAL));
    instruction.setDeletable(instruction.isDeletable());
    gives<std::string>(instruction.getName());

    StateInstructionManager manager(nullptr);
    gives<const std::uint64_t&>(StateInstructionManager::NumberOfSuperpositionTemplates);
    constexpr auto id = SuperpositionTemplate::EC_BRIDGE;
    constexpr auto type = InstructionType::FUNDAMENTAL;
    gives<SuperpositionTemplate>(
        manager.getTemplateID(Mode::EC, Classification::BRIDGE, DesignMaterial::CONCRETE));
    gives<SuperpositionTemplate>(manager.getCurrentTemplateID());
    gives<StateInstruction*>(manager.giveStateInstruction(type, id));
    gives<StateInstruction*>(manager.findStateInstruction(type, id));
    gives<bool>(manager.deleteStateInstruction(type, id));
    gives<std::vector<StateInstruction*>>(manager.getStateInstructions(id));
    gives<StateAttributeBase*>(manager.stateInstructionGiveAttribute(
        &instruction, StateAttributeToken::SNOW, Operator::AND));
    ZelXmlTree tree;
    std::stringstream stream;
    manager.read(stream);
    manager.read(tree);
    StateInstructionReader(&manager).readXml(stream);
    StateInstructionReader(&manager).readXml(tree);
    manager.killStateInstructions();
}

int main() { return 0; }
