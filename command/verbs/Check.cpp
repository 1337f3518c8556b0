#include <algorithm>
#include <memory>

#include <CLI/CLI.hpp>
#include <zelstandard/platform/Tools.h>

#include <command/check/Rules.h>
#include <command/names/Names.h>
#include <command/verbs/Verbs.h>
#include <command/vocabulary/Failure.h>

namespace command
{

namespace
{

struct Asked {
    std::vector<std::string> files;
    std::string rule;
    bool explains = false;
    bool showsAccepted = false;
    bool asksSave = false;
};

const char* wordOf(Severity severity)
{
    static constexpr const char* words[] = {"error", "warning", "note"};
    return words[static_cast<std::size_t>(severity)];
}

Answer explainRules(const std::string& name)
{
    Answer answer;
    Table table{
        {{"rule", "rule"},    {"severity", "severity"}, {"finds", "finds"}},
        {                  }
    };
    std::vector<std::string> names;
    for (const Rule& rule : checkRules()) {
        names.emplace_back(rule.name);
        if (name.empty())
            table.rows.push_back({rule.name, wordOf(rule.severity), rule.sentence});
    }
    if (name.empty()) {
        answer.section().table = std::move(table);
        answer.note(
            "A wanted exception stands in the data: ACCEPTED=\"rule: reason\" on the element or "
            "on one around it.");
        return answer;
    }
    const Rule* rule = findRule(name);
    if (!rule) {
        std::string message = "no rule \"" + name + "\".";
        for (const std::string& near : nearest(name, names))
            message += (message.ends_with('.') ? " Near: " : ", ") + near;
        throw Failure(message + "\nAll: zelstandard check --explain");
    }
    Section& section = answer.section(std::string(rule->name) + ", " + wordOf(rule->severity));
    section.facts = {
        {"rule",     rule->name            },
        {"severity", wordOf(rule->severity)},
        {"finds",    rule->sentence        }
    };
    section.lines.emplace_back(rule->sentence);
    section.lines.push_back("To accept it, write ACCEPTED=\"" + name +
                            ": reason\" into the start tag of the element or of one around it.");
    return answer;
}

CheckedFiles filesOf(const Asked& asked, const Context& context)
{
    CheckedFiles files;
    files.asksSave = asked.asksSave;
    const auto add = [&](const std::string& path) {
        const auto document = Document::read(path);
        files.add(document, document->fileName() == "Office.xml");
    };
    for (const std::string& path : asked.files)
        add(path);
    if (asked.files.empty()) {
        Data& data = context.data();
        add(data.actionsPath());
        if (context.options.hasOffice && Tools::File::exists(data.officePath()))
            add(data.officePath());
        add(data.attributesPath());
        add(data.settingsPath());
    }
    files.join();
    return files;
}

void addAccepted(Answer& answer, const Report& report)
{
    Section& section = answer.section("Accepted");
    for (const auto& [finding, reason] : report.accepted()) {
        section.lines.push_back(finding.place.file + ":" + std::to_string(finding.place.line) +
                                ": " + finding.message + "  [" + finding.rule + "]");
        section.lines.push_back("    " + reason);
    }
    if (section.lines.empty())
        section.lines.emplace_back("Nothing.");
}

std::string counted(std::size_t count, const std::string& word)
{
    return std::to_string(count) + " " + word + (count == 1 ? "" : "s");
}

Answer answerCheck(const Asked& asked, const Context& context)
{
    if (asked.explains)
        return explainRules(asked.rule);
    const CheckedFiles files = filesOf(asked, context);
    const Report report = check(files);
    Answer answer;
    if (asked.showsAccepted)
        addAccepted(answer, report);
    answer.findings = report.findings();
    const auto count = [&](Severity severity) {
        return static_cast<std::size_t>(
            std::ranges::count(answer.findings, severity, &Finding::severity));
    };
    const std::size_t errors = count(Severity::Error);
    const std::size_t warnings = count(Severity::Warning);
    std::string total = counted(errors, "error") + ", " + counted(warnings, "warning");
    if (const std::size_t notes = count(Severity::Note))
        total += ", " + counted(notes, "note");
    if (answer.findings.empty())
        total += " in " + counted(files.files.size(), "file");
    if (!report.accepted().empty())
        total += "; " + counted(report.accepted().size(), "finding") +
                 " accepted in the data (--accepted)";
    answer.notes.push_back(total);
    if (!answer.findings.empty())
        answer.more = "zelstandard check --explain " + answer.findings.front().rule;
    answer.status = errors + warnings == 0 ? 0 : 1;
    return answer;
}

} // namespace

Question declareCheck(CLI::App& app)
{
    auto asked = std::make_shared<Asked>();
    app.add_option("FILE", asked->files,
                   "Files; without any the whole data folder, across its files");
    CLI::Option* explain =
        app.add_option("--explain", asked->rule, "What a rule finds; without a RULE all of them")
            ->type_name("RULE")
            ->expected(0, 1);
    app.add_flag("--accepted", asked->showsAccepted, "Show what the data accept, and why");
    app.add_flag("--save", asked->asksSave, "Also what a save through the library would lose");
    return [asked, explain](const Context& context) {
        asked->explains = explain->count() > 0;
        return answerCheck(*asked, context);
    };
}

} // namespace command
