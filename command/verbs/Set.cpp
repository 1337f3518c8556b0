#include <algorithm>
#include <memory>

#include <CLI/CLI.hpp>

#include <command/check/Rules.h>
#include <command/names/Names.h>
#include <command/provenance/SafeFile.h>
#include <command/provenance/TextEdits.h>
#include <command/provenance/Ticks.h>
#include <command/verbs/Differences.h>
#include <command/verbs/Verbs.h>
#include <command/vocabulary/Failure.h>

namespace command
{

namespace
{

struct Asked {
    std::string action;
    std::string factor;
    std::string value;
    std::string source;
    std::string status = "OFFICE";
};

/// A value to be written; empty source for one that follows another.
struct Wanted {
    const FactorRow* factor;
    std::string number;
    std::string source;
    std::string status;
};

std::string escaped(const std::string& text)
{
    std::string result;
    for (const char c : text)
        result += c == '&' ? "&amp;" : c == '<' ? "&lt;" : c == '"' ? "&quot;" : std::string(1, c);
    return result;
}

/// The number as files spell it; throws Failure for what no file should hold.
std::string numberNamed(const std::string& text, const FactorRow& row)
{
    double number = 0;
    const double limit = row.value <= Factor::GammaInf ? 9.999999 : 1;
    if (!readNumber(text, number))
        throw Failure("\"" + text + "\" is no number; the decimal separator is a point");
    if (number < 0 || number > limit)
        throw Failure(std::string(row.title) + " is from 0 to " + (limit > 1 ? "below 10" : "1") +
                      ", not " + text);
    return numberText(number, row.decimals);
}

void checkOrigin(const Asked& asked)
{
    const auto commas = std::ranges::count(asked.source, ',');
    if (commas != 2 || asked.source.find(",,") != std::string::npos ||
        asked.source.find_first_of("\r\n\t") != std::string::npos)
        throw Failure("\"" + asked.source +
                      "\" is not \"standard, table or clause, row\"\n"
                      "Example: --source \"Office, rule 7, snow\"");
    if (!statuses().has(asked.status))
        throw Failure("no status \"" + asked.status +
                      "\". All: CONFIRMED-2S, CONFIRMED-1S+T, CONFIRMED-T, SAFER, INHERITED, "
                      "CONVENTION, OFFICE");
}

/// Changes one set of one annex in the text of the document.
class SetEdit
{
public:
    SetEdit(const ActionFile& file, const ActionValues& type, Mode code, Structure structure)
        : document_(file.document()), edits_(document_), type_(type), annex_(type.annexOf(code)),
          code_(code), structure_(structure)
    {
        for (const Element* named : type.find(code, structure) ? type.find(code, structure)->named
                                                               : std::vector<const Element*>())
            if (named->parent == annex_)
                set_ = named;
    }

    /// A DEFAULT that would go over the set's own value; null for none.
    [[nodiscard]] const Element* laterDefault(const FactorRow& factor) const
    {
        bool isBehind = false;
        if (annex_ && set_ && code_ != Mode::EC)
            for (const Element* element : annex_->children) {
                isBehind = isBehind || element == set_;
                if (isBehind && element->get("NAME") == "DEFAULT" && element->child(factor.element))
                    return element;
            }
        return nullptr;
    }

    std::string apply(const std::vector<Wanted>& wanted)
    {
        std::string added;
        for (const Wanted& value : wanted) {
            const Element* element = set_ ? set_->child(value.factor->element) : nullptr;
            if (element)
                change(*element, value);
            else
                added += (added.empty() ? "" : " ") + textOf(value);
        }
        if (!added.empty() && set_)
            edits_.append(*set_, added);
        else if (!added.empty())
            addSet(added);
        if (annex_ && structure_.isBuilding())
            dropConfirmations(edits_, *annex_, elementsOf(wanted));
        return edits_.apply();
    }

private:
    static std::string textOf(const Wanted& value)
    {
        const std::string name = value.factor->element;
        std::string origin;
        if (!value.source.empty())
            origin = " SOURCE=\"" + escaped(value.source) + "\" STATUS=\"" + escaped(value.status) +
                     "\"";
        return "<" + name + origin + ">" + value.number + "</" + name + ">";
    }

    void change(const Element& element, const Wanted& value)
    {
        if (element.isEmptyTag()) {
            edits_.replace(element.begin, element.end, textOf(value));
            return;
        }
        if (!value.source.empty()) {
            std::string added;
            for (const auto& [key, text] : {
                     std::pair{"SOURCE", value.source},
                     {"STATUS", value.status}
            })
                if (const Attribute* attribute = element.attribute(key))
                    edits_.replaceValue(*attribute, escaped(text));
                else
                    added += std::string(" ") + key + "=\"" + escaped(text) + "\"";
            if (!added.empty())
                edits_.replace(element.contentBegin - 1, element.contentBegin - 1, added);
        }
        edits_.replace(element.contentBegin, element.contentEnd, value.number);
    }

