#pragma once

#include <optional>
#include <string>

#include <command/verbs/Verb.h>

namespace command
{

/// A table of the nine factors: the numbers as the library gives them, the marks by their sources.
class FactorTable
{
public:
    /// @param key of the first column
    /// @param withNames a second column has the display names of the actions
    FactorTable(const Context& context, const std::string& key, bool withNames = false);

    /// A row of one action, code and structure; "-" where the action has no factors. What differs
    /// from the other code is marked.
    void add(const std::string& heading, ActionTypeId action, Mode code, Structure structure,
             std::optional<Mode> compared);

    /// The table; without all, a factor that repeats another one everywhere is not shown.
    Table finish(bool all);
    /// True when an action of a row has no factors.
    [[nodiscard]] bool hasAbsent() const { return hasAbsent_; }

private:
    const Context& context_;
    bool withNames_;
    bool hasAbsent_ = false;
    Table table_;
};

} // namespace command
