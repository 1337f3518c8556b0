// The first use of the coefficients makes the design context. Its settings change the
// classification, and a host's callback asks for coefficients in turn.

#include "material/CoefficientTables.h"
#include "support/Files.h"

using namespace Standard;
using namespace support;

namespace
{

std::string valuesInCallback;

} // namespace

TEST(CoefficientsInCallback, AreThoseOfTheSettings)
{
    const TemporaryDirectory installation;
    std::filesystem::create_directory(installation.path() / "Profiles");
    installation.write(
        "Profiles/Standard.xml",
        R"(<SMOD><SETTINGS><CLASSIFICATION_MODE>BRIDGE</CLASSIFICATION_MODE></SETTINGS>
        <COEFFICIENTS><GAMMA_C><ANNEX NAME="EC"><PERSISTENT>1.5</PERSISTENT></ANNEX></GAMMA_C>
        </COEFFICIENTS></SMOD>)");
    const FreshContext context;
    context->addCallbackFunction([](Classification) { valuesInCallback = values(gammaC); });
    ZelStandard::kill();
    zelsuite::setInstallationDirectory(installation.path().string());

    EXPECT_EQ(values(gammaC), "1.5 0 0");
    EXPECT_EQ(valuesInCallback, "1.5 0 0");
}