    void addSet(const std::string& values)
    {
        const auto indentation = [&](const Element& element) {
            const std::string_view line = document_.lineText(element.position().line);
            return std::string(line.substr(0, line.find_first_not_of(" \t")));
        };
        const Element* annexes = type_.element->find("ANNEXES");
        if (!annex_ && (!annexes || code_ == Mode::EC))
            throw Failure(type_.word + " has no annex " + wordOf(code_) + "; write it by hand");
        const std::string outer = "\n" + indentation(annex_ ? *annex_ : *annexes) + "  ";
        const std::string set = "<CLASSIFICATION NAME=\"" + wordOf(structure_) + "\">" + outer +
                                (annex_ ? "  " : "    ") + values + outer + (annex_ ? "" : "  ") +
                                "</CLASSIFICATION>";
        if (annex_)
            edits_.append(*annex_, set);
        else
            edits_.append(*annexes, "<ANNEX NAME=\"" + wordOf(code_) + "\">" + outer + "  " + set +
                                        outer + "</ANNEX>");
    }

    static std::vector<std::string_view> elementsOf(const std::vector<Wanted>& wanted)
    {
        std::vector<std::string_view> names;
        names.reserve(wanted.size());
        for (const Wanted& value : wanted)
            names.emplace_back(value.factor->element);
        return names;
    }

