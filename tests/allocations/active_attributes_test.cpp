#include <zelstandard/attributes/StateAttribute.h>
#include <zelstandard/attributes/StateAttributeValidator.h>

#include "support/Allocations.h"
#include "support/Context.h"

using Standard::Classification;
using Standard::Mode;
using Standard::StateAttribute;
using Standard::StateAttributeValidator;

TEST(ActiveAttributes, AreFoundWithoutAnyAllocation)
{
    const support::FreshContext context;
    std::vector<StateAttribute> attributes;
    for (int token = 0; token <= 130; ++token) {
        StateAttribute& attribute =
            attributes.emplace_back(Standard::StateAttributeToken{token}, nullptr);
        if (token % 2) {
            attribute.addClassification(Classification::BRIDGE);
            attribute.addStandard(Mode::CSN);
            attribute.addBridgeType(Standard::BridgeType::ROADWAY);
        }
    }
    const std::size_t before = support::allocations();
    ASSERT_GT(before, attributes.size()) << "allocations are counted";
    int active = 0;
    for (const auto classification : {Classification::BUILDING, Classification::BRIDGE})
        for (int material = 0; material <= 5; ++material)
            for (const auto mode : {Mode::EC, Mode::CSN}) {
                context->setClassification(classification);
                context->setDesignMaterial(Standard::DesignMaterial{material});
                context->setMode(mode);
                for (const StateAttribute& attribute : attributes)
                    active += attribute.isActive() +
                              StateAttributeValidator::isAttributeActive(&attribute);
            }
    EXPECT_EQ(support::allocations(), before);
    EXPECT_GT(active, 0);
}
