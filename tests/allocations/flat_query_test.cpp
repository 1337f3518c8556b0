#include <zelstandard/actions/ActionTypeManager.h>
#include <zelstandard/flat.h>
#include <zelstandard/platform/ZelXml.h>

#include "support/Allocations.h"
#include "support/Context.h"
#include "support/Files.h"

using Standard::ActionType;
using Standard::ActionTypeManager;
using Standard::Classification;
using Standard::Mode;

namespace
{

const char* const document = R"(<ACTIONTYPES><ACTIONTYPE NAME="SNOW"><ANNEXES><ANNEX NAME="EC">
  <CLASSIFICATION NAME="BUILDING"> <GAMMA_SUP>1.5</GAMMA_SUP> </CLASSIFICATION>
  <CLASSIFICATION NAME="ROADWAY"> <GAMMA_SUP>1.35</GAMMA_SUP> </CLASSIFICATION>
  </ANNEX></ANNEXES></ACTIONTYPE></ACTIONTYPES>)";

class QueryAllocations : public testing::Test
{
protected:
    void SetUp() override
    {
        path_ = directory_.write("types.xml", document);
#ifdef _WIN32
        GTEST_SKIP() << "a DLL does not call the operator new of the program";
#endif
        // Else the counts of zero below would prove nothing.
        const std::size_t before = support::allocations();
        ActionTypeManager(ZelXmlTree()).giveActionType(ActionType::Id::G1);
        ASSERT_GT(support::allocations(), before) << "the library's allocations are not counted";
    }

    [[nodiscard]] const std::string& path() const { return path_; }

private:
    support::TemporaryDirectory directory_;
    std::string path_;
};

} // namespace

TEST_F(QueryAllocations, AFlatQueryMakesNoneOnceItsTablesAreThere)
{
    ASSERT_NE(ZelStandardInitialiseFile(path().c_str()), 0);
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
        {"SNOW",                      "EC",                     "no such bridge",        0},
        {"SNOW",                      "EC",                     "no bridge of any kind", 0},
        {"SNOW",                      "a code that is not one", "BUILDING",              0},
        {"an action that is not one", "EC",                     "BUILDING",              0},
        {"exactly 15 char",           "exactly 16 chars",       "BUILDING",              0},
        {"BRAKE_LM71",                "EC",                     "BUILDING",              0},
        {"SNOW",                      "-",                      "BUILDING",              0},
        {"SNOW",                      nullptr,                  "BUILDING",              0},
    };
    double values[ZELSTANDARD_FACTORS];
    ZelStandardGetCombValues("SNOW", "EC", "ROADWAY", values, std::size(values));
    for (const Case& c : cases) {
        const std::size_t before = support::allocations();
        const int found =
            ZelStandardGetCombValues(c.type, c.mode, c.structure, values, std::size(values));
        const std::size_t after = support::allocations();
        EXPECT_EQ(after - before, 0U) << c.type << " " << c.structure;
        EXPECT_EQ(found, c.found) << c.type << " " << c.structure;
    }
}

TEST_F(QueryAllocations, AQueryOfTheCatalogueMakesNone)
{
    const support::FreshContext context;
    const ActionTypeManager catalogue(path());
    for (const Mode mode : {Mode::EC, Mode::DIN_2008}) {
        for (const Classification classification :
             {Classification::BUILDING, Classification::BRIDGE}) {
            context->setMode(mode);
            context->setClassification(classification);
            const std::size_t before = support::allocations();
            const ActionType* const type = catalogue.findActionType(ActionType::Id::SNOW);
            const double sum = type->getGammaSup() + type->getPsi0() + type->getCrackRed() +
                               type->getGammaSupReduced();
            const bool isActive = type->isActive();
            const std::size_t after = support::allocations();
            EXPECT_EQ(after - before, 0U);
            EXPECT_GT(sum, 0.0);
            EXPECT_EQ(isActive, mode == Mode::EC);
        }
    }
}
