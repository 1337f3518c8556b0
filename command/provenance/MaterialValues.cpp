#include <command/provenance/MaterialValues.h>

#include <cmath>

#include <zelstandard/vocabulary/XMLUtil.h>

namespace command
{

namespace
{

using Standard::XMLUtil;
using Kind = ValueStep::Kind;

/// Up to this a value counts as not given.
constexpr double tolerance = 1e-7;

/// Source and status each of the value, else of its annex.
Origin originOfValue(const Element& value, const Element& annex)
{
    const auto either = [&](const char* key) {
        return std::string(value.attribute(key) ? value.get(key) : annex.get(key));
    };
    return {either("SOURCE"), either("STATUS"), either("NOTE")};
}

void take(Value& value, const Element& element, const Element& annex, double number)
{
    value.number = number;
    value.origin = originOfValue(element, annex);
    value.element = &element;
    value.place = &annex;
    value.isCopy = false;
    value.steps.push_back({Kind::Own, number, &element, value.origin, false});
}

/// A number of a child; 0 when it is missing or no number.
double numberOf(const Element* element)
{
    double number = 0;
    if (element)
        readNumber(element->text, number);
    return number;
}

} // namespace

MaterialFile::MaterialFile(std::shared_ptr<const Document> document)
    : document_(std::move(document))
{
    const Element* root = document_->root();
    if (!root)
        return;
    if (const Element* coefficients = root->find("COEFFICIENTS"))
        for (const MaterialRow& table : materialTables)
            if (const Element* element = table.control ? nullptr : coefficients->find(table.table))
                readTable(table, *element);
    if (const Element* block = root->find("STRESSBLOCK"))
        readStressBlock(*block);
}

const Value& MaterialFile::find(const MaterialRow& table, Mode code, std::size_t column) const
{
    static const Value none;
    if (table.control)
        code = code == Mode::DIN_1988 ? code : Mode::EC;
    const auto found = values_.find({
        &table, {code, column}
    });
    return found == values_.end() ? none : found->second;
}

const Element* MaterialFile::elementOf(const MaterialRow& table) const
{
    const Element* root = document_->root();
    if (!root)
        return nullptr;
    if (table.control)
        return root->find("STRESSBLOCK");
    const Element* coefficients = root->find("COEFFICIENTS");
    return coefficients ? coefficients->find(table.table) : nullptr;
}

void MaterialFile::readTable(const MaterialRow& table, const Element& element)
{
    const auto columns = columnsOf(table);
    for (const Element* annex : element.children) {
        const Mode code = XMLUtil::get()->getModeToString(std::string(annex->get("NAME")));
        for (std::size_t column = 0; column < columns.size(); ++column) {
            const Element* child = annex->child(columns[column]);
            const double number = numberOf(child);
            if (child && std::abs(number) > tolerance)
                take(values_[{
                         &table, {code, column}
                }],
                     *child, *annex, number);
        }
        if (code != Mode::EC)
            continue;
        for (std::size_t column = 0; column < columns.size(); ++column) {
            const auto given = values_.find({
                &table, {code, column}
            });
            // What EC does not give, it gives as 0 to those that already have a value.
            const bool isGiven = given != values_.end();
            Value from = isGiven ? given->second : Value();
            if (!isGiven)
                from.element = annex;
            for (const Mode heir : allCodes()) {
                const std::pair key(&table, std::pair(heir, column));
                if (heir == Mode::EC || (!isGiven && !values_.contains(key)))
                    continue;
                Value& to = values_[key];
                to.number = from.number;
                to.element = from.element;
                to.place = nullptr;
                to.isCopy = true;
                const bool isOffice = from.origin.status == "OFFICE";
                to.origin = {from.origin.source, isOffice ? "OFFICE" : "INHERITED", {}};
                to.steps.push_back({Kind::Copy, from.number, from.element, from.origin, false});
            }
        }
    }
}

void MaterialFile::readStressBlock(const Element& element)
{
    for (const Element* annex : element.children) {
        const Mode code = XMLUtil::get()->getModeToString(std::string(annex->get("NAME")));
        const Mode record = code == Mode::DIN_1988 ? code : Mode::EC;
        for (const MaterialRow& table : materialTables) {
            const Element* child = table.control ? annex->child(table.table) : nullptr;
            const double number = numberOf(child);
            if (child && number > tolerance)
                take(values_[{
                         &table, {record, 0}
                }],
                     *child, *annex, number);
        }
    }
}

} // namespace command
