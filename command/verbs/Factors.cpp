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

/// Asks for the first value that differs from EC, else for the first that is marked, else for psi0.
std::string nextQuestion(const Answer& answer)
{
    for (const char* signs : {"!", "iso", ""})
        for (const Section& section : answer.sections)
            for (const auto& row : section.table->rows)
                for (std::size_t i = 1; i < row.size(); ++i) {
                    const std::string& key = section.table->columns[i].key;
                    const bool isAsked =
                        *signs ? row[i].marks.find_first_of(signs) != std::string::npos
                               : key == rowOf(Factor::Psi0).key;
                    if (isAsked)
                        return "zelstandard explain " + section.facts[0].second.text + " " + key +
                               " --code " + row[0].text + " --for " +
                               folded(section.facts[2].second.text);
                }
    return {};
}

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
            if (table.hasAbsent())
                answer.note("- no set: the getters then give 1, for psi21 and psi22 0.");
        }
    context.noteSettings(answer);
    context.noteOffice(answer);
    answer.comparedWith = wordOf(Mode::EC);
    answer.more = nextQuestion(answer);
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
