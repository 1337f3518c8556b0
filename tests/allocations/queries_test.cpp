// What is asked a thousand times asks for no memory.

#include <zelstandard/actions/ActionTypeManager.h>
#include <zelstandard/attributes/StateAttribute.h>
#include <zelstandard/attributes/StateAttributeValidator.h>
#include <zelstandard/flat.h>

#include "support/Allocations.h"
#include "support/Context.h"
#include "support/Files.h"

using namespace Standard;

TEST(Allocations, AreNotMadeByQueries)
{
#ifdef _WIN32
    GTEST_SKIP() << "a DLL does not call the operator new of the program";
#endif
    const support::TemporaryDirectory directory;
    const std::string path = directory.write("types.xml", R"(<ACTIONTYPES>
  <ACTIONTYPE NAME="SNOW"><ANNEXES><ANNEX NAME="EC">
  <CLASSIFICATION NAME="BUILDING"> <GAMMA_SUP>1.5</GAMMA_SUP> </CLASSIFICATION>
  <CLASSIFICATION NAME="ROADWAY"> <GAMMA_SUP>1.35</GAMMA_SUP> </CLASSIFICATION>
  </ANNEX></ANNEXES></ACTIONTYPE></ACTIONTYPES>)");
    std::size_t before = support::allocations();
    const ActionTypeManager catalogue(path);
    ASSERT_GT(support::allocations(), before) << "the library's allocations are not counted";
    ASSERT_NE(ZelStandardInitialiseFile(path.c_str()), 0);
    const support::FreshContext context;
    std::vector<StateAttribute> attributes;
    for (int token = 0; token <= 130; ++token) {
        StateAttribute& attribute = attributes.emplace_back(StateAttributeToken{token}, nullptr);
        if (token % 2) {
            attribute.addClassification(Classification::BRIDGE);
            attribute.addStandard(Mode::CSN);
            attribute.addBridgeType(BridgeType::ROADWAY);
        }
    }

    before = support::allocations();
    int answers = 0;
    double values[ZELSTANDARD_FACTORS];
    // Words that are found, that are not, and of the lengths around what a string holds in place.
    for (const char* type : {"SNOW", "BRAKE_LM71", "exactly 15 char", "an action that is none"})
        for (const char* code : {"EC", "DIN-2008", "exactly 16 chars", "a code that is none", ""})
            for (const char* structure :
                 {"BUILDING", "ROADWAY", "RAILWAY1", "no bridge of any kind"})
                answers +=
                    ZelStandardGetCombValues(type, code, structure, values, std::size(values));
    EXPECT_EQ(answers, 2);
    for (const auto classification : {Classification::BUILDING, Classification::BRIDGE})
        for (int material = 0; material <= 5; ++material)
            for (const auto mode : {Mode::EC, Mode::CSN}) {
                context->setClassification(classification);
                context->setDesignMaterial(DesignMaterial{material});
                context->setMode(mode);
                const ActionType* snow = catalogue.findActionType(ActionType::Id::SNOW);
                EXPECT_EQ(snow->isActive(), mode == Mode::EC);
                answers += snow->getGammaSup() + snow->getPsi0() + snow->getGammaSupReduced() > 0;
                for (const StateAttribute& attribute : attributes)
                    answers += attribute.isActive() +
                               StateAttributeValidator::isAttributeActive(&attribute);
            }
    EXPECT_EQ(support::allocations(), before);
    EXPECT_GT(answers, 100);
}
