// The first use of coefficients and control values makes the design context. Its settings change
// the classification, and a host's callback asks for both in turn and changes them.

#include "material/CoefficientTables.h"
#include "material/ControlRecords.h"
#include "support/Files.h"

using namespace Standard;
using namespace support;

namespace
{

std::string inCallback;

} // namespace

TEST(FirstUseInACallback, FindsTheSettingsAndIsTheOnlyOne)
{
    const TemporaryDirectory installation;
    std::filesystem::create_directory(installation.path() / "Profiles");
    installation.write(
        "Profiles/Standard.xml",
        R"(<SMOD><SETTINGS><CLASSIFICATION_MODE>BRIDGE</CLASSIFICATION_MODE></SETTINGS>
        <COEFFICIENTS><GAMMA_C><ANNEX NAME="EC"><PERSISTENT>1.5</PERSISTENT></ANNEX></GAMMA_C>
        </COEFFICIENTS><STRESSBLOCK><ANNEX NAME="EC"><ETA>0.9</ETA></ANNEX></STRESSBLOCK></SMOD>)");
    const FreshContext context;
    context->addCallbackFunction([](Classification) {
        inCallback = values(gammaC) + "; " + records();
        Control::setGamma(Mode::EC, 7);
        Coefficients::get()->setGammaC(Mode::EC, DesignSituation::ACCIDENTAL, 7);
    });
    ZelStandard::kill();
    zelsuite::setInstallationDirectory(installation.path().string());

    EXPECT_EQ(records(), "7 1 0 0.9 0 0; 1.75 1.2 0 0 0 1") << "what the callback set stays";
    EXPECT_EQ(inCallback, "1.5 0 0; 1 1 0 0.9 0 0; 1.75 1.2 0 0 0 1");
    ZelStandard::kill();
    EXPECT_EQ(values(gammaC), "1.5 7 0; DIN-1988 1.5 0 0; DIN-2008 1.5 0 0; SIA 1.5 0 0; "
                              "OENORM 1.5 0 0; CSN 1.5 0 0; BS 1.5 0 0; DIN-EN 1.5 0 0");
}
