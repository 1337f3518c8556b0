#include <algorithm>
#include <cmath>
#include <optional>

#include <command/check/Rules.h>

namespace command::rules
{

namespace
{

template <class Visit> void forNumbers(const CheckedFiles& files, Visit visit)
{
    for (const auto& file : files.files)
        for (const Site& site : file->sites)
            if (site.form->isNumber() || site.form->content == Form::Content::Integer)
                visit(*file, *site.element, *site.form);
}

/// A whole number as the library reads it.
bool readWhole(const std::string& text)
{
    double number = 0;
    return readNumber(text, number) && text.find_first_of(".eE") == std::string::npos;
}

bool isRead(const Element& element, const Form& form)
{
    double number = 0;
    return form.isNumber() ? readNumber(element.text, number) : readWhole(element.text);
}

bool isPlain(const std::string& text)
{
    return std::ranges::all_of(text, [](char c) { return (c >= '0' && c <= '9') || c == '.'; }) &&
           std::ranges::count(text, '.') <= 1 && !text.starts_with('.') && !text.ends_with('.');
}

/// The text with a point for its only comma.
std::optional<std::string> withPoint(std::string text)
{
    double number = 0;
    const std::size_t comma = text.find(',');
    if (comma == std::string::npos)
        return std::nullopt;
    text[comma] = '.';
    return readNumber(text, number) ? std::optional(text) : std::nullopt;
}

std::string codesText(int count)
{
    return count == 1 ? "1 code that inherits it"
                      : std::to_string(count) + " codes that inherit it";
}

/// What the factors are, the number being none.
std::string effectOnFactors(const CheckedFiles& files, const Element& element,
                            const FactorRow& factor)
{
    if (element.parent->get("NAME") == "DEFAULT")
        return "As it stands the DEFAULT gives no " + std::string(factor.title);
    for (const auto& file : files.files) {
        if (!file->actions || element.document != file->document.get())
            continue;
        for (const ActionValues& type : file->actions->types())
            for (const auto& [key, set] : type.sets) {
                if (std::ranges::find(set.named, element.parent) == set.named.end())
                    continue;
                const auto [code, isBuilding, bridgeType] = key;
                int heirs = 0;
                for (const auto& [other, heir] : type.sets)
                    if (code == Mode::EC && std::get<0>(other) != code &&
                        std::get<0>(other) != Mode::NO_CODE && std::get<1>(other) == isBuilding &&
                        std::get<2>(other) == bridgeType &&
                        heir[factor.value].steps.back().kind == ValueStep::Kind::Copy)
                        ++heirs;
                const std::string number = numberText(set[factor.value].number, 0);
                return "As it stands " + std::string(factor.title) + " is " + number + " here" +
                       (heirs == 0 ? "" : " and in " + codesText(heirs));
            }
    }
    return "As it stands " + std::string(factor.title) + " stays as it was";
}

std::string effectOf(const CheckedFiles& files, const Element& element, const Form& form)
{
    if (form.content == Form::Content::Integer)
        return "As it stands it reads as " + std::string(form.fallback);
    if (const FactorRow* factor = factorOf(element))
        return effectOnFactors(files, element, *factor);
    for (const auto& file : files.files)
        for (const MaterialRow& row : materialTables) {
            const auto columns = columnsOf(row);
            const Element* annex = element.parent;
            const auto column = std::ranges::find(columns, element.name);
            const bool isOwn =
                row.control ? element.name == row.table : annex->parent->name == row.table;
            if (!file->materials || file->document.get() != element.document || !isOwn ||
                (!row.control && column == columns.end()))
                continue;
            const auto code = std::ranges::find(allCodes(), annex->get("NAME"),
                                                [](Mode mode) { return wordOf(mode); });
            if (code == allCodes().end())
                continue;
            const Value& value = file->materials->find(
                row, *code, row.control ? 0 : static_cast<std::size_t>(column - columns.begin()));
            return "As it stands it counts as not given: " + std::string(element.name) + " is " +
                   numberText(value.number, 0);
        }
    return {};
}

double limitOf(const Form& form) { return form.content == Form::Content::Factor ? 10 : 1; }

bool isWithin(double number, const Form& form)
{
    return number >= 0 && (form.content == Form::Content::Factor ? number < limitOf(form)
                                                                 : number <= limitOf(form));
}

/// The number with a point put in, when it looks as if one had been lost: 150 is 1.50, psi 70 is
/// 0.70.
std::optional<std::string> lostPointIn(const Element& element, const Form& form)
{
    const std::string& text = element.text;
    double number = 0;
    if (!form.isNumber() || text.size() < 2 || text.size() > 4 ||
        text.find_first_not_of("0123456789") != std::string::npos || !readNumber(text, number) ||
        isWithin(number, form))
        return std::nullopt;
    const bool isShare = form.content == Form::Content::Share;
    std::string written = isShare && text.front() != '0' && text.size() < 3
                              ? "0." + text
                              : text.substr(0, 1) + "." + text.substr(1);
    return readNumber(written, number) && isWithin(number, form) ? std::optional(written)
                                                                 : std::nullopt;
}

} // namespace

void decimalComma(const CheckedFiles& files, Report& report)
{
    forNumbers(files, [&](const CheckedFile&, const Element& element, const Form& form) {
        if (const auto written = withPoint(element.text))
            report.atText(element, describe(element) + ": \"" + element.text + "\" is no number",
                          "write " + *written + ". " + effectOf(files, element, form));
    });
}

void malformedNumber(const CheckedFiles& files, Report& report)
{
    forNumbers(files, [&](const CheckedFile&, const Element& element, const Form& form) {
        if (isRead(element, form) || withPoint(element.text))
            return;
        const std::string what = element.text.empty()
                                     ? " is empty"
                                     : ": \"" + element.text + "\" is no " +
                                           (form.isNumber() ? "number" : "whole number");
        report.atText(element, describe(element) + what, effectOf(files, element, form));
    });
}

void numberForm(const CheckedFiles& files, Report& report)
{
    forNumbers(files, [&](const CheckedFile&, const Element& element, const Form& form) {
        if (form.isNumber() && isRead(element, form) && !element.text.starts_with('-') &&
            !isPlain(element.text)) {
            double number = 0;
            readNumber(element.text, number);
            report.atText(element,
                          describe(element) + ": \"" + element.text +
                              "\" is a number in an unusual form",
                          "write " + numberText(number, 2));
        }
    });
}

void lostPoint(const CheckedFiles& files, Report& report)
{
    forNumbers(files, [&](const CheckedFile&, const Element& element, const Form& form) {
        if (const auto written = lostPointIn(element, form))
            report.atText(element, describe(element) + ": " + element.text + " has lost its point",
                          "write " + *written);
    });
}

void range(const CheckedFiles& files, Report& report)
{
    forNumbers(files, [&](const CheckedFile&, const Element& element, const Form& form) {
        double number = 0;
        if (!isRead(element, form) || lostPointIn(element, form))
            return;
        readNumber(element.text, number);
        if (element.name == "SERVICE_CLASS" && (number < 1 || number > 3))
            report.atText(element, "SERVICE_CLASS is " + element.text + ", not 1, 2 or 3",
                          "As it stands it reads as 1");
        if (number == 0 && factorOf(element) &&
            (element.name == "GAMMA_SUP" || element.name == "CrackRed"))
            report.atText(element, describe(element) + " is 0: no load case of it would count",
                          "The library takes it as it stands");
        if (!form.isNumber() || isWithin(number, form))
            return;
        const bool isLost = number < 0 && element.parent->get("NAME") == "DEFAULT";
        report.atText(element,
                      describe(element) + " is " + element.text + ", not from 0 to " +
                          (form.content == Form::Content::Factor ? "below 10" : "1"),
                      isLost ? "A DEFAULT below 0 counts as not given"
                             : "The library takes it as it stands");
    });
}

void zeroValue(const CheckedFiles& files, Report& report)
{
    forNumbers(files, [&](const CheckedFile& file, const Element& element, const Form& form) {
        double number = 0;
        const bool isMaterial = file.materials && !factorOf(element) && form.isNumber();
        if (isMaterial && readNumber(element.text, number) && std::abs(number) <= 1e-7)
            report.atText(element, describe(element) + " is 0, which the library passes over",
                          effectOf(files, element, form));
    });
}

} // namespace command::rules
