#include <algorithm>
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>

#include <CLI/CLI.hpp>

#include <command/batch/Prove.h>
#include <command/batch/Statement.h>
#include <command/names/Names.h>
#include <command/provenance/SafeFile.h>
#include <command/verbs/Verbs.h>
#include <command/vocabulary/Failure.h>

#include <zelstandard/context/ZelStandard.h>
#include <zelsuite/zelsuite.h>

namespace command
{

namespace
{

/// The words of a line; a word with blanks stands between quotation marks.
Words wordsOf(const std::string& line)
{
    Words words;
    std::string word;
    bool isWord = false;
    char quote = 0;
    for (const char c : line) {
        if (quote ? c == quote : c == '"' || c == '\'') {
            quote = quote ? '\0' : c;
            isWord = true;
        } else if (!quote && (c == ' ' || c == '\t' || c == '\r')) {
            if (isWord)
                words.push_back(std::exchange(word, {}));
            isWord = false;
        } else if (!quote && !isWord && c == '#') {
            break;
        } else {
            word += c;
            isWord = true;
        }
    }
    if (quote)
        throw Failure("a quotation mark is not closed");
    if (isWord)
        words.push_back(word);
    return words;
}

/// Runs the lines of one batch.
class Batch
{
public:
    Batch(const Context& context, std::istream& lines)
        : context_(context), options_(context.options), lines_(lines)
    {
        context_.session.isBatch = true;
    }

    int run()
    {
        std::string line;
        int worst = 0;
        while (next(line)) {
            const std::size_t number = number_;
            int status = 2;
            try {
                status = runLine(line);
            } catch (const Failure& failure) {
                context_.err << "zelstandard: " << failure.what() << '\n';
            }
            if (status == 2)
                context_.err << "line " << number << ": " << line << '\n';
            worst = std::max(worst, status);
        }
        return worst;
    }

private:
    bool next(std::string& line)
    {
        ++number_;
        return static_cast<bool>(std::getline(lines_, line));
    }

    int runLine(const std::string& line)
    {
        Statement statement{wordsOf(line), {}, false};
        if (statement.words.empty())
            return 0;
        if (statement.words.back().starts_with("<<"))
            readText(statement);
        const Context context{options_, context_.session, context_.out, context_.err};
        if (runOwn(statement.words) || runStatement(statement, context))
            return 0;
        if (statement.words.front() == "prove")
            return prove(context_, context_.out);
        return answerLine(statement.words, &context_.session, options_, context_.out, context_.err);
    }

    void readText(Statement& statement)
    {
        const std::string end = statement.words.back().substr(2);
        statement.words.pop_back();
        statement.hasText = true;
        std::string line;
        while (next(line)) {
            if (line == end || line == end + "\r")
                return;
            statement.text += line + '\n';
        }
        throw Failure("no line \"" + end + "\" ends the text");
    }

    /// What later verbs are about.
    bool runOwn(const Words& words)
    {
        if (words.size() != 2)
            return false;
        // The first get() of the process may be one that the lines ask for.
        const auto standard = [] { return ZelStandard::get(); };
        const auto& [what, value] = std::pair(words[0], words[1]);
        if (what == "code") {
            context_.session.code = codeNamed(value);
            standard()->setMode(*context_.session.code);
        } else if (what == "for") {
            const Structure structure = structureNamed(value);
            context_.session.structure = structure;
            standard()->setClassification(structure.classification);
            if (!structure.isBuilding())
                standard()->setBridgeType(structure.bridgeType);
        } else if (what == "material") {
            standard()->setDesignMaterial(materialNamed(value));
        } else if (what == "situation") {
            standard()->setSituation(situationNamed(value));
        } else if (what == "language") {
            if (!zelsuite::setLanguage(value))
                throw Failure("no texts in \"" + value + "\"; there are en, de");
            options_.language = value;
        } else if (what == "format") {
            options_.format = value;
        } else {
            return false;
        }
        return true;
    }

    const Context& context_;
    Options options_;
    std::istream& lines_;
    std::size_t number_ = 0;
};

} // namespace

Question declareBatch(CLI::App& app)
{
    auto path = std::make_shared<std::string>();
    app.add_option("FILE", *path, "The lines, else standard input");
    app.footer(statementsHelp());
    return [path](const Context& context) {
        if (context.session.isBatch)
            throw Failure("a batch holds no batch");
        std::istringstream text;
        if (!path->empty())
            text.str(readFile(*path));
        Answer answer;
        answer.status = Batch(context, path->empty() ? std::cin : text).run();
        answer.isPrinted = true;
        return answer;
    };
}

} // namespace command
