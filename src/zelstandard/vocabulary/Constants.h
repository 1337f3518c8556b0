#pragma once

#include <zelstandard/Export.h>

/// @file
/// Names that are constant, for any thread.

namespace Standard::Constants
{

/// Names of the significant instants of construction, each in its current spelling and in the one
/// that older files hold. Every member points to a constant string that is never freed.
struct ZELSTANDARD_API Instant {
    static const char* const NotDefined;
    static const char* const NotDefinedOld;
    static const char* const Concreting;
    static const char* const ConcretingOld;
    static const char* const SelfWeightFirstStageTensioning;
    static const char* const SelfWeightFirstStageTensioningOld;
    static const char* const Transportation;
    static const char* const TransportationOld;
    static const char* const Assembling;
    static const char* const AssemblingOld;
    static const char* const InSituConcreting;
    static const char* const InSituConcretingOld;
    static const char* const InSituConcreteHardening;
    static const char* const InSituConcreteHardeningOld;
    static const char* const InSituSecondStageTensioning;
    static const char* const InSituSecondStageTensioningOld;
    static const char* const AdditionalLoading;
    static const char* const AdditionalLoadingOld;
    static const char* const Infinity;
    static const char* const InfinityOld;
    static const char* const AdditionalLoadingAccidental;
    static const char* const AdditionalLoadingAccidentalOld;
    static const char* const InfinityAccidental;
    static const char* const InfinityAccidentalOld;
    static const char* const AdditionalLoadingSeismic;
    static const char* const AdditionalLoadingSeismicOld;
    static const char* const InfinitySeismic;
    static const char* const InfinitySeismicOld;
};

/// Element names, attribute names and words of the library's XML files.
struct ZELSTANDARD_API Label {
    static const char* const Name;
    static const char* const StateAttributes;
    static const char* const StateAttribute;
    static const char* const ActionTypes;
    static const char* const ActionType;
    static const char* const ActionGroup;
    static const char* const Operator;
    static const char* const Type;
    static const char* const LoadType;
    static const char* const LoadDuration;
    static const char* const Classification;
    static const char* const BridgeType;
    static const char* const BuildingType;
    static const char* const ExclGroup;
    static const char* const CombGroup;
    static const char* const Annexes;
    static const char* const Annex;
    static const char* const RoadWay;
    static const char* const RailWay1;
    static const char* const RailWay2;
    static const char* const RailWay3;
    static const char* const FootBridge1;
    static const char* const FootBridge2;
    static const char* const Common;
    static const char* const Engineering;
    static const char* const Dcl;
    static const char* const Dcm;
    static const char* const Dch;
    static const char* const Permanent;
    static const char* const LongTerm;
    static const char* const MediumTerm;
    static const char* const ShortTerm;
    static const char* const Instantaneous;
    static const char* const Settings;
    static const char* const StandardMode;
    static const char* const ClassificationMode;
    static const char* const DesignMaterial;
    static const char* const Situation;
    static const char* const DuctilityClass;
    static const char* const ServiceClass;
    static const char* const Coefficients;
    static const char* const GammaS;
    static const char* const GammaC;
    static const char* const GammaA;
    static const char* const GammaT;
    static const char* const GammaF;
    static const char* const GammaR;
    static const char* const GammaRv;
    static const char* const GammaRh;
    static const char* const GammaRe;
    static const char* const AlphaCc;
    static const char* const AlphaCt;
    static const char* const DefaultBlocks;
    static const char* const StateInstructions;
    static const char* const Template;
    static const char* const StressBlock;
    static const char* const Lambda;
    static const char* const Eta;
    static const char* const StrutFactor;
    static const char* const Bridge;
    static const char* const Building;
};

} // namespace Standard::Constants
