#include <zelstandard/actions/ActionTypeManager.h>
#include <zelstandard/flat.h>

#include "support/Allocations.h"
#include "support/Context.h"
#include "support/Files.h"

TEST(QueryAllocations, AQueryMakesNoneOnceItsTablesAreThere)
{
    const support::TemporaryDirectory directory;
    const std::string path = directory.write("types.xml", R"(<ACTIONTYPES>
  <ACTIONTYPE NAME="SNOW"><ANNEXES><ANNEX NAME="EC">
  <CLASSIFICATION NAME="BUILDING"> <GAMMA_SUP>1.5</GAMMA_SUP> </CLASSIFICATION>
  <CLASSIFICATION NAME="ROADWAY"> <GAMMA_SUP>1.35</GAMMA_SUP> </CLASSIFICATION>
  </ANNEX></ANNEXES></ACTIONTYPE></ACTIONTYPES>)");
#ifdef _WIN32
    GTEST_SKIP() << "a DLL does not call the operator new of the program";
#endif
    std::size_t before = support::allocations();
    const Standard::ActionTypeManager catalogue(path);
    // Else the counts of zero below would prove nothing.
    ASSERT_GT(support::allocations(), before) << "the library's allocations are not counted";
    ASSERT_NE(ZelStandardInitialiseFile(path.c_str()), 0);

    struct Case {
        const char* type;
        const char* mode;
        const char* structure;
        int found;
    };
    constexpr Case cases[] = {
        {"SNOW",                      "EC",                     "BUILDING",              1},
        {"SNOW",                      "EC",                     "ROADWAY",               1},
        {"SNOW",                      "DIN-2008",               "BUILDING",              0},
        {"SNOW",                      "DIN-2008",               "ROADWAY",               0},
        {"SNOW",                      "EC",                     "RAILWAY1",              0},
        {"SNOW",                      "EC",                     "no bridge of any kind", 0},
        {"SNOW",                      "a code that is not one", "BUILDING",              0},
        {"an action that is not one", "EC",                     "BUILDING",              0},
        {"exactly 15 char",           "exactly 16 chars",       "BUILDING",              0},
        {"BRAKE_LM71",                "EC",                     "BUILDING",              0},
        {"SNOW",                      nullptr,                  "BUILDING",              0},
    };
    double values[ZELSTANDARD_FACTORS];
    ZelStandardGetCombValues("SNOW", "EC", "ROADWAY", values, std::size(values));
    for (const Case& c : cases) {
        before = support::allocations();
        const int found =
            ZelStandardGetCombValues(c.type, c.mode, c.structure, values, std::size(values));
        const std::size_t after = support::allocations();
        EXPECT_EQ(after, before) << c.type << " " << c.structure;
        EXPECT_EQ(found, c.found) << c.type << " " << c.structure;
    }

    const support::FreshContext context;
    for (const auto mode : {Standard::Mode::EC, Standard::Mode::DIN_2008}) {
        for (const int classification : {1, 2}) {
            context->setMode(mode);
            context->setClassification(Standard::Classification{classification});
            before = support::allocations();
            const auto* const type = catalogue.findActionType(Standard::ActionType::Id::SNOW);
            const double sum = type->getGammaSup() + type->getPsi0() + type->getGammaSupReduced();
            const bool isActive = type->isActive();
            const std::size_t after = support::allocations();
            EXPECT_EQ(after, before);
            EXPECT_GT(sum, 0.0);
            EXPECT_EQ(isActive, mode == Standard::Mode::EC);
        }
    }
}
