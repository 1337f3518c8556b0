// Each allocation of loading and of saving fails once. Then there is an exception, the target file
// is as it was, the library answers as before, and the same call succeeds when there is memory
// again.

#include <functional>
#include <new>

#include <pugixml.hpp>

#include <zelstandard/context/IO.h>
#include <zelstandard/zelstandard.h>

#include "support/Allocations.h"
#include "support/Context.h"
#include "support/Files.h"

using namespace Standard;
using support::readFile;

namespace
{

/// Calls the action with each of its allocations failing in turn, and at last with none.
/// @param check called after each call; true when an allocation failed
void withEachFailing(const std::function<void()>& action, const std::function<void(bool)>& check)
{
    pugi::set_memory_management_functions(support::allocate, support::release);
    for (std::size_t others = 0;; ++others) {
        SCOPED_TRACE(others);
        bool threw = false;
        support::failAfter(others);
        try {
            action();
        } catch (const std::bad_alloc&) {
            threw = true;
        }
        const bool failed = support::stopFailing();
        ASSERT_EQ(threw, failed) << "a failure that is not told is a wrong answer later";
        check(failed);
        if (testing::Test::HasFailure())
            return;
        if (!failed) {
            EXPECT_GT(others, 0U) << "no allocation was seen";
            return;
        }
    }
}

/// A kind of document: how it is loaded and saved, and what is in memory as text.
struct Format {
    std::function<void(const std::string&path)> load, save;
    std::function<void(ZelXmlTree& tree)> output;

    [[nodiscard]] std::string contents() const
    {
        ZelXmlTree tree;
        output(tree);
        std::ostringstream text;
        tree.putToStream(text, true);
        return text.str();
    }
};

/// Loading and saving of two documents, with a failure at each step.
void expectUnharmed(const Format& format, const std::string& first, const std::string& second)
{
    const support::TemporaryDirectory directory;
    const std::string file = directory.write("first.xml", first);
    const std::string other = directory.write("second.xml", second);
    format.load(other);
    const std::string otherContents = format.contents();
    format.load(file);
    const std::string contents = format.contents();
    ASSERT_NE(contents, otherContents);

    const std::string target = directory.write("target.xml", "old");
    withEachFailing([&] { format.save(target); },
                    [&](bool failed) { EXPECT_EQ(readFile(target) == "old", failed); });
    EXPECT_EQ(format.contents(), contents);
    format.load(target);
    EXPECT_EQ(format.contents(), contents) << "saved whole";
    withEachFailing(
        [&] { format.load(other); },
        [&](bool failed) { EXPECT_EQ(format.contents(), failed ? contents : otherContents); });
}

std::string shipped(const char* name) { return readFile(support::sourceFile("data") / name); }

/// The shipped document with one text in another's place.
std::string changed(std::string document, const std::string& from, const std::string& to)
{
    return document.replace(document.find(from), from.size(), to);
}

} // namespace

// Comes first: the objects that live until the process ends are made here.
TEST(FailingMemory, LeavesTheFirstUseToBeRepeated)
{
    const auto untilItSucceeds = [](const std::function<void()>& use) {
        withEachFailing(use, [](bool) {});
    };
    zelsuite::setInstallationDirectory(support::sourceFile("data").string());
    untilItSucceeds([] { ZelStandard::get(); });
    EXPECT_EQ(ZelStandard::get()->getMode(), Mode::EC) << "of the shipped settings";
    EXPECT_EQ(ZelStandard::get()->getRequirementClasses().size(), 6U);
    untilItSucceeds([] { Coefficients::get(); });
    EXPECT_EQ(Coefficients::get()->getGammaS(Mode::EC, DesignSituation::PERSISTENT), 1.15);
    untilItSucceeds([] { (void)Control::getCompressionLambda(Mode::EC); });
    EXPECT_EQ(Control::getCompressionLambda(Mode::EC), 0.8);
    untilItSucceeds([] { ActionGroupManager::get()->giveActionGroup(ActionGroup::Type::SNOW); });
    EXPECT_EQ(ActionGroupManager::get()->findActionGroupToId(ActionGroup::Type::SNOW)->getId(),
              ActionGroup::Type::SNOW);
}

