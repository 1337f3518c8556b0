#include <zelstandard/context/ZelStandard.h>

#include <algorithm>
#include <functional>
#include <map>
#include <utility>

#include "support/Context.h"
#include "support/Files.h"

using namespace Standard;
using Callback = ZelStandard::ClassificationCallback;

namespace
{

/// What was called since a test began. Functions stay registered for the rest of the process, so
/// each test has numbers of its own.
std::vector<int> calls;

template <int number> void record(Classification) { calls.push_back(number); }

/// What a function of the second test registers when it is called.
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

    support::FreshContext context_;
};

} // namespace

TEST_F(ClassificationCallbacks, AreCalledOnceForEachChangeAndOutliveTheObject)
{
    for (const Callback function : {&record<0>, &record<0>, Callback()})
        context_->addCallbackFunction(function);
    // A value that is no member is a change too.
    std::string counts;
    for (const int classification : {1, 2, 2, 7}) {
        context_->setClassification(Classification{classification});
        counts += std::to_string(callsOf(0));
    }
    EXPECT_EQ(counts, "0112");
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
    std::vector<int> expected = {functions.begin()->second};
    for (const auto& [function, number] : functions) {
        registered.push_back(function);
        expected.push_back(number);
    }
    context_->addCallbackFunction(registered.front());
    context_->setClassification(Classification::BRIDGE);
    context_->setClassification(Classification::BUILDING);
    std::erase_if(calls, [](int number) { return number < 11 || number > 13; });
    EXPECT_EQ(calls, expected);
}

TEST_F(ClassificationCallbacks, MayChangeTheClassificationBack)
{
    static bool armed;
    armed = true;
    context_->addCallbackFunction(&record<40>);
    context_->addCallbackFunction([](Classification classification) {
        if (!std::exchange(armed, false))
            return;
        EXPECT_EQ(classification, Classification::BRIDGE);
        EXPECT_EQ(classification, ZelStandard::get()->getClassification());
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
    context_->addCallbackFunction(&record<50>);
    // The settings come in the order of the file, so the mode is the new one already, the bridge
    // type still the old one.
    context_->addCallbackFunction([](Classification) {
        if (ZelStandard::get()->getMode() == Mode::BS &&
            ZelStandard::get()->getBridgeType() == BridgeType::ROADWAY)
            record<51>({});
    });
    context_->input(bridge);
    context_->input(bridge); // changes nothing
    EXPECT_EQ(callsOf(50), 1);
    EXPECT_EQ(callsOf(51), 1);
}
