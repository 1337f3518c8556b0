// The whole road of a design program: settings, action types, state attributes, the superposition
// rules in force with names, operators and factors, material factors; then the same under another
// code.
//
//   host DATA-DIRECTORY [LANGUAGE]

#include <cstdio>
#include <string>

#include <zelsuite/zelsuite.h>

#include <zelstandard/zelstandard.h>

using namespace Standard;

namespace
{

/// One superposition rule: its attributes that are active now, each with operator and factors.
void print(const StateInstruction& rule, const StateAttributeManager& attributes)
{
    std::printf("\n%s\n", rule.getName().c_str());
    for (const StateAttributeBase* entry : rule.getAttributes()) {
        const StateAttribute* attribute = attributes.findStateAttributeToToken(entry->getToken());
        if (!StateAttributeValidator::isAttributeActive(attribute))
            continue;
        std::printf("  %s %.2f / %.2f   %.2f %.2f %.2f   %s\n",
                    getOperatorSymbol(entry->getOperator()).c_str(), attribute->getGammaSup(),
                    attribute->getGammaInf(), attribute->getPsi0(), attribute->getPsi1(),
                    attribute->getPsi2(), attribute->getName().c_str());
    }
}

void print(const StateAttributeManager& attributes, const StateInstructionManager& rules)
{
    const ZelStandard& standard = *ZelStandard::get();
    const Mode mode = standard.getMode();
    std::printf("\n%s: %s\n", standard.getStandardText(mode).c_str(),
                standard
                    .getStandardDescription(standard.getClassification(),
                                            standard.getDesignMaterial(), mode)
                    .c_str());

    const Coefficients& materials = *Coefficients::get();
    std::printf("gamma C %.2f, gamma S %.2f, alpha cc %.2f; stress block: eta %.2f, lambda %.2f\n",
                materials.getGammaC(mode, standard.getSituation()),
                materials.getGammaS(mode, standard.getSituation()),
                materials.getAlphaCC(mode, standard.getClassification()),
                Control::getCompressionEta(mode), Control::getCompressionLambda(mode));

    const SuperpositionTemplate current = rules.getCurrentTemplateID();
    std::printf("rules:");
    for (const StateInstruction* rule : rules.getStateInstructions(current))
        if (rule->getType() < InstructionType::ELM4_11) // the twenty fatigue lorries come after
            std::printf(" %s;", rule->getName().c_str());
    std::printf("\noperator, gamma sup / inf, psi0 psi1 psi2, attribute\n");
    if (const auto* rule = rules.findStateInstruction(InstructionType::FUNDAMENTAL, current))
        print(*rule, attributes);
    if (const auto* rule = rules.findStateInstruction(InstructionType::FATIGUE, current))
        print(*rule, attributes);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2 || argc > 3) {
        std::fprintf(stderr, "usage: %s DATA-DIRECTORY [LANGUAGE]\n", argv[0]);
        return 2;
    }
    const std::string data = argv[1];
    zelsuite::setInstallationDirectory(data); // before the first ZelStandard::get()
    if (argc == 3 && !zelsuite::setLanguage(argv[2])) {
        std::fprintf(stderr, "there are no texts in '%s'; use en or de\n", argv[2]);
        return 1;
    }

    ActionTypeManager actions(data + "/ActionTypes.xml");
    StateAttributeManager attributes(&actions);
    attributes.init(data + "/StateAttributes.xml");
    const StateInstructionManager rules(&attributes); // from Profiles/Standard.xml
    if (!actions.hasActionTypes() || attributes.getAttributes().empty() ||
        rules.getStateInstructions(SuperpositionTemplate::EC_BUILDING).empty()) {
        std::fprintf(
            stderr,
            "%s lacks ActionTypes.xml, StateAttributes.xml or Profiles/Standard.xml; give the "
            "directory that holds them\n",
            argv[1]);
        return 1;
    }

    ZelStandard& standard = *ZelStandard::get();
    standard.setClassification(Classification::BRIDGE);
    standard.setBridgeType(BridgeType::FOOTBRIDGE1);
    standard.setMode(Mode::EC);
    print(attributes, rules);

    standard.setMode(Mode::BS);
    print(attributes, rules);
    return 0;
}
