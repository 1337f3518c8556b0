#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <command/provenance/ActionValues.h>

/// @file
/// Where each material factor and control value comes from.

namespace command
{

/// The elements COEFFICIENTS and STRESSBLOCK of a settings document.
///
/// The annex EC gives its values to all codes. A value of a magnitude up to 1e-7 (of the stress
/// block: a value up to 1e-7) is passed over. Of the stress block DIN-1988 has a record of its own,
/// and all other codes share one.
class MaterialFile
{
public:
    explicit MaterialFile(std::shared_ptr<const Document> document);

    [[nodiscard]] const Document& document() const { return *document_; }

    /// The value of a table's column; without steps, and 0, when nobody gives it.
    [[nodiscard]] const Value& find(const MaterialRow& table, Mode code, std::size_t column) const;
    /// The element of the table, STRESSBLOCK for control values; null for none.
    [[nodiscard]] const Element* elementOf(const MaterialRow& table) const;

private:
    void readTable(const MaterialRow& table, const Element& element);
    void readStressBlock(const Element& element);

    using Key = std::pair<const MaterialRow*, std::pair<Mode, std::size_t>>;

    std::shared_ptr<const Document> document_;
    std::map<Key, Value> values_;
};

} // namespace command
