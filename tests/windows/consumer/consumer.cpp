// Uses the installed library as a host does, across the border of the shared library: classes,
// constants, singletons, strings, streams, callbacks and exceptions.

#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>

#include <zelstandard/platform/Tools.h>
#include <zelstandard/platform/ZelXml.h>
#include <zelstandard/zelstandard.h>

#include "second.h"

using namespace Standard;

namespace
{

int failures = 0;

void check(bool holds, const char* what)
{
    if (holds)
        return;
    std::cerr << "consumer: " << what << '\n';
    ++failures;
}

struct Torn : std::runtime_error {
    using runtime_error::runtime_error;
};

/// Breaks off behind a text, and takes none.
class TornCable : public std::streambuf
{
public:
    TornCable() { setg(text_, text_, text_ + sizeof text_ - 1); }

protected:
    int_type overflow(int_type) override { throw Torn("no room left"); }
    int_type underflow() override { throw Torn("the cable is torn"); }

private:
    char text_[20] = "<SMOD><ACTIONTYPES>";
};

Classification announced = Classification::BUILDING;

void classificationChanged(Classification classification) { announced = classification; }

void sharesWithOtherLibraries()
{
    const Sight sight = sightOfSecondLibrary();
    check(sight.standard == ZelStandard::get(), "one ZelStandard in the process");
    check(sight.words == XMLUtil::get(), "one XMLUtil in the process");
    check(sight.groups == ActionGroupManager::get(), "one ActionGroupManager in the process");
    check(sight.coefficients == Coefficients::get(), "one Coefficients in the process");
    check(sight.idCount == &ActionType::IdCount, "one ActionType::IdCount in the process");
    check(sight.label == &Constants::Label::StandardMode, "one label in the process");
}

void readsConstants()
{
    check(ActionType::IdCount > 0, "ActionType::IdCount has its value");
    check(StateInstructionManager::NumberOfSuperpositionTemplates == 6, "six templates");
    const std::uint64_t* const address = &StateInstructionManager::NumberOfSuperpositionTemplates;
    check(*address == 6, "the number of templates has an address");
    check(Constants::Label::StandardMode == std::string("STANDARD_MODE"), "a label");
    check(ReadSignificantInstant(Constants::Instant::Concreting) ==
              ReadSignificantInstant(Constants::Instant::ConcretingOld),
          "both spellings of an instant");
}

void isToldOfClassification()
{
    ZelStandard& standard = *ZelStandard::get();
    standard.setClassification(Classification::BUILDING);
    standard.addCallbackFunction(&classificationChanged);
    standard.setClassification(Classification::BRIDGE);
    check(announced == Classification::BRIDGE, "the callback hears of a bridge");
    standard.setClassification(Classification::BUILDING);
    check(announced == Classification::BUILDING, "the callback hears of a building");
}

void findsInstalledData(const ActionTypeManager& actions, const StateAttributeManager& attributes,
                        const StateInstructionManager& rules)
{
    check(actions.hasActionTypes(), "the installed action types");
    check(!attributes.getAttributes().empty(), "the installed state attributes");
    check(!rules.getStateInstructions(SuperpositionTemplate::EC_BUILDING).empty(),
          "the rules of the installed settings file, which the library found by itself");
}

void passesTextsAndStreams(ActionTypeManager& actions)
{
    // Longer than what a string holds in place, so that one side's heap is freed by the other.
    ZelStandard& standard = *ZelStandard::get();
    const std::string path(1000, 'p');
    standard.setAlternativeDBPath(path);
    check(standard.getDataBaseDir() == path, "a long text there and back");
    standard.setAlternativeDBPath({});

    std::stringstream stream;
    actions.output(stream);
    ZelXmlTree tree;
    check(tree.buildOfStream(stream), "what was written is a document");
    const ActionTypeManager again(tree);
    check(again.getActionTypes().size() == actions.getActionTypes().size(),
          "all types there and back");
}

template <class Action> bool isTorn(Action action)
{
    try {
        action();
    } catch (const Torn&) {
        return true;
    }
    return false;
}

void exceptionsPass(ActionTypeManager& actions)
{
    TornCable buffer;
    std::iostream cable(&buffer);
    cable.exceptions(std::ios::badbit);
    check(isTorn([&] { actions.output(cable); }), "an exception passes writing");
    cable.clear();
    check(isTorn([&] { ActionTypeReader(&actions).readXml(cable); }),
          "an exception passes reading");
    check(actions.hasActionTypes(), "the catalogue survives");
}

} // namespace

int main()
{
    sharesWithOtherLibraries();
    readsConstants();
    isToldOfClassification();

    const std::string data = Tools::getInstallationDirectory(true);
    ActionTypeManager actions(data + "ActionTypes.xml");
    StateAttributeManager attributes(&actions);
    attributes.init(data + "StateAttributes.xml");
    const StateInstructionManager rules(&attributes);
    findsInstalledData(actions, attributes, rules);
    passesTextsAndStreams(actions);
    exceptionsPass(actions);
    if (failures == 0)
        std::cout << "the installed library serves a host\n";
    return failures == 0 ? 0 : 1;
}
