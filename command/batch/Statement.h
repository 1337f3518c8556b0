#pragma once

#include <iosfwd>
#include <span>
#include <string>
#include <vector>

#include <command/verbs/Verb.h>

/// @file
/// The operations of the library as statements of a batch: reading, writing, setting and asking,
/// with the words and the fallbacks of the library itself, not those of people.

namespace command
{

using Words = std::vector<std::string>;

/// A line, in its words.
struct Statement {
    Words words;      ///< the first one names it
    std::string text; ///< of a here-document
    bool hasText = false;
};

/// A statement with what it works on. What is missing or wrong throws Failure.
class Call
{
public:
    Call(const Statement& statement, const Context& context)
        : statement_(statement), context_(context)
    {
    }

    /// How many operands stand behind the name.
    [[nodiscard]] std::size_t count() const { return statement_.words.size() - 1; }
    /// The operand of that number, from 1.
    [[nodiscard]] const std::string& operator[](std::size_t index) const;
    /// The operands from that number on.
    [[nodiscard]] Words from(std::size_t index) const;
    [[nodiscard]] double number(std::size_t index) const;
    [[nodiscard]] bool isTag(std::size_t index) const { return (*this)[index].starts_with("tag:"); }
    /// The action of the catalogue.
    [[nodiscard]] Standard::ActionType& action(std::size_t index) const;
    /// The attribute of the catalogue, for an operand "tag:WORD".
    [[nodiscard]] Standard::StateAttribute& attribute(std::size_t index) const;

    [[nodiscard]] bool hasText() const { return statement_.hasText; }
    [[nodiscard]] const std::string& text() const { return statement_.text; }
    [[nodiscard]] const Context& context() const { return context_; }
    [[nodiscard]] Data& data() const { return context_.data(); }
    [[nodiscard]] std::ostream& out() const { return context_.out; }

private:
    const Statement& statement_;
    const Context& context_;
};

struct StatementRow {
    const char* name;
    const char* usage;
    void (*run)(const Call&);
};

// The statements, a function a file.

std::span<const StatementRow> documentStatements(); ///< reading, writing and comparing files
std::span<const StatementRow> dumpStatements();     ///< a state, one line a fact
std::span<const StatementRow> valueStatements();    ///< setting and asking one thing
std::span<const StatementRow> controlStatements();  ///< the process, and lines that run others

/// Runs the statement. @return false when there is no such statement
bool runStatement(const Statement& statement, const Context& context);

/// One line a statement, for the help.
std::string statementsHelp();

} // namespace command
