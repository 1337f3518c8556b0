#pragma once

#include <string>
#include <vector>

#include <command/provenance/MaterialValues.h>

/// @file
/// The reviewers' ticks: CHECKED="initials date, edition YEAR: values as read".

namespace command
{

/// Where a tick may stand, and what it may repeat there.
struct TickPlace {
    const Element* element = nullptr; ///< a set, a DEFAULT or an annex
    std::string structure; ///< of an action's annex: the values that it takes as EC; else empty
    /// Lists of numbers as the file spells them: all, and those that follow no other. In an annex
    /// "-" stands for a value that it gives itself.
    std::vector<std::vector<std::string>> wordings;
};

/// One tick; an annex may hold one for each structure.
struct Tick {
    enum class State {
        Holds,
        Stale,     ///< the values have changed since
        Nowhere,   ///< there is nothing here to tick
        Twice,     ///< the structure has a tick already
        Malformed, ///< not "initials YYYY-MM-DD, edition YEAR: values"
    };
    State state{};
    const Element* element = nullptr;
    std::string structure;
    std::string who;  ///< "AB 2026-03-02, edition 2010"
    std::string read; ///< the values as they were read
    std::string now;  ///< what stands there now; empty for nothing
};

/// All ticks of both files.
class Ticks
{
public:
    Ticks(const ActionFile& actions, const MaterialFile& materials);

    [[nodiscard]] const std::vector<TickPlace>& places() const { return places_; }
    [[nodiscard]] const std::vector<Tick>& all() const { return ticks_; }
    /// The place, and the tick there; null for none.
    [[nodiscard]] const TickPlace* place(const Element* element,
                                         const std::string& structure) const;
    [[nodiscard]] const Tick* find(const Element* element, const std::string& structure) const;

private:
    void addAction(const ActionValues& action);
    void addMaterials(const MaterialFile& materials);
    void addPlace(const Element& element, const std::string& structure,
                  std::vector<std::vector<std::string>> wordings);
    void judge(const Document& document);
    void judge(const Element& element, const std::string& text, Tick tick);

    std::vector<TickPlace> places_;
    std::vector<Tick> ticks_;
};

} // namespace command
