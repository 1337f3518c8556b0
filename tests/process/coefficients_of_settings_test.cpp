// The first use of the coefficients reads the settings file, and no later one does.

#include "material/CoefficientTables.h"
#include "support/Files.h"

using namespace Standard;
using namespace support;

TEST(CoefficientsOfSettings, AreReadAtTheFirstUseAlone)
{
    const auto settings = [](const char* value) {
        return std::string("<SMOD><COEFFICIENTS><GAMMA_C><ANNEX NAME=\"EC\"><PERSISTENT>") + value +
               "</PERSISTENT></ANNEX></GAMMA_C></COEFFICIENTS></SMOD>";
    };
    const TemporaryDirectory directory;
    const FreshContext context;
    context->setAlternativeDBPath(directory.write("first.xml", settings("1.5")));
    EXPECT_EQ(values(gammaC), "1.5 0 0");

    context->setAlternativeDBPath(directory.write("second.xml", settings("1.6")));
    EXPECT_EQ(values(gammaC), "1.5 0 0");
    Coefficients* const coefficients = Coefficients::get();
    ZelStandard::kill();
    EXPECT_EQ(Coefficients::get(), coefficients);
    EXPECT_EQ(values(gammaC), "1.5 0 0");
}
