#include <memory>

#include <CLI/CLI.hpp>

#include <command/names/Names.h>
#include <command/verbs/FactorTable.h>
#include <command/verbs/Verbs.h>

namespace command
{

namespace
{

struct Asked {
    std::vector<std::string> actions;
    bool all = false;
};

Answer answerFactors(const Asked& asked, const Context& context)
{
    std::vector<ActionTypeId> actions;
    for (const std::string& action : asked.actions)
        actions.push_back(actionNamed(action));
    Answer answer;
    for (const ActionTypeId action : actions)
        for (const Structure structure : context.structures()) {
            Section& section = answer.section(titleOf(action, structure));
            section.facts = {
                {"action",    wordOf(action)   },
                {"name",      nameOf(action)   },
                {"structure", wordOf(structure)}
            };
            FactorTable table(context, "code");
            for (const Mode code : context.codes())
                table.add(wordOf(code), action, code, structure, Mode::EC);
            section.table = table.finish(asked.all);
        }
    context.noteSettings(answer);
    context.noteOffice(answer);
    const std::string words = actions.empty() ? "" : asked.actions.front();
    answer.more = "zelstandard explain " +
                  (words.find(' ') == std::string::npos ? words : wordOf(actions.front())) +
                  " psi0 --code " + wordOf(context.codes().back()) + " --for " +
                  folded(wordOf(context.structures().back()));
    return answer;
}

} // namespace

Question declareFactors(CLI::App& app)
{
    auto asked = std::make_shared<Asked>();
    app.add_option("ACTION", asked->actions, "Actions: words, names or synonyms")->required();
    app.add_flag("--all", asked->all, "All nine factors, also those that repeat another one");
    return [asked](const Context& context) { return answerFactors(*asked, context); };
}

} // namespace command
