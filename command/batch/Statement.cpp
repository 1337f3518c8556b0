#include <command/batch/Statement.h>

#include <algorithm>

#include <command/batch/Enumerations.h>
#include <command/vocabulary/Failure.h>

namespace command
{

using namespace Standard;

namespace
{

std::vector<StatementRow> allStatements()
{
    std::vector<StatementRow> all;
    for (const auto rows :
         {documentStatements(), dumpStatements(), valueStatements(), controlStatements()})
        all.insert(all.end(), rows.begin(), rows.end());
    return all;
}

} // namespace

const std::string& Call::operator[](std::size_t index) const
{
    if (index >= statement_.words.size())
        throw Failure(statement_.words.front() + " needs more words");
    return statement_.words[index];
}

Words Call::from(std::size_t index) const
{
    const auto& words = statement_.words;
    return {words.begin() + static_cast<std::ptrdiff_t>(std::min(index, words.size())),
            words.end()};
}

double Call::number(std::size_t index) const
{
    double value = 0;
    if (!readNumber((*this)[index], value))
        throw Failure("\"" + (*this)[index] + "\" is no number");
    return value;
}

ActionType& Call::action(std::size_t index) const
{
    const auto id = valueOf<ActionTypeId>("action", (*this)[index]);
    ActionType* type = data().actions().findActionType(id);
    if (!type)
        throw Failure("the catalogue has no action \"" + (*this)[index] + "\"");
    return *type;
}

StateAttribute& Call::attribute(std::size_t index) const
{
    const auto token = valueOf<StateAttributeToken>("tag", (*this)[index].substr(4));
    StateAttribute* found = data().attributes().findStateAttributeToToken(token);
    if (!found)
        throw Failure("the catalogue has no " + (*this)[index]);
    return *found;
}

bool runStatement(const Statement& statement, const Context& context)
{
    static const std::vector<StatementRow> all = allStatements();
    const auto found = std::ranges::find(all, statement.words.front(), &StatementRow::name);
    if (found == all.end())
        return false;
    found->run({statement, context});
    return true;
}

std::string statementsHelp()
{
    std::string text = "Lines of a batch: verbs, and\n"
                       "  code CODE, for STRUCTURE, material WORD, situation WORD, language en|de, "
                       "format FORMAT\n";
    for (const StatementRow& row : allStatements())
        text += std::string("  ") + row.name + " " + row.usage + "\n";
    return text + "  prove: the derivation of every value against the library\n"
                  "KIND: actions, attributes, settings, coefficients, control, rules; to dump "
                  "there are also\n"
                  "active, inactive, templates, words\n";
}

} // namespace command
