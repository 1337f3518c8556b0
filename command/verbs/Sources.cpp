#include <algorithm>
#include <memory>
#include <set>

#include <CLI/CLI.hpp>

#include <command/provenance/SafeFile.h>
#include <command/report/SourcesPage.h>
#include <command/verbs/Verbs.h>
#include <command/vocabulary/Failure.h>

namespace command
{

namespace
{

struct Asked {
    bool check = false;
};

Finding findingAt(const Element& element, Severity severity, std::string rule, std::string message)
{
    Finding finding;
    finding.severity = severity;
    finding.rule = std::move(rule);
    finding.message = std::move(message);
    finding.place = placeOf(element);
    return finding;
}

/// "DIN-EN BUILDING"
std::string nameOf(const Tick& tick)
{
    const std::string name(tick.element->get("NAME"));
    return tick.structure.empty() ? name : name + " " + tick.structure;
}

void addStale(Answer& answer, const Ticks& ticks)
{
    for (const Tick& tick : ticks.all())
        if (tick.state == Tick::State::Stale)
            answer.findings.push_back(
                findingAt(*tick.element, Severity::Note, "stale-tick",
                          nameOf(tick) + ": " + tick.who + " read " + tick.read + ", now " +
                              (tick.now.empty() ? "nothing is taken as EC" : tick.now)));
}

/// How many elements have a tick.
std::size_t elementsOf(const SourcesOf& data, bool onlyStale)
{
    std::set<const Element*> elements;
    for (const Tick& tick : data.ticks.all())
        if (!onlyStale || tick.state == Tick::State::Stale)
            elements.insert(tick.element);
    return elements.size();
}

std::string countOf(std::size_t number, const char* what)
{
    return std::to_string(number) + " " + what + (number == 1 ? "" : "s");
}

Answer answerSources(const Asked& asked, const Context& context)
{
    Data& data = context.data();
    const ActionFile actions(Document::read(data.actionsPath()));
    const MaterialFile& materials = data.materialValues();
    (void)actions.document().orFail();
    const Ticks ticks(actions, materials);
    const SourcesOf all{actions, materials, ticks};

    Answer answer;
    for (const SourceFault& fault : sourceFaults(all))
        answer.findings.push_back(findingAt(*fault.element, Severity::Error, "source", fault.what));
    if (!answer.findings.empty()) {
        answer.note("The page was not made.");
        answer.status = 1;
        return answer;
    }
    const std::string page = sourcesPage(all);
    const std::string path = data.folder() + "/SOURCES.md";
    if (!asked.check) {
        replaceFile(path, page);
    } else if (readFile(path) != page) {
        answer.section().lines = {
            path + " is out of date; make it anew: zelstandard sources --data " + data.folder()};
        answer.status = 1;
        return answer;
    }
    addStale(answer, ticks);
    answer.section().lines = {
        path + ": " + countOf(static_cast<std::size_t>(std::ranges::count(page, '\n')), "line") +
        ", " + countOf(elementsOf(all, false), "tick") + ", " +
        std::to_string(elementsOf(all, true)) + " stale"};
    return answer;
}

} // namespace

Question declareSources(CLI::App& app)
{
    auto asked = std::make_shared<Asked>();
    app.add_flag("--check", asked->check, "Write nothing; status 1 when the page is out of date");
    return [asked](const Context& context) { return answerSources(*asked, context); };
}

} // namespace command
