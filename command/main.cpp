#include <cstdlib>
#include <iostream>

#include <CLI/CLI.hpp>
#include <zelstandard/context/ZelStandard.h>
#include <zelsuite/zelsuite.h>

#include <command/names/Names.h>
#include <command/verbs/Terminal.h>
#include <command/verbs/Verbs.h>
#include <command/vocabulary/Failure.h>

namespace command
{

// clang-format off
const std::vector<Verb> verbs = {
    {"list",       "What there is: word, number, display name",                        "zelstandard list actions",                                       declareList},
    {"find",       "Everything whose word or name has the text in it",                 "zelstandard find snow",                                          declareFind},
    {"where",      "Data folder, files, versions, enciphered or plain",                "zelstandard where",                                              declareWhere},
    {"factors",    "The factors of actions, the codes below one another",              "zelstandard factors wind --code EC,BS,DIN-EN --for building",    declareFactors},
    {"table",      "All actions of a code and structure",                              "zelstandard table --code BS --for road --compare EC",            declareTable},
    {"explain",    "The steps to a number: file, line, value, source, status",         "zelstandard explain wind psi0 --code BS --for building",         declareExplain},
    {"attributes", "The state attributes in force",                                    "zelstandard attributes --code EC --for road --all",              declareAttributes},
    {"rules",      "The superposition rules in force, and the factors that they apply", "zelstandard rules fundamental --code EC --for building",        declareRules},
    {"material",   "Partial factors of materials, coefficients, control values",       "zelstandard material --code BS,DIN-EN",                          declareMaterial},
    {"check",      "Finds mistakes in the data files, and says what the library makes of them", "zelstandard check",                                     declareCheck},
    {"set",        "Changes a factor in the file, and all that follows it",            "zelstandard set wind psi0 0.55 --code BS --for building --source \"Office, rule 7, wind\"", declareSet},
    {"file",       "Enciphers, deciphers, or merges the office's values for programs", "zelstandard file merge Merged.xml",                              declareFile},
    {"combine",    "The combinations of a rule, as formulas and as a matrix of factors", "zelstandard combine G1 snow wind NLA --rule fundamental --code EC --for building", declareCombine},
    {"sources",    "Writes SOURCES.md: what each code decides, with source, status, ticks", "zelstandard sources --data data --check",                       declareSources},
    {"diff",       "What differs: codes, files, folders, or a revision of git",         "zelstandard diff EC DIN-EN --for building",                      declareDiff},
    {"report",     "One page for the browser and for print: tables, sources, rules",    "zelstandard report report.html --code EC,BS --for all",          declareReport},
    {"settings",   "The eight settings: show, or set one in the file",                 "zelstandard settings show",                                      declareSettings},
    {"batch",      "Verbs line by line, with the operations of the library",           "echo \"factors wind\" | zelstandard batch",                      declareBatch},
};
// clang-format on

namespace
{

void declareOptions(CLI::App& app, Options& options)
{
    app.add_option("--data", options.data, "Data folder, else that of the installation")
        ->type_name("DIR");
    app.add_option("--lang", options.language, "Language of display names and of the report")
        ->check(CLI::IsMember({"en", "de"}));
    app.add_option("--format", options.format, "Form of the answer; sarif for findings")
        ->check(CLI::IsMember({"text", "json", "csv", "sarif"}));
    app.add_option("--color", options.color, "Colours in the text; NO_COLOR turns them off")
        ->check(CLI::IsMember({"auto", "always", "never"}));
    app.add_option("--code", options.codes, "Design codes: one, several (EC,BS), or all")
        ->type_name("CODE")
        ->allow_extra_args(false);
    app.add_option("--for", options.structures, "Structures: one, several, or all")
        ->type_name("STRUCTURE")
        ->allow_extra_args(false);
    app.add_option("--material", options.material, "Design material")->type_name("WORD");
    app.add_option("--situation", options.situation, "Design situation")->type_name("WORD");
    app.add_flag("--strict", options.isStrict,
                 "Status 1 when the answer rests on values marked i, c or s");
    app.add_flag_callback(
        "--no-office", [&options] { options.hasOffice = false; },
        "Without the office's values of Office.xml");
}

void applySettings(const Options& options)
{
    ZelStandard& standard = *ZelStandard::get();
    if (!options.material.empty())
        standard.setDesignMaterial(materialNamed(options.material));
    if (!options.situation.empty())
        standard.setSituation(situationNamed(options.situation));
}

bool isColoured(const Options& options, const std::ostream& out)
{
    if (options.color != "auto")
        return options.color == "always";
    const char* none = std::getenv("NO_COLOR");
    return (!none || !*none) && &out == &std::cout && isTerminal();
}

void print(const Answer& answer, const std::vector<std::string>& words, const Options& options,
           std::ostream& out)
{
    if (options.format == "json")
        printJson(answer, words, out);
    else if (options.format == "csv")
        printCsv(answer, out);
    else if (options.format == "sarif")
        printSarif(answer, out);
    else
        printText(answer, out, isColoured(options, out));
}

int complain(const std::string& message, std::ostream& err)
{
    err << "zelstandard: " << message << '\n';
    return 2;
}

/// That of the program and of each data file that says one.
int printVersion(const Options& options, std::ostream& out)
{
    Session session(options);
    Data& data = session.data;
    out << "zelstandard " ZELSTANDARD_VERSION << '\n';
    for (const Document* document :
         {&data.actionsDocument(), &data.attributesDocument(), &data.settingsDocument()})
        out << document->fileName() << ' ' << document->root()->get("VERSION") << '\n';
    return 0;
}

/// What stands in the place of a verb that there is not.
std::string unknownVerb(const CLI::App& app)
{
    const std::vector<std::string> rest = app.remaining();
    if (rest.empty())
        return "a verb is missing\nAll: zelstandard --help";
    std::vector<std::string> names;
    names.reserve(verbs.size());
    for (const Verb& verb : verbs)
        names.emplace_back(verb.name);
    std::string message = "no verb \"" + rest.front() + "\".";
    for (const std::string& near : nearest(rest.front(), names))
        message += (message.ends_with('.') ? " Near: " : ", ") + near;
    return message + "\nAll: zelstandard --help";
}

} // namespace

int answerLine(const std::vector<std::string>& words, Session* session, const Options& defaults,
               std::ostream& out, std::ostream& err)
{
    Options options = defaults;
    CLI::App app("Design codes, actions, superposition and materials: what the data say, and why.",
                 "zelstandard");
    app.fallthrough();
    app.allow_windows_style_options(false); // "/data" is a path
    app.require_subcommand(0, 1);           // "settings set": the second word is no verb
    app.set_help_all_flag("--help-all", "Print the help of all verbs");
    declareOptions(app, options);
    bool asksVersion = false;
    app.add_flag("--version", asksVersion, "Versions of the command and of the data");
    std::vector<std::pair<CLI::App*, Question>> questions;
    for (const Verb& verb : verbs) {
        CLI::App* sub = app.add_subcommand(verb.name, verb.purpose);
        questions.emplace_back(sub, verb.declare(*sub));
        sub->footer(sub->get_footer() + (sub->get_footer().empty() ? "" : "\n") +
                    "Example: " + verb.example);
    }
    app.footer("Example: zelstandard factors wind --code EC,BS,DIN-EN --for building");
    try {
        std::vector<std::string> reversed(words.rbegin(), words.rend());
        app.parse(reversed);
        const Question* question = nullptr;
        for (const auto& [sub, asked] : questions)
            if (sub->parsed())
                question = &asked;
        if (asksVersion)
            return printVersion(options, out);
        if (!question)
            return complain(unknownVerb(app), err);
        zelsuite::setLanguage(options.language);
        std::unique_ptr<Session> own;
        if (!session) {
            own = std::make_unique<Session>(options);
            session = own.get();
        }
        applySettings(options);
        Answer answer = (*question)({options, *session, out, err});
        if (options.isStrict && restsOnUnconfirmed(answer))
            answer.status = std::max(answer.status, 1);
        if (!answer.isPrinted)
            print(answer, words, options, out);
        return answer.status;
    } catch (const CLI::Success& help) {
        app.exit(help, out, err);
        return 0;
    } catch (const CLI::ParseError& error) {
        return complain(app.get_subcommands().empty() && !app.remaining().empty()
                            ? unknownVerb(app)
                            : std::string(error.what()) + "\nHelp: zelstandard --help",
                        err);
    } catch (const Failure& failure) {
        return complain(failure.what(), err);
    } catch (const std::bad_alloc&) {
        return complain("out of memory", err);
    } catch (const std::exception& error) {
        return complain(std::string("a fault of the program: ") + error.what(), err);
    }
}

} // namespace command

int main(int count, char** arguments)
try {
    const std::vector<std::string> words(arguments + 1, arguments + count);
    const int status = command::answerLine(words, nullptr, {}, std::cout, std::cerr);
    std::cout.flush();
    if (std::cout)
        return status;
    std::cerr << "zelstandard: the answer cannot be written: the disk is full, or nobody reads\n";
    return 2;
} catch (...) { // what is thrown while a fault is being told
    return 2;
}