TEST(FailingMemory, HarmsNeitherTheCatalogueOfActionTypesNorItsFile)
{
    ActionTypeManager types{ZelXmlTree()};
    const Format format = {[&](const std::string& path) { types.init(path); },
                           [&](const std::string& path) { types.output(path); },
                           [&](ZelXmlTree& tree) { types.output(tree); }};
    // Ten types take long enough to save.
    std::string document = shipped("ActionTypes.xml");
    std::size_t end = 0;
    for (int type = 0; type < 10; ++type)
        end = document.find("</ACTIONTYPE>", end) + 13;
    document.replace(end, document.rfind("</ACTIONTYPES>") - end, "");
    const std::string second = changed(document, "<GAMMA_SUP>1.35", "<GAMMA_SUP>1.36");
    expectUnharmed(format, document, second);
    expectUnharmed(format, support::enciphered(document), support::enciphered(second));
}

TEST(FailingMemory, HarmsNeitherTheCatalogueOfAttributesNorItsFile)
{
    ActionTypeManager types(support::sourceFile("data/ActionTypes.xml").string());
    StateAttributeManager attributes(&types);
    const std::string document = shipped("StateAttributes.xml");
    expectUnharmed({[&](const std::string& path) { attributes.init(path); },
                    [&](const std::string& path) { attributes.output(path); },
                    [&](ZelXmlTree& tree) { attributes.output(tree); }},
                   document, changed(document, "<OPERATOR>AND<", "<OPERATOR>OR<"));
}

TEST(FailingMemory, HarmsNeitherSettingsNorCoefficientsNorControlValues)
{
    ZelStandard* const standard = ZelStandard::get();
    const std::string document = shipped("Profiles/Standard.xml");
    expectUnharmed({[&](const std::string& path) { IO::read(path, standard); },
                    [&](const std::string& path) { IO::write(path, standard); },
                    [&](ZelXmlTree& tree) { IO::write(tree, standard); }},
                   document, changed(document, "<STANDARD_MODE>EC", "<STANDARD_MODE>BS"));
    expectUnharmed({[](const std::string& path) { Coefficients::get()->input(path); },
                    [](const std::string& path) { Coefficients::get()->output(path); },
                    [](ZelXmlTree& tree) { Coefficients::get()->output(tree); }},
                   document, changed(document, ">1.15<", ">1.17<"));
    expectUnharmed({[](const std::string& path) { Control::input(path); },
                    [](const std::string& path) { Control::output(path); },
                    [](ZelXmlTree& tree) { Control::output(tree); }},
                   document, changed(document, "<LAMBDA>0.8", "<LAMBDA>0.7"));
}

TEST(FailingMemory, LetsRulesBeReadAgain)
{
    const auto countOf = [](const StateInstructionManager& rules) {
        std::size_t count = 0;
        for (int id = 0; id <= 5; ++id)
            for (const auto* rule : rules.getStateInstructions(SuperpositionTemplate{id}))
                count += rule->getAttributes().size();
        return count;
    };
    const std::size_t expected = countOf(StateInstructionManager(nullptr));
    ASSERT_GT(expected, 1000U);
    std::size_t count = 0;
    std::size_t inUse = 0;
    const auto construct = [&] {
        inUse = support::allocationsInUse();
        count = countOf(StateInstructionManager(nullptr));
    };
    withEachFailing(construct,
                    [&](bool) { EXPECT_EQ(support::allocationsInUse(), inUse) << "a leak"; });
    EXPECT_EQ(count, expected);

    StateInstructionManager rules(nullptr);
    for (int id = 0; id <= 5; ++id)
        for (const auto* rule : rules.getStateInstructions(SuperpositionTemplate{id}))
            rules.deleteStateInstruction(rule->getType(), SuperpositionTemplate{id});
    ZelXmlTree tree;
    std::istringstream stream(shipped("Profiles/Standard.xml"));
    tree.buildOfStream(stream);
    withEachFailing([&] { rules.read(tree); }, [](bool) {});
    EXPECT_EQ(countOf(rules), expected);
}
