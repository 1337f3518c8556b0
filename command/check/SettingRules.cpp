#include <algorithm>
#include <map>
#include <set>

#include <command/check/Rules.h>

namespace command::rules
{

namespace
{

std::string lineOf(const Element& element)
{
    return "line " + std::to_string(element.position().line);
}

/// The blocks that a rules' part defines, in document order.
std::vector<const Element*> definitionsOf(const Element& rules)
{
    std::vector<const Element*> blocks;
    for (const Element* part : rules.children)
        if (part->name == "DEFAULT_BLOCKS")
            blocks.insert(blocks.end(), part->children.begin(), part->children.end());
    return blocks;
}

template <class Visit> void forInstructions(const CheckedFiles& files, Visit visit)
{
    for (const auto& file : files.files)
        if (file->rules)
            for (const Element* rule : file->rules->children)
                if (rule->name != "DEFAULT_BLOCKS")
                    visit(*file, *rule);
}

/// Each element that pulls in a block.
template <class Visit> void forReferences(const CheckedFiles& files, Visit visit)
{
    forInstructions(files, [&](const CheckedFile& file, const Element& rule) {
        const Element* list = rule.find("STATEATTRIBUTES");
        if (!list)
            return;
        for (const Element* part : list->children)
            if (part->name == "DEFAULT_BLOCKS")
                for (const Element* reference : part->children)
                    visit(file, *reference);
    });
}

const Element* definitionOf(const CheckedFile& file, std::string_view name)
{
    const auto blocks = definitionsOf(*file.rules);
    const auto found =
        std::ranges::find(blocks, name, [](const Element* b) { return b->get("NAME"); });
    return found == blocks.end() ? nullptr : *found;
}

} // namespace

void earthquakeLeftBehind(const CheckedFiles& files, Report& report)
{
    for (const auto& file : files.files) {
        if (!file->coefficients)
            continue;
        for (const Element* table : file->coefficients->children)
            for (const Element* annex : table->children)
                if (const Element* value = annex->child("PERSISTENT");
                    value && !annex->child("ACCIDENTAL_EQ") && annex->get("NAME") != "EC" &&
                    table->name.starts_with("GAMMA"))
                    report.atTag(*value,
                                 describe(*annex) + " gives PERSISTENT and no ACCIDENTAL_EQ",
                                 "As it stands that of EC stays in the earthquake");
    }
}

void sharedRecord(const CheckedFiles& files, Report& report)
{
    for (const auto& file : files.files) {
        if (!file->stressBlock)
            continue;
        const Element* first = nullptr;
        for (const Element* annex : file->stressBlock->children) {
            if (annex->get("NAME") == "DIN-1988")
                continue;
            if (first && first->get("NAME") != annex->get("NAME"))
                report.atValue(*annex, "NAME",
                               "the annexes " + std::string(first->get("NAME")) + " and " +
                                   std::string(annex->get("NAME")) +
                                   " of STRESSBLOCK share a record",
                               "its values go over those of " + lineOf(*first) +
                                   ", for all codes but DIN-1988");
            first = first ? first : annex;
        }
    }
}

void duplicateTag(const CheckedFiles& files, Report& report)
{
    for (const auto& file : files.files) {
        if (!file->attributes)
            continue;
        std::map<std::string_view, const Element*> first;
        for (const Element* attribute : file->attributes->children) {
            const auto [at, isNew] = first.emplace(attribute->get("NAME"), attribute);
            if (!isNew)
                report.atValue(*attribute, "NAME",
                               "a second attribute " + std::string(attribute->get("NAME")),
                               "the action type of the first one stays, in " + lineOf(*at->second) +
                                   "; all else is that of this one");
        }
    }
}

void duplicateBlock(const CheckedFiles& files, Report& report)
{
    for (const auto& file : files.files) {
        if (!file->rules)
            continue;
        std::map<std::string_view, const Element*> first;
        for (const Element* block : definitionsOf(*file->rules)) {
            const auto [at, isNew] = first.emplace(block->get("NAME"), block);
            if (!isNew)
                report.atValue(*block, "NAME", "a second block " + std::string(block->get("NAME")),
                               "it adds to the first one, in " + lineOf(*at->second));
        }
    }
}

void unknownBlock(const CheckedFiles& files, Report& report)
{
    forReferences(files, [&](const CheckedFile& file, const Element& reference) {
        if (!definitionOf(file, reference.name))
            report.atTag(reference, "no block is called " + std::string(reference.name),
                         "As it stands it adds nothing to the rule");
    });
}

void blockBeforeDefinition(const CheckedFiles& files, Report& report)
{
    forReferences(files, [&](const CheckedFile& file, const Element& reference) {
        const Element* block = definitionOf(file, reference.name);
        if (block && block->begin > reference.begin)
            report.atTag(reference,
                         "the block " + std::string(reference.name) + " is defined behind, in " +
                             lineOf(*block),
                         "As it stands it adds nothing to the rule");
    });
}

void unusedBlock(const CheckedFiles& files, Report& report)
{
    std::set<std::string_view> used;
    forReferences(
        files, [&](const CheckedFile&, const Element& reference) { used.insert(reference.name); });
    for (const auto& file : files.files)
        if (file->rules)
            for (const Element* block : definitionsOf(*file->rules))
                if (!block->get("NAME").empty() && !used.contains(block->get("NAME")))
                    report.atValue(*block, "NAME",
                                   "no rule pulls in the block " + std::string(block->get("NAME")),
                                   "delete it, or name it in a rule");
}

void duplicateRule(const CheckedFiles& files, Report& report)
{
    std::map<std::pair<std::string_view, std::string_view>, const Element*> first;
    forInstructions(files, [&](const CheckedFile&, const Element& rule) {
        const auto [at, isNew] =
            first.emplace(std::pair{rule.get("TYPE"), rule.get("TEMPLATE")}, &rule);
        if (!isNew && !rule.get("TYPE").empty())
            report.atValue(rule, "TYPE", "a second rule " + describe(rule),
                           "the two become one rule; the first is in " + lineOf(*at->second));
    });
}

void repeatedTag(const CheckedFiles& files, Report& report)
{
    const auto check = [&](const std::vector<const Element*>& entries,
                           std::map<std::string_view, const Element*>& first) {
        for (const Element* entry : entries) {
            if (entry->get("NAME").empty())
                continue;
            const auto [at, isNew] = first.emplace(entry->get("NAME"), entry);
            if (!isNew)
                report.atValue(
                    *entry, "NAME", std::string(entry->get("NAME")) + " stands twice in a list",
                    "the first one counts, in " + lineOf(*at->second) + ", with the operator " +
                        std::string(at->second->get("OPERATOR")));
        }
    };
    for (const auto& file : files.files)
        if (file->rules)
            for (const Element* block : definitionsOf(*file->rules)) {
                std::map<std::string_view, const Element*> first;
                check(block->children, first);
            }
    forInstructions(files, [&](const CheckedFile& file, const Element& rule) {
        const Element* list = rule.find("STATEATTRIBUTES");
        std::map<std::string_view, const Element*> own;
        std::map<std::string_view, const Element*> pulled;
        if (!list)
            return;
        for (const Element* part : list->children) {
            if (part->name != "DEFAULT_BLOCKS") {
                // An entry before a block that has it too is how a rule takes another operator.
                const auto block = pulled.find(part->get("NAME"));
                if (block != pulled.end())
                    report.atValue(*part, "NAME",
                                   std::string(part->get("NAME")) + " has come by a block above",
                                   "that of the block counts, in " + lineOf(*block->second) +
                                       ", with the operator " +
                                       std::string(block->second->get("OPERATOR")));
                check({part}, own);
                continue;
            }
            for (const Element* reference : part->children)
                if (const Element* block = definitionOf(file, reference->name))
                    for (const Element* entry : block->children)
                        pulled.emplace(entry->get("NAME"), entry);
        }
    });
}

} // namespace command::rules
