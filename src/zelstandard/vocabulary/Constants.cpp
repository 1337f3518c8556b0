#include <zelstandard/vocabulary/Constants.h>

#include <iterator>

#include <zelstandard/vocabulary/Enumerations.h>
#include <zelstandard/vocabulary/detail/Words.h>

namespace Standard::Constants
{

namespace
{

template <const auto& rows, class Value> constexpr const char* wordOf(Value value)
{
    return Words<rows, 0>::text(value);
}

} // namespace

const char* const Instant::NotDefined = "notDefined";
const char* const Instant::NotDefinedOld = "eNotASignificantInstant";
const char* const Instant::Concreting = "concreting";
const char* const Instant::ConcretingOld = "eConcreting";
const char* const Instant::SelfWeightFirstStageTensioning = "selfWeightFirstStageTensioning";
const char* const Instant::SelfWeightFirstStageTensioningOld = "eDeadLoadPrecast1";
const char* const Instant::Transportation = "transportation";
const char* const Instant::TransportationOld = "eTransportation";
const char* const Instant::Assembling = "assembling";
const char* const Instant::AssemblingOld = "eAssembling";
const char* const Instant::InSituConcreting = "inSituConcreting";
const char* const Instant::InSituConcretingOld = "eInSituConcreting";
const char* const Instant::InSituConcreteHardening = "inSituConcreteHardening";
const char* const Instant::InSituConcreteHardeningOld = "eInSituConcreteHardening";
const char* const Instant::InSituSecondStageTensioning = "inSituSecondStageTensioning";
const char* const Instant::InSituSecondStageTensioningOld = "eInSituPrecast2";
const char* const Instant::AdditionalLoading = "additionalLoading";
const char* const Instant::AdditionalLoadingOld = "eAdditionalDeadLoadTraffic";
const char* const Instant::Infinity = "infinity";
const char* const Instant::InfinityOld = "eInfinity";
const char* const Instant::AdditionalLoadingAccidental = "additionalLoadingAccidental";
const char* const Instant::AdditionalLoadingAccidentalOld = "eAdditionalDeadLoadTrafficAA";
const char* const Instant::InfinityAccidental = "infinityAccidental";
const char* const Instant::InfinityAccidentalOld = "eInfinityAA";
const char* const Instant::AdditionalLoadingSeismic = "additionalLoadingSeismic";
const char* const Instant::AdditionalLoadingSeismicOld = "eAdditionalDeadLoadTrafficAE";
const char* const Instant::InfinitySeismic = "infinitySeismic";
const char* const Instant::InfinitySeismicOld = "eInfinityAE";

const char* const Label::Name = "NAME";
const char* const Label::StateAttributes = "STATEATTRIBUTES";
const char* const Label::StateAttribute = "STATEATTRIBUTE";
const char* const Label::ActionTypes = "ACTIONTYPES";
const char* const Label::ActionType = "ACTIONTYPE";
const char* const Label::ActionGroup = "ACTIONGROUP";
const char* const Label::Operator = "OPERATOR";
const char* const Label::Type = "TYPE";
const char* const Label::LoadType = "LOAD_TYPE";
const char* const Label::LoadDuration = "LOADDURATION";
const char* const Label::Classification = "CLASSIFICATION";
const char* const Label::BridgeType = "BRIDGETYPE";
const char* const Label::BuildingType = "BUILDINGTYPE";
const char* const Label::ExclGroup = "EXCLGROUP";
const char* const Label::CombGroup = "COMBGROUP";
const char* const Label::Annexes = "ANNEXES";
const char* const Label::Annex = "ANNEX";
const char* const Label::RoadWay = wordOf<bridgeTypeWords>(Standard::BridgeType::ROADWAY);
const char* const Label::RailWay1 = wordOf<bridgeTypeWords>(Standard::BridgeType::RAILWAY1);
const char* const Label::RailWay2 = wordOf<bridgeTypeWords>(Standard::BridgeType::RAILWAY2);
const char* const Label::RailWay3 = wordOf<bridgeTypeWords>(Standard::BridgeType::RAILWAY3);
const char* const Label::FootBridge1 = wordOf<bridgeTypeWords>(Standard::BridgeType::FOOTBRIDGE1);
const char* const Label::FootBridge2 = std::rbegin(bridgeTypeWords)->word;
const char* const Label::Common = wordOf<buildingTypeWords>(Standard::BuildingType::COMMON);
const char* const Label::Engineering =
    wordOf<buildingTypeWords>(Standard::BuildingType::ENGINEERING);
const char* const Label::Dcl = wordOf<ductilityClassWords>(Standard::DuctilityClass::DCL);
const char* const Label::Dcm = wordOf<ductilityClassWords>(Standard::DuctilityClass::DCM);
const char* const Label::Dch = wordOf<ductilityClassWords>(Standard::DuctilityClass::DCH);
const char* const Label::Permanent = wordOf<loadDurationWords>(Standard::LoadDuration::PERMANENT);
const char* const Label::LongTerm = wordOf<loadDurationWords>(Standard::LoadDuration::LONGTERM);
const char* const Label::MediumTerm = wordOf<loadDurationWords>(Standard::LoadDuration::MEDIUMTERM);
const char* const Label::ShortTerm = wordOf<loadDurationWords>(Standard::LoadDuration::SHORTTERM);
const char* const Label::Instantaneous =
    wordOf<loadDurationWords>(Standard::LoadDuration::INSTANTANEOUS);
const char* const Label::Settings = "SETTINGS";
const char* const Label::StandardMode = "STANDARD_MODE";
const char* const Label::ClassificationMode = "CLASSIFICATION_MODE";
const char* const Label::DesignMaterial = "DESIGNMATERIAL";
const char* const Label::Situation = "SITUATION";
const char* const Label::DuctilityClass = "DUCTILITY_CLASSIFICATION";
const char* const Label::ServiceClass = "SERVICE_CLASS";
const char* const Label::Coefficients = "COEFFICIENTS";
const char* const Label::GammaS = "GAMMA_S";
const char* const Label::GammaC = "GAMMA_C";
const char* const Label::GammaA = "GAMMA_A";
const char* const Label::GammaT = "GAMMA_T";
const char* const Label::GammaF = "GAMMA_F";
const char* const Label::GammaR = "GAMMA_R";
const char* const Label::GammaRv = "GAMMA_RV";
const char* const Label::GammaRh = "GAMMA_RH";
const char* const Label::GammaRe = "GAMMA_RE";
const char* const Label::AlphaCc = "ALPHA_CC";
const char* const Label::AlphaCt = "ALPHA_CT";
const char* const Label::DefaultBlocks = "DEFAULT_BLOCKS";
const char* const Label::StateInstructions = "STATEINSTRUCTIONS";
const char* const Label::Template = "TEMPLATE";
const char* const Label::StressBlock = "STRESSBLOCK";
const char* const Label::Lambda = "LAMBDA";
const char* const Label::Eta = "ETA";
const char* const Label::StrutFactor = "STRUTFACTOR";
const char* const Label::Bridge = "BRIDGE";
const char* const Label::Building = "BUILDING";

} // namespace Standard::Constants
