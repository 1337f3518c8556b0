#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <command/answer/Answer.h>
#include <command/provenance/Document.h>

namespace command
{

struct Rule;

/// What a check has found. A finding whose element, or one around it, carries ACCEPTED="rule:
/// reason" for its rule is set aside.
class Report
{
public:
    struct Accepted {
        Finding finding;
        std::string reason;
    };

    /// What follows is found by this rule.
    void begin(const Rule& rule) { rule_ = &rule; }

    /// Bytes of the text.
    /// @param around the element that may accept it; null for none
    /// @param message one sentence without a point at its end
    /// @param hint what to do, or what the library makes of it; empty for none
    void add(const Document& document, const Element* around, std::size_t begin, std::size_t end,
             std::string message, std::string hint = {});
    /// The text of an element; its tag when it has none.
    void atText(const Element& element, std::string message, std::string hint = {});
    /// "<NAME" of an element.
    void atTag(const Element& element, std::string message, std::string hint = {});
    /// The value of an attribute; the tag when it has none.
    void atValue(const Element& element, std::string_view attribute, std::string message,
                 std::string hint = {});

    [[nodiscard]] const std::vector<Finding>& findings() const { return findings_; }
    [[nodiscard]] const std::vector<Accepted>& accepted() const { return accepted_; }
    /// Whether an element has accepted something of that rule.
    [[nodiscard]] bool hasUsed(const Element& element, std::string_view rule) const;

    /// By place.
    void sort(const std::vector<std::string>& paths);

private:
    const Rule* rule_ = nullptr;
    std::vector<Finding> findings_;
    std::vector<Accepted> accepted_;
    std::vector<std::pair<const Element*, std::string>> used_;
};

/// The parts of ACCEPTED: "rule: reason; rule: reason".
struct Acceptance {
    std::string rule;
    std::string reason;
};
std::vector<Acceptance> acceptancesOf(const Element& element);

} // namespace command
