// What the library answers from the data files in a directory, a line each:
//   factors CODE STRUCTURE ACTION and the nine factors
//   material CODE TABLE COLUMN and the value
//   action, group, load duration
//   attribute: as support::text has it
//   rule TEMPLATE INSTRUCTION TAG OPERATOR, attribute type and load type
//   active CODE STRUCTURE MATERIAL TEMPLATE, and the tags
// usage: answers DATA-DIRECTORY

#include <cstdio>
#include <iostream>
#include <string>

#include <zelstandard/zelstandard.h>

#include "attributes/Attributes.h"

using namespace Standard;

namespace
{

void factors(const ActionTypeManager& catalogue, Mode code, int bridge)
{
    const auto kind = bridge == 0 ? Classification::BUILDING : Classification::BRIDGE;
    const std::string structure =
        bridge == 0 ? "BUILDING" : XMLUtil::get()->getStringToBridgeType(BridgeType{bridge});
    for (ActionType* type : catalogue.getActionTypes()) {
        const SafetyFactors* set = type->getFactors(code, kind, BridgeType{bridge});
        if (!set)
            continue;
        std::cout << "factors " << XMLUtil::get()->getStringToMode(code) << ' ' << structure << ' '
                  << XMLUtil::get()->getStringToActionType(type->getId()) << ' '
                  << set->getGammaSup() << ' ' << set->getGammaInf() << ' ' << set->getPsi0() << ' '
                  << set->getPsi1() << ' ' << set->getPsi2() << ' ' << set->getPsi11() << ' '
                  << set->getPsi21() << ' ' << set->getPsi22() << ' ' << set->getCrackRed() << '\n';
    }
}

using PartialFactor = double (Coefficients::*)(Mode, DesignSituation) const;
using LongTerm = double (Coefficients::*)(Mode, Classification) const;

void materials(Mode code)
{
    const Coefficients& values = *Coefficients::get();
    const std::string heading = "material " + XMLUtil::get()->getStringToMode(code) + ' ';
    const std::pair<const char*, PartialFactor> gammas[] = {
        {"GAMMA_S",  &Coefficients::getGammaS },
        {"GAMMA_C",  &Coefficients::getGammaC },
        {"GAMMA_A",  &Coefficients::getGammaA },
        {"GAMMA_T",  &Coefficients::getGammaT },
        {"GAMMA_F",  &Coefficients::getGammaF },
        {"GAMMA_R",  &Coefficients::getGammaR },
        {"GAMMA_RV", &Coefficients::getGammaRV},
        {"GAMMA_RH", &Coefficients::getGammaRH},
        {"GAMMA_RE", &Coefficients::getGammaRE},
    };
    for (const auto& [table, get] : gammas)
        for (const int situation : {0, 1, 2})
            std::cout << heading << table << ' '
                      << XMLUtil::get()->getStringToDgnSituation(DesignSituation{situation}) << ' '
                      << (values.*get)(code, DesignSituation{situation}) << '\n';
    for (const auto& [kind, word] : {
             std::pair{Classification::BUILDING, "BUILDING"},
             std::pair{Classification::BRIDGE,   "BRIDGE"  }
    })
        std::cout << heading << "ALPHA_CC " << word << ' ' << values.getAlphaCC(code, kind) << '\n'
                  << heading << "ALPHA_CT " << word << ' ' << values.getAlphaCT(code, kind) << '\n';
    std::cout << heading << "STRESSBLOCK LAMBDA " << Control::getCompressionLambda(code) << '\n'
              << heading << "STRESSBLOCK ETA " << Control::getCompressionEta(code) << '\n'
              << heading << "STRESSBLOCK STRUTFACTOR " << Control::getStrutFactor(code) << '\n';
}

void rules(StateAttributeManager& attributes)
{
    XMLUtil& words = *XMLUtil::get();
    const StateInstructionManager catalogue(&attributes);
    for (int id = 0; id <= 5; ++id)
        for (const StateInstruction* rule :
             catalogue.getStateInstructions(SuperpositionTemplate{id}))
            for (const StateAttributeBase* part : rule->getAttributes())
                std::cout << "rule " << words.getStringToSupTemplate(SuperpositionTemplate{id})
                          << ' ' << words.getStringToInstruction(rule->getType()) << ' '
                          << words.getStringToStateAttrToken(part->getToken()) << ' '
                          << words.getStringToOperator(part->getOperator()) << ' '
                          << words.getStringToAttributeType(part->getType()) << ' '
                          << words.getStringToAttributeLoadType(part->getLoadType()) << '\n';

    ZelStandard& context = *ZelStandard::get();
    for (int code = 1; code <= 8; ++code)
        for (int bridge = 0; bridge <= 5; ++bridge)
            for (int material = 0; material <= 5; ++material) {
                context.setMode(Mode{code});
                context.setClassification(bridge ? Classification::BRIDGE
                                                 : Classification::BUILDING);
                context.setBridgeType(BridgeType{bridge});
                context.setDesignMaterial(DesignMaterial{material});
                std::cout << "active " << words.getStringToMode(Mode{code}) << ' '
                          << (bridge ? words.getStringToBridgeType(BridgeType{bridge}) : "BUILDING")
                          << ' ' << words.getStringToDgnMaterial(DesignMaterial{material}) << ' '
                          << words.getStringToSupTemplate(catalogue.getCurrentTemplateID());
                for (const StateAttribute* attribute : attributes.getAttributes())
                    if (attribute->isActive() ||
                        StateAttributeValidator::isAttributeActive(attribute))
                        std::cout << ' ' << words.getStringToStateAttrToken(attribute->getToken());
                std::cout << '\n';
            }
}

} // namespace

int main(int, char** argument)
{
    const std::string data = argument[1];
    ZelStandard::get()->setAlternativeDBPath(data + "/Profiles/Standard.xml");
    ActionTypeManager catalogue(data + "/ActionTypes.xml");
    for (int code = 1; code <= 8; ++code) {
        for (int bridge = 0; bridge <= 5; ++bridge)
            factors(catalogue, Mode{code}, bridge);
        materials(Mode{code});
    }
    for (const ActionType* type : catalogue.getActionTypes())
        std::cout << "action " << XMLUtil::get()->getStringToActionType(type->getId()) << ' '
                  << XMLUtil::get()->getStringToActionGroup(type->getActionGroupId()) << ' '
                  << XMLUtil::get()->getStringToLoadDuration(type->getLoadDurationClass()) << '\n';
    StateAttributeManager attributes(&catalogue);
    attributes.init(data + "/StateAttributes.xml");
    for (const StateAttribute* attribute : attributes.getAttributes())
        std::cout << "attribute " << support::text(*attribute) << '\n';
    rules(attributes);
}
