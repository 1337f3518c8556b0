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
    std::string compare;
    bool all = false;
};

Answer answerTable(const Asked& asked, const Context& context)
{
    Answer answer;
    const std::optional<Mode> compared =
        asked.compare.empty() ? std::nullopt : std::optional(codeNamed(asked.compare));
    for (const Mode code : context.codes())
        for (const Structure structure : context.structures()) {
            Section& section = answer.section(
                wordOf(code) + ", " + nameOf(structure) +
                (compared ? ": what differs from " + wordOf(*compared) + " is marked" : ""));
            section.facts = {
                {"code",      wordOf(code)     },
                {"structure", wordOf(structure)}
            };
            FactorTable table(context, "action", true);
            for (const ActionValues& action : context.data().actionValues().types())
                if (action.find(code, structure))
                    table.add(wordOf(action.id), action.id, code, structure, compared);
            section.table = table.finish(asked.all);
        }
    context.noteSettings(answer);
    context.noteOffice(answer);
    answer.comparedWith = compared ? wordOf(*compared) : "";
    if (!compared)
        answer.more = "zelstandard table --code " + wordOf(context.codes().front()) + " --for " +
                      lowerWordOf(context.structures().front()) + " --compare EC";
    return answer;
}

} // namespace

Question declareTable(CLI::App& app)
{
    auto asked = std::make_shared<Asked>();
    app.add_option("--compare", asked->compare, "Mark what differs from this code")
        ->type_name("CODE");
    app.add_flag("--all", asked->all, "All nine factors, also those that repeat another one");
    return [asked](const Context& context) { return answerTable(*asked, context); };
}

} // namespace command
