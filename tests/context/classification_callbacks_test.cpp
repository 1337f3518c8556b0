#include <zelstandard/context/ZelStandard.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <utility>
#include <vector>

#include "support/Context.h"
#include "support/Files.h"

using namespace Standard;
using support::FreshContext;
using Callback = ZelStandard::ClassificationCallback;

namespace
{

struct Call {
    int number;
    Classification classification;
};

/// What was called since a test began. Functions stay registered for the rest of the process, so
/// each test has numbers of its own.
std::vector<Call> calls;

template <int number> void record(Classification classification)
{
    calls.push_back({number, classification});
}

class ClassificationCallbacks : public testing::Test
{
protected:
    ClassificationCallbacks() { calls.clear(); }

    static auto callsOf(int number) { return std::ranges::count(calls, number, &Call::number); }

    FreshContext context_;
};

} // namespace

TEST_F(ClassificationCallbacks, AreCalledOnceForEachChange)
{
    context_->addCallbackFunction(&record<0>);
    context_->addCallbackFunction(&record<0>);
    context_->addCallbackFunction(nullptr);
    EXPECT_EQ(callsOf(0), 0);

    context_->setClassification(Classification::BUILDING);
    EXPECT_EQ(callsOf(0), 0) << "the value did not change";

    context_->setClassification(Classification::BRIDGE);
    ASSERT_EQ(callsOf(0), 1);
    EXPECT_EQ(std::ranges::find(calls, 0, &Call::number)->classification, Classification::BRIDGE);

    context_->setClassification(Classification::BRIDGE);
    EXPECT_EQ(callsOf(0), 1) << "the value did not change";

    // A value that is no member is a change too.
    context_->setClassification(static_cast<Classification>(7));
    EXPECT_EQ(callsOf(0), 2);
}

TEST_F(ClassificationCallbacks, ComeInTheOrderOfTheirAddresses)
{
    std::map<int, Callback> functions = {
        {11, &record<11>},
        {12, &record<12>},
        {13, &record<13>},
        {14, &record<14>}
    };
    std::vector<Callback> registered;
    for (const auto& [number, function] : functions)
        registered.push_back(function);
    // The wrong way round, so that the order of registering does not pass.
    std::ranges::sort(registered, std::greater<>());
    for (const Callback function : registered)
        context_->addCallbackFunction(function);

    context_->setClassification(Classification::BRIDGE);
    std::vector<Callback> called;
    for (const Call& call : calls)
        if (functions.contains(call.number))
            called.push_back(functions[call.number]);
    std::ranges::reverse(registered);
    EXPECT_EQ(called, registered);
}

TEST_F(ClassificationCallbacks, OutliveTheObject)
{
    context_->addCallbackFunction(&record<20>);
    ZelStandard::kill();
    context_->setClassification(Classification::BRIDGE);
    EXPECT_EQ(callsOf(20), 1);
}

TEST_F(ClassificationCallbacks, FindTheNewValueStored)
{
    static Classification seen;
    context_->addCallbackFunction(
        [](Classification) { seen = ZelStandard::get()->getClassification(); });
    context_->setClassification(Classification::BRIDGE);
    EXPECT_EQ(seen, Classification::BRIDGE);
}

TEST_F(ClassificationCallbacks, MayRegisterAnother)
{
    context_->addCallbackFunction(
        [](Classification) { ZelStandard::get()->addCallbackFunction(&record<30>); });
    context_->setClassification(Classification::BRIDGE);
    calls.clear();
    context_->setClassification(Classification::BUILDING);
    EXPECT_EQ(callsOf(30), 1);
}

TEST_F(ClassificationCallbacks, MayChangeTheClassificationBack)
{
    static bool armed;
    armed = true;
    context_->addCallbackFunction(&record<40>);
    context_->addCallbackFunction([](Classification) {
        if (std::exchange(armed, false))
            ZelStandard::get()->setClassification(Classification::BUILDING);
    });
    context_->setClassification(Classification::BRIDGE);
    EXPECT_EQ(context_->getClassification(), Classification::BUILDING);
    EXPECT_EQ(callsOf(40), 2);
}

TEST_F(ClassificationCallbacks, ComeOnceWhenAFileChangesTheClassification)
{
    const support::TemporaryDirectory directory;
    const std::string bridge =
        directory.write("bridge.xml", "<SMOD><SETTINGS><STANDARD_MODE>BS</STANDARD_MODE>"
                                      "<CLASSIFICATION_MODE>BRIDGE</CLASSIFICATION_MODE>"
                                      "<BRIDGETYPE>RAILWAY1</BRIDGETYPE></SETTINGS></SMOD>");
    static Mode mode;
    static BridgeType bridgeType;
    context_->addCallbackFunction(&record<50>);
    context_->addCallbackFunction([](Classification) {
        mode = ZelStandard::get()->getMode();
        bridgeType = ZelStandard::get()->getBridgeType();
    });

    context_->input(bridge);
    EXPECT_EQ(callsOf(50), 1);
    // The settings come in the order of the file, so the mode is the new one already, the bridge
    // type still the old one.
    EXPECT_EQ(mode, Mode::BS);
    EXPECT_EQ(bridgeType, BridgeType::ROADWAY);
    EXPECT_EQ(context_->getBridgeType(), BridgeType::RAILWAY1);

    context_->input(bridge);
    EXPECT_EQ(callsOf(50), 1) << "the classification was a bridge already";
}
