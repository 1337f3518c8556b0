#pragma once

#include <array>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include <command/provenance/Document.h>
#include <command/provenance/TextEdits.h>
#include <command/vocabulary/Vocabulary.h>

/// @file
/// Where each factor of an action comes from. Derived from the document alone, without the
/// library's reader.

namespace command
{

/// Source and status of a value as the file gives them; empty when it does not.
struct Origin {
    std::string source; ///< "EN 1990, Table A1.1, wind"
    std::string status; ///< "CONFIRMED-2S"
    std::string note;
};

/// One step on the way to a value.
struct ValueStep {
    enum class Kind {
        Zero,     ///< a new set begins with zeros
        Copy,     ///< the annex begins as a copy of EC
        Default,  ///< a DEFAULT of the annex
        Own,      ///< the set itself
        CrackRed, ///< crack reduction 1 by being named, or by a DEFAULT
        NoNumber, ///< a text that is no number: the value stays
        Negative, ///< a DEFAULT below 0 counts as not given
    };
    Kind kind{};
    double value = 0; ///< after the step
    /// The value element; for Zero and CrackRed the set or DEFAULT; for Copy what decided the value
    /// of EC. Never null.
    const Element* element = nullptr;
    Origin origin;
    bool isOffice = false; ///< stands in the office's file
};

/// A factor of a set with the steps that lead to it, at least one.
struct Value {
    double number = 0;
    std::vector<ValueStep> steps;
    Origin origin;
    /// The value element that decides; null for a value that no element gives (zeros, crack
    /// reduction 1).
    const Element* element = nullptr;
    /// The set, DEFAULT or annex that decides it; null when it is taken as EC and not confirmed.
    const Element* place = nullptr;
    bool isFollower = false;   ///< repeats psi1 or psi2 and has their source and status
    bool isLeftBehind = false; ///< a follower whose leader has another value
    bool isCopy = false;       ///< taken from EC
};

/// The mark of a value by its status: i, c, s, o; 0 for a confirmed one, and for one without a
/// status.
char statusMark(const std::string& status);

struct FactorSet {
    std::array<Value, factorCount> values;
    std::vector<const Element*> named; ///< the elements that name this set
    const Value& operator[](Factor factor) const
    {
        return values[static_cast<std::size_t>(factor)];
    }
};

/// Code, building or bridge, bridge type (0 for a building, and for an unknown word).
using SetKey = std::tuple<Mode, bool, BridgeType>;

/// A bridge type goes by its number alone, as in the library.
SetKey keyOf(Mode code, Structure structure);

/// One element ACTIONTYPE.
struct ActionValues {
    ActionTypeId id{};
    std::string word; ///< as the file spells it
    const Element* element = nullptr;
    std::map<SetKey, FactorSet> sets;
    std::vector<const Element*> annexes; ///< of both files, in the order of reading

    /// Null for none.
    [[nodiscard]] const FactorSet* find(Mode code, Structure structure) const;
    /// The last annex of that code in the main file; null for none.
    [[nodiscard]] const Element* annexOf(Mode code) const;
};

/// All action types of a file, the office's own values laid over.
class ActionFile
{
public:
    /// @param office null for none: its elements act as if they stood at the end of the annex of
    ///        their NAME, but for the DEFAULTs there, which they do not take again
    explicit ActionFile(std::shared_ptr<const Document> document,
                        std::shared_ptr<const Document> office = nullptr);

    [[nodiscard]] const Document& document() const { return *document_; }
    /// Null for none.
    [[nodiscard]] const Document* office() const { return office_.get(); }
    /// In document order; a type that occurs twice has two entries.
    [[nodiscard]] const std::vector<ActionValues>& types() const { return types_; }
    /// The first of that identity, which is the one that counts; null for none.
    [[nodiscard]] const ActionValues* find(ActionTypeId id) const;

private:
    std::shared_ptr<const Document> document_;
    std::shared_ptr<const Document> office_;
    std::vector<ActionValues> types_;
};

/// The text of the main file with the office's elements at the end of their annexes: what the
/// library is to read so that it answers as ActionFile does. There a DEFAULT of the annex would
/// overwrite what an office does not name; so such values are repeated in the office's element.
std::string mergedText(const Document& document, const Document& office);

/// Takes factors that a set for buildings gives now, by the names of their elements, from the
/// BUILDING_VALUES of its annex: they are no longer confirmed as those of EC.
void dropConfirmations(TextEdits& edits, const Element& annex,
                       const std::vector<std::string_view>& given);

} // namespace command
