// A host that offers its user the state attributes that a load case may carry.
//
//   load_cases ACTION-TYPE-FILE STATE-ATTRIBUTE-FILE
//
// It reads both catalogues, lists the attributes that are active for the settings in force with
// their operator and factors, then changes the settings and lists again.

#include <cstdio>

#include <zelstandard/zelstandard.h>

using namespace Standard;

namespace
{

void list(const StateAttributeManager& attributes)
{
    const ZelStandard& standard = *ZelStandard::get();
    std::printf("\n%s, %s\n", standard.getStandardText(standard.getMode()).c_str(),
                standard.isBridgeClassification() ? "railway bridge, two tracks" : "building");
    std::printf("%-56s %-5s %9s %9s %5s %5s %5s\n", "attribute", "", "gamma sup", "gamma inf",
                "psi0", "psi1", "psi2");
    for (const StateAttribute* attribute : attributes.getAttributes())
        if (StateAttributeValidator::isAttributeActive(attribute))
            std::printf("%-56s %s %9.2f %9.2f %5.2f %5.2f %5.2f\n", attribute->getName().c_str(),
                        getOperatorSymbol(attribute->getOperator()).c_str(),
                        attribute->getGammaSup(), attribute->getGammaInf(), attribute->getPsi0(),
                        attribute->getPsi1(), attribute->getPsi2());
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s ACTION-TYPE-FILE STATE-ATTRIBUTE-FILE\n", argv[0]);
        return 2;
    }
    ActionTypeManager actions(argv[1]); // must outlive the attributes
    StateAttributeManager attributes(&actions);
    attributes.init(argv[2]);
    if (!actions.hasActionTypes() || attributes.getAttributes().empty()) {
        std::fprintf(stderr,
                     "%s holds no %s; give the paths of an action type file and of a state "
                     "attribute file\n",
                     actions.hasActionTypes() ? argv[2] : argv[1],
                     actions.hasActionTypes() ? "state attributes" : "action types");
        return 1;
    }

    ZelStandard& standard = *ZelStandard::get();
    standard.setMode(Mode::EC);
    standard.setClassification(Classification::BUILDING);
    list(attributes);

    standard.setMode(Mode::DIN_EN);
    standard.setClassification(Classification::BRIDGE);
    standard.setBridgeType(BridgeType::RAILWAY2);
    list(attributes);
    return 0;
}
