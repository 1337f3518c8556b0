#include <algorithm>

#include <command/check/Rules.h>
#include <command/provenance/RawText.h>

namespace command::rules
{

namespace
{

const Element* innermost(const Document& document, std::size_t offset)
{
    const Element* found = nullptr;
    for (const Element& element : document.elements())
        if (element.begin <= offset && offset < element.end)
            found = &element;
    return found;
}

void findRaw(const CheckedFiles& files, Report& report, RawFault::Kind kind,
             std::string_view effect)
{
    for (const auto& file : files.files) {
        const Document& document = *file->document;
        std::vector<RawFault> faults = findRawFaults(document.text());
        std::erase_if(faults, [&](const RawFault& fault) { return fault.kind != kind; });
        // A file of another kind is full of them.
        constexpr std::size_t most = 20;
        if (faults.size() > most) {
            faults[most - 1].message += ", and " + std::to_string(faults.size() - most) + " more";
            faults.resize(most);
        }
        for (const RawFault& fault : faults) {
            std::string hint = fault.hint;
            if (!effect.empty())
                hint += (hint.empty() ? "" : ". ") + std::string(effect);
            report.add(document, innermost(document, fault.begin), fault.begin, fault.end,
                       fault.message, hint);
        }
    }
}

constexpr std::string_view passes = "The library lets it pass, other programs refuse the file";

} // namespace

void notXml(const CheckedFiles& files, Report& report)
{
    for (const auto& file : files.files) {
        const Document& document = *file->document;
        if (document.root())
            continue;
        std::size_t end = document.fault().offset;
        const std::string& text = document.text();
        while (end < text.size() && text[end] != '\n' && text[end] != '\r' && text[end] != '>')
            ++end;
        report.add(document, nullptr, document.fault().offset, end, document.fault().message,
                   file->document->fileName() == "Standard.xml"
                       ? "As it stands the library reads nothing of this file and keeps what it has"
                       : "As it stands the library reads nothing of this file");
    }
}

void bytes(const CheckedFiles& files, Report& report)
{
    findRaw(files, report, RawFault::Kind::Bytes, "As it stands a word with it is unknown");
}

void character(const CheckedFiles& files, Report& report)
{
    findRaw(files, report, RawFault::Kind::Character, passes);
}

void reference(const CheckedFiles& files, Report& report)
{
    findRaw(files, report, RawFault::Kind::Reference, passes);
}

void attributeSyntax(const CheckedFiles& files, Report& report)
{
    findRaw(files, report, RawFault::Kind::Attribute, passes);
}

void comment(const CheckedFiles& files, Report& report)
{
    findRaw(files, report, RawFault::Kind::Comment, passes);
}

void section(const CheckedFiles& files, Report& report)
{
    findRaw(files, report, RawFault::Kind::Section, passes);
}

void declaration(const CheckedFiles& files, Report& report)
{
    findRaw(files, report, RawFault::Kind::Declaration, {});
}

void nothing(const CheckedFiles& files, Report& report)
{
    for (const auto& file : files.files)
        if (file->document->root() && !file->actionTypes && !file->attributes &&
            !file->holdsSettings())
            report.atTag(*file->document->root(),
                         "the file holds nothing that the library looks for",
                         "a root SMOD with ACTIONTYPES, STATEATTRIBUTES, SETTINGS, COEFFICIENTS, "
                         "STRESSBLOCK or STATEINSTRUCTIONS");
}

void enciphered(const CheckedFiles& files, Report& report)
{
    for (const auto& file : files.files)
        if (file->document->isEnciphered() && file->holdsSettings())
            report.atTag(*file->document->root(), "a settings file is enciphered",
                         "write it plain: as it stands the library reads nothing of it");
}

} // namespace command::rules