    const Document& document_;
    TextEdits edits_;
    const ActionValues& type_;
    const Element* annex_;
    Mode code_;
    Structure structure_;
    const Element* set_ = nullptr;
};

/// What was asked for, with what has to follow it.
std::vector<Wanted> wantedValues(const Asked& asked, const FactorRow& factor, const FactorSet& set,
                                 const std::string& number, Answer& answer)
{
    std::vector<Wanted> wanted = {
        {&factor, number, asked.source, asked.status}
    };
    for (const FactorRow& row : factors) {
        if (row.leader != factor.value || row.value == factor.value)
            continue;
        const Value& value = set[row.value];
        if (!value.element || value.isFollower)
            wanted.push_back({&row, number, "", ""});
        else
            answer.note(std::string(row.title) + " stays " +
                        numberText(value.number, row.decimals) +
                        ": it has a source of its own, in line " +
                        std::to_string(value.element->position().line) + ".");
    }
    return wanted;
}

/// Factors of the set that a change alters although nobody has asked for it.
std::vector<const FactorRow*> alteredBesides(const FactorSet& before, const FactorSet& after,
                                             const std::vector<Wanted>& wanted)
{
    std::vector<const FactorRow*> altered;
    for (const FactorRow& row : factors)
        if (before[row.value].number != after[row.value].number &&
            std::ranges::find(wanted, &row, &Wanted::factor) == wanted.end())
            altered.push_back(&row);
    return altered;
}

/// What the change did to the values, in words where the table says too little or too much.
void addDifference(Answer& answer, const ActionFile& before, const ActionFile& after,
                   const ActionValues& type, Mode code)
{
    if (!type.annexOf(code))
        answer.section(type.word + " was inactive under " + wordOf(code) +
                       ": all else is that of EC now.");
    else if (!addDifferences(answer, before, after))
        answer.note("The number was the same before; source and status are written.");
}

/// What a check finds in the new text and not in the old one; stale ticks are told in words.
void addFindings(Answer& answer, std::shared_ptr<const Document> before,
                 std::shared_ptr<const Document> after)
{
    const auto findingsIn = [](std::shared_ptr<const Document> document) {
        CheckedFiles files;
        files.add(std::move(document), false);
        files.join();
        return check(files).findings();
    };
    const std::vector<Finding> old = findingsIn(std::move(before));
    for (const Finding& finding : findingsIn(std::move(after))) {
        const bool isOld = std::ranges::any_of(old, [&](const Finding& other) {
            return other.rule == finding.rule && other.message == finding.message;
        });
        // The first source of a file makes the check ask for all the others.
        if (isOld || finding.rule == "missing-source")
            continue;
        if (finding.rule == "stale-tick")
            answer.note("A tick is stale now: " + finding.message + ".");
        else
            answer.note("check finds now in line " + std::to_string(finding.place.line) + ": " +
                        finding.message + " [" + finding.rule + "]");
    }
}

Answer answerSet(const Asked& asked, const Context& context)
{
    if (context.options.codes.empty() || context.options.structures.empty())
        throw Failure("set needs --code and --for: it changes one value of one code and structure");
    const ActionTypeId action = actionNamed(asked.action);
    const FactorRow& factor = rowOf(factorNamed(asked.factor));
    const Mode code = context.code();
    const Structure structure = context.structure();
    const std::string number = numberNamed(asked.value, factor);
    checkOrigin(asked);

    const std::string& path = context.data().actionsPath();
    const auto document = Document::read(path);
    if (document->isEnciphered())
        throw Failure("\"" + path + "\" is enciphered\nFirst: zelstandard file decipher " + path);
    if (!document->isUtf8())
        throw Failure("\"" + path + "\" is not in UTF-8; save it so first");
    (void)document->orFail();
    const ActionFile before(document);
    const ActionValues* type = before.find(action);
    if (!type)
        throw Failure("\"" + path + "\" has no action " + wordOf(action) + "; write it by hand");
    if (!type->find(Mode::EC, structure))
        throw Failure("EC has no set of " + wordOf(action) + " for " + nameOf(structure) +
                      ": another code would begin with zeros\nFirst write it for EC by hand");

    Answer answer;
    const FactorSet* set = type->find(code, structure);
    static const FactorSet none;
    std::vector<Wanted> wanted =
        wantedValues(asked, factor, set ? *set : *type->find(Mode::EC, structure), number, answer);
    for (const Wanted& value : wanted)
        if (const Element* later =
                SetEdit(before, *type, code, structure).laterDefault(*value.factor))
            throw Failure("a DEFAULT behind the set would overwrite " +
                          std::string(value.factor->title) + ": " + path + ":" +
                          std::to_string(later->position().line) +
                          "\nMove the DEFAULT to the begin of the annex first");

    std::shared_ptr<const Document> changed;
    std::unique_ptr<ActionFile> after;
    const auto apply = [&] {
        changed = Document::parse(path, SetEdit(before, *type, code, structure).apply(wanted));
        after = std::make_unique<ActionFile>(changed);
        const ActionValues* now = after->find(action);
        const FactorSet* found = now ? now->find(code, structure) : nullptr;
        if (!found)
            throw Failure("the change would make no document; nothing is written");
        return found;
    };
    const FactorSet* now = apply();
    const FactorSet& old = set ? *set : none;
    if (set && alteredBesides(old, *now, wanted) == std::vector{&rowOf(Factor::CrackRed)}) {
        // A set takes crack reduction 1 by being named.
        const Value& kept = old[Factor::CrackRed];
        wanted.push_back({&rowOf(Factor::CrackRed), numberText(kept.number, 3), kept.origin.source,
                          kept.origin.status});
        now = apply();
    }
    double wantedNumber = 0;
    readNumber(number, wantedNumber);
    const auto besides = set ? alteredBesides(old, *now, wanted) : std::vector<const FactorRow*>();
    if (!besides.empty() || (*now)[factor.value].number != wantedNumber)
        throw Failure("what stands around the set would change " +
                      std::string(besides.empty() ? factor.title : besides.front()->title) +
                      " too; write it by hand");

    replaceFile(path, changed->text());
    context.data().loadActions(path);
    addDifference(answer, before, *after, *type, code);
    addFindings(answer, document, changed);
    if (const Document* office = context.data().officeDocument()) {
        const ActionFile overlay(changed, context.data().officeShared());
        const FactorSet* shown = overlay.find(action)->find(code, structure);
        if (shown && (*shown)[factor.value].number != wantedNumber)
            answer.note(office->fileName() + " lays " +
                        numberText((*shown)[factor.value].number, factor.decimals) + " over it.");
    }
    answer.note("In " + path +
                "; all else in it is as it was. The page of sources is to be made anew.");
    answer.more = "zelstandard explain " + folded(wordOf(action)) + " " + factor.key + " --code " +
                  wordOf(code) + " --for " + folded(wordOf(structure));
    return answer;
}

} // namespace

Question declareSet(CLI::App& app)
{
    auto asked = std::make_shared<Asked>();
    app.add_option("ACTION", asked->action, "An action: word, name or synonym")->required();
    app.add_option("FACTOR", asked->factor, "gamma_sup, gamma_inf, psi0 ... psi22, crack_red")
        ->required();
    app.add_option("VALUE", asked->value, "The number, with a decimal point")->required();
    app.add_option("--source", asked->source, "\"standard, table or clause, row\"")->required();
    app.add_option("--status", asked->status, "How far it is confirmed; else OFFICE");
    return [asked](const Context& context) { return answerSet(*asked, context); };
}

} // namespace command
