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

/// What was called since a test began. Functions stay registered for the rest of the process, so
/// each test has numbers of its own.
std::vector<int> calls;

template <int number> void record(Classification) { calls.push_back(number); }

/// What a function of the third test registers when it is called.
std::vector<Callback> registered;

template <int number> void registering(Classification classification)
{
    record<number>(classification);
    for (const Callback function : std::exchange(registered, {}))
        ZelStandard::get()->addCallbackFunction(function);
}

class ClassificationCallbacks : public testing::Test
{
protected:
    ClassificationCallbacks() { calls.clear(); }

    static auto callsOf(int number) { return std::ranges::count(calls, number); }

    FreshContext context_;
};

} // namespace

TEST_F(ClassificationCallbacks, AreCalledOnceForEachChangeAndOutliveTheObject)
{
    context_->addCallbackFunction(&record<0>);
    context_->addCallbackFunction(&record<0>);
    context_->addCallbackFunction(nullptr);
    context_->setClassification(Classification::BUILDING);
    EXPECT_EQ(callsOf(0), 0) << "the value did not change";
    context_->setClassification(Classification::BRIDGE);
    context_->setClassification(Classification::BRIDGE);
    EXPECT_EQ(callsOf(0), 1);
    // A value that is no member is a change too.
    context_->setClassification(static_cast<Classification>(7));
    EXPECT_EQ(callsOf(0), 2);

    ZelStandard::kill();
    context_->setClassification(Classification::BRIDGE);
    EXPECT_EQ(callsOf(0), 3);
}

TEST_F(ClassificationCallbacks, ComeInTheOrderOfTheirAddressesAndFromTheNextChangeOn)
{
    // The first one by address registers the others, which come behind it, while it is called.
    static std::map<Callback, int, std::less<>> functions;
    functions = {
        {&registering<11>, 11},
        {&registering<12>, 12},
        {&registering<13>, 13}
    };
    registered.clear();
    for (const auto& [function, number] : functions)
        registered.push_back(function);
    const auto keepOwn = [] {
        std::erase_if(calls, [](int number) { return number < 11 || number > 13; });
    };
    context_->addCallbackFunction(registered.front());
    context_->setClassification(Classification::BRIDGE);
    keepOwn();
    EXPECT_EQ(calls, std::vector{functions.begin()->second});
    context_->setClassification(Classification::BUILDING);
    keepOwn();
    std::vector<int> expected = {calls.front()};
    for (const auto& [function, number] : functions)
        expected.push_back(number);
    EXPECT_EQ(calls, expected);
}

TEST_F(ClassificationCallbacks, MayChangeTheClassificationBack)
{
    static bool armed;
    static Classification seen;
    armed = true;
    context_->addCallbackFunction(&record<40>);
    context_->addCallbackFunction([](Classification classification) {
        if (!std::exchange(armed, false))
            return;
        seen = ZelStandard::get()->getClassification();
        EXPECT_EQ(classification, seen);
        ZelStandard::get()->setClassification(Classification::BUILDING);
    });
    context_->setClassification(Classification::BRIDGE);
    EXPECT_EQ(seen, Classification::BRIDGE);
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
