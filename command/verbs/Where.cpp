#include <CLI/CLI.hpp>
#include <zelstandard/platform/Tools.h>

#include <command/verbs/Verbs.h>
#include <command/vocabulary/Failure.h>

namespace command
{

namespace
{

std::vector<Cell> rowOf(const std::string& what, const std::string& path, Answer& answer)
{
    if (!Tools::File::exists(path))
        return {what, path, "-", "missing"};
    try {
        const auto document = Document::read(path);
        const Element* root = document->root();
        const std::string form = document->isEnciphered() ? "enciphered" : "plain";
        if (!root) {
            answer.note("Why " + path + " is no document: zelstandard check " + path);
            return {what, path, "-", form + ", no document"};
        }
        const std::string version(root->get("VERSION"));
        return {what, path, version.empty() ? "-" : version, form};
    } catch (const Failure& failure) {
        answer.note(failure.what());
        return {what, path, "-", "cannot be read"};
    }
}

Answer answerWhere(const Context& context)
{
    Answer answer;
    Section& section = answer.section("Data folder: " + context.data().folder());
    section.facts = {
        {"folder", context.data().folder()}
    };
    section.table.emplace(Table{
        {{"what", "what"},        {"path", "file"}, {"version", "version"}, {"form", "form"}},
        {              }
    });
    Data& data = context.data();
    for (const auto& [what, path] :
         {std::pair("actions", data.actionsPath()), std::pair("attributes", data.attributesPath()),
          std::pair("settings", data.settingsPath()), std::pair("office", data.officePath())})
        section.table->rows.push_back(rowOf(what, path, answer));
    // The folder stands in the heading.
    if (!context.isMachineRead())
        for (auto& row : section.table->rows)
            if (row[1].text.starts_with(data.folder() + "/"))
                row[1].text.erase(0, data.folder().size() + 1);
    return answer;
}

} // namespace

Question declareWhere(CLI::App&) { return answerWhere; }

} // namespace command
