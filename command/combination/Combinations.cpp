#include <command/combination/Combinations.h>

#include <algorithm>
#include <map>
#include <utility>

namespace command
{

namespace
{

using Selection = std::vector<bool>;

/// Which parts stand together: one of each exclusion group, and all that belong to none.
std::vector<Selection> selectionsOf(const std::vector<Participant>& parts)
{
    std::map<int, std::vector<std::size_t>> groups;
    for (std::size_t i = 0; i < parts.size(); ++i)
        if (parts[i].exclusion != 0)
            groups[parts[i].exclusion].push_back(i);
    std::vector<Selection> selections = {Selection(parts.size(), true)};
    for (const auto& [number, members] : groups) {
        std::vector<Selection> chosen;
        for (const Selection& before : selections)
            for (const std::size_t member : members) {
                Selection selection = before;
                for (const std::size_t other : members)
                    selection[other] = other == member;
                chosen.push_back(std::move(selection));
            }
        selections = std::move(chosen);
    }
    return selections;
}

bool standTogether(const Participant& left, const Participant& right)
{
    return left.action == right.action || (left.group != 0 && left.group == right.group);
}

/// The variable parts that lead in turn, those together that are one.
std::vector<std::vector<std::size_t>> leadersOf(const std::vector<Participant>& parts,
                                                const Selection& selection)
{
    std::vector<std::vector<std::size_t>> units;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (!selection[i] || parts[i].choice != Choice::Variable)
            continue;
        const auto unit = std::ranges::find_if(units, [&](const auto& members) {
            return standTogether(parts[members.front()], parts[i]);
        });
        if (unit == units.end())
            units.push_back({i});
        else
            unit->push_back(i);
    }
    return units;
}

Combination combine(const std::vector<Participant>& parts, const Selection& selection,
                    const std::vector<std::size_t>& leaders)
{
    Combination combination;
    combination.leaders = leaders;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        Role role = Role::Permanent;
        if (!selection[i])
            role = Role::Absent;
        else if (parts[i].choice == Choice::Event)
            role = Role::Event;
        else if (parts[i].choice == Choice::Variable)
            role = std::ranges::count(leaders, i) != 0 ? Role::Leading : Role::Accompanying;
        combination.roles.push_back(role);
    }
    return combination;
}

} // namespace

std::vector<Combination> combinationsOf(const std::vector<Participant>& parts, bool leads)
{
    std::vector<Combination> result;
    for (const Selection& selection : selectionsOf(parts)) {
        std::vector<std::vector<std::size_t>> units;
        if (leads)
            units = leadersOf(parts, selection);
        if (units.empty())
            units.emplace_back();
        for (const auto& leaders : units) {
            Combination combination = combine(parts, selection, leaders);
            result.push_back(combination);
            combination.isSup = false;
            result.push_back(std::move(combination));
        }
    }
    return result;
}

} // namespace command
