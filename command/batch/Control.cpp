#include <command/batch/Statement.h>

#include <clocale>
#include <locale>
#include <optional>
#include <ostream>
#include <sstream>

#include <zelstandard/context/ZelStandard.h>
#include <zelsuite/zelsuite.h>

#include <command/vocabulary/Failure.h>

namespace command
{

using namespace Standard;

namespace
{

void kill(const Call& call)
{
    call.data().forget();
    ZelStandard::kill();
}

void installation(const Call& call)
{
    zelsuite::setInstallationDirectory(call.count() ? call[1] : "");
}

/// A decimal comma, for C++ libraries that know no locales by name.
struct DecimalComma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

/// "locale NAME": one with a decimal comma, for C and C++; "locale german": by the name that the
/// system has for it.
void setLocale(const Call& call)
{
    std::vector<std::string> names = {call[1]};
    if (call[1] == "german")
        names = {"de_DE.UTF-8",         "de_DE.utf8",     "de_DE",
                 "German_Germany.1252", "German_Germany", "de-DE"};
    std::locale::global(std::locale(std::locale::classic(), new DecimalComma));
    std::ostringstream number;
    number << 1234.5;
    for (const std::string& name : names)
        if (std::setlocale(LC_ALL, name.c_str()) && *std::localeconv()->decimal_point == ',' &&
            number.str() == "1.234,5")
            return;
    throw Failure("the system has no locale \"" + call[1] + "\" with a decimal comma");
}

void echo(const Call& call)
{
    for (std::size_t i = 1; i <= call.count(); ++i)
        call.out() << (i == 1 ? "" : " ") << call[i];
    call.out() << '\n';
}

/// Lines, with words ";" between them; all behind an "each" are its own.
void runLines(const Words& words, const Context& context)
{
    Statement line;
    const auto run = [&] {
        if (!runStatement(line, context))
            throw Failure("the library has no \"" + line.words.front() + "\"");
        line.words.clear();
    };
    for (const std::string& word : words)
        if (word == ";" && !line.words.empty() && line.words.front() != "each")
            run();
        else
            line.words.push_back(word);
    if (line.words.empty())
        throw Failure("a line is missing");
    run();
}

/// "each NAME FIRST LAST LINE [; LINE]": the lines with each of the numbers in the place of $NAME,
/// and their answer behind it.
void each(const Call& call)
{
    for (int value = static_cast<int>(call.number(2)); value <= call.number(3); ++value) {
        Words words;
        for (std::size_t i = 4; i <= call.count(); ++i)
            words.push_back(call[i] == "$" + call[1] ? std::to_string(value) : call[i]);
        std::ostringstream answer;
        runLines(words,
                 {call.context().options, call.context().session, answer, call.context().err});
        std::istringstream lines(answer.str());
        for (std::string text; std::getline(lines, text);)
            call.out() << std::to_string(value) << ' ' << text << '\n';
    }
}

/// The lines that a change of classification runs, each time; of the last "on-change".
struct Listener {
    Words words;
    Context context;
};
std::optional<Listener> listener;

/// "on-change LINE [; LINE]"
void onChange(const Call& call)
{
    listener.emplace(Listener{call.from(1), call.context()});
    ZelStandard::get()->addCallbackFunction(
        [](Classification) { runLines(listener->words, listener->context); });
}

constexpr StatementRow statements[] = {
    {"kill",         "the settings object",                                  kill        },
    {"installation", "[DIR], else that of the build",                        installation},
    {"locale",       "NAME: one with a decimal comma",                       setLocale   },
    {"echo",         "TEXT",                                                 echo        },
    {"each",         "NAME FIRST LAST LINE [; LINE]: for the numbers $NAME", each        },
    {"on-change",    "LINE [; LINE]: run when the classification changes",   onChange    },
};

} // namespace

std::span<const StatementRow> controlStatements() { return statements; }

} // namespace command
