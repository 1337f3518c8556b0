#include <algorithm>
#include <memory>

#include <CLI/CLI.hpp>
#include <zelstandard/context/ZelStandard.h>

#include <command/names/Names.h>
#include <command/verbs/Activity.h>
#include <command/verbs/FactorTable.h>
#include <command/verbs/Verbs.h>
#include <command/vocabulary/Failure.h>

namespace command
{

namespace
{

using Kind = ValueStep::Kind;

struct Asked {
    std::string word;
    std::string factor;
};

std::string lineOf(const Element& element)
{
    return "line " + std::to_string(element.position().line);
}

/// What a step did, in a few words.
std::string describe(const ValueStep& step, const std::string& code)
{
    const bool isDefault = step.element->get("NAME") == "DEFAULT";
    switch (step.kind) {
    case Kind::Zero:
        return "a new set begins with 0";
    case Kind::Copy:
        return step.isOffice ? "office value of EC" : "copied from EC";
    case Kind::Default:
        return "DEFAULT of " + code;
    case Kind::Own:
        return step.isOffice ? "office value" : "own value of " + code;
    case Kind::CrackRed:
        return isDefault ? "1 by a DEFAULT" : "1 by being named";
    case Kind::NoNumber:
        return "\"" + step.element->text + "\" is no number: it stays";
    case Kind::Negative:
        return "\"" + step.element->text + "\" counts as not given";
    }
    return {};
}

ChainStep chainStep(const ValueStep& step, const std::string& code, int decimals)
{
    ChainStep shown;
    shown.value = Cell(step.value, decimals);
    shown.what = describe(step, code);
    shown.place = placeOf(*step.element);
    shown.source = step.origin.source;
    shown.status = step.origin.status;
    return shown;
}

/// The DEFAULTs of the code's annexes that give the factor.
std::vector<const Element*> defaultsOf(const ActionValues& action, Mode code,
                                       const FactorRow& factor)
{
    std::vector<const Element*> defaults;
    for (const Element* annex : action.annexes) {
        if (annex->get("NAME") != wordOf(code))
            continue;
        for (const Element* set : annex->children)
            if (set->get("NAME") == "DEFAULT" && set->child(factor.element))
                defaults.push_back(set);
    }
    return defaults;
}

/// Why the last step decides: one sentence or two.
std::string reasonOf(const ActionValues& action, Mode mode, const FactorRow& factor,
                     const Value& value)
{
    const std::string code = wordOf(mode);
    const ValueStep& last = value.steps.back();
    const auto defaults = defaultsOf(action, mode, factor);
    switch (last.kind) {
    case Kind::Zero:
        return mode == Mode::EC ? "No element gives it, and a set begins with zeros."
                                : "EC has no set for this structure to copy, so the set of " +
                                      code + " began with zeros: most likely a mistake.";
    case Kind::CrackRed:
        return "Crack reduction is 1 unless a DEFAULT or the set itself gives another.";
    case Kind::NoNumber:
    case Kind::Negative:
        return "The last text does not count; the value is that of the step before.";
    case Kind::Copy:
        if (value.place)
            return code + " repeats no value; its annex confirms that of EC for buildings (" +
                   value.origin.source + ").";
        return code + " gives no value: that of EC is taken" +
               (value.origin.status == "INHERITED"
                    ? ", and nobody has confirmed it for " + code + "."
                    : ".");
    case Kind::Default: {
        const auto own = std::ranges::find(value.steps, Kind::Own, &ValueStep::kind);
        if (own != value.steps.end())
            return "Its own " + own->element->text + " in " + lineOf(*own->element) +
                   " was overwritten by the DEFAULT below it.";
        return mode == Mode::EC
                   ? "The set gives no value of its own; it takes that of the DEFAULT above it."
                   : "A DEFAULT of " + code +
                         " reaches all sets of the annex, buildings and bridges alike.";
    }
    case Kind::Own:
        break;
    }
    if (last.isOffice)
        return "The office's own value stands behind all others of the annex.";
    if (defaults.empty())
        return "No DEFAULT of " + code + " stands before it or after it.";
    return "The DEFAULT of " + code + " in " + lineOf(*defaults.front()) +
           (defaults.front()->begin < last.element->begin ? " stands before it and is overwritten."
                                                          : " stands after it.");
}

std::string followingOf(const FactorRow& factor, const Value& value)
{
    const std::string leader = rowOf(factor.leader).title;
    if (value.isLeftBehind)
        return std::string(factor.title) + " is a value of its own and was left behind: " + leader +
               " has another value.";
    return std::string(factor.title) + " repeats " + leader + " and has its source.";
}

std::string subjectOf(const FactorRow& factor, ActionTypeId action)
{
    const std::string name = nameOf(action);
    return std::string(factor.title) + " of " + wordOf(action) +
           (name.empty() ? "" : " (" + name + ")");
}

/// Why there is no set.
std::string absenceOf(const ActionValues* action, Mode code, Structure structure)
{
    if (!action)
        return "The file has no such action.";
    if (!action->annexOf(code))
        return "The action has no annex " + wordOf(code) + ", so it is inactive under this code.";
    if (!action->find(Mode::EC, structure))
        return (code == Mode::EC ? "EC has no set for "
                                 : "Neither EC nor " + wordOf(code) + " has a set for ") +
               wordOf(structure) + ": the action makes no sense there.";
    return "The annex " + wordOf(code) + " stands before that of EC, so it had nothing to copy.";
}

void addNoSet(Answer& answer, const Context& context, ActionTypeId action, const FactorRow& factor,
              Mode code, Structure structure)
{
    Section& section = answer.section("no set: " + subjectOf(factor, action) + ", " + wordOf(code) +
                                      ", " + nameOf(structure));
    section.facts = {
        {"action",    wordOf(action)       },
        {"factor",    factor.key           },
        {"code",      wordOf(code)         },
        {"structure", wordOf(structure)    },
        {"fallback",  Cell(factor.fallback)}
    };
    section.lines.push_back(absenceOf(context.data().actionValues().find(action), code, structure));
    section.lines.push_back(
        std::string("The getters then give ") + numberText(factor.fallback, 1) + " for " +
        factor.title +
        " (1.0 for every factor, but 0.0 for psi21 and psi22), ZelStandardGetCombValues gives 0.");
}

void addFactor(Answer& answer, const Context& context, ActionTypeId id, const FactorRow& factor,
               Mode code, Structure structure)
{
    const ActionValues* action = context.data().actionValues().find(id);
    const FactorSet* set = action ? action->find(code, structure) : nullptr;
    if (!set) {
        addNoSet(answer, context, id, factor, code, structure);
        return;
    }
    const Value& value = (*set)[factor.value];
    const Cell number = cellOf(value, factor.decimals);
    Section& section =
        answer.section(subjectOf(factor, id) + " = " + numberText(value.number, factor.decimals) +
                       "       " + wordOf(code) + ", " + nameOf(structure));
    section.facts = {
        {"action",    wordOf(id)         },
        {"factor",    factor.key         },
        {"code",      wordOf(code)       },
        {"structure", wordOf(structure)  },
        {"value",     number             },
        {"status",    value.origin.status}
    };
    for (const ValueStep& step : value.steps)
        section.chain.push_back(chainStep(step, wordOf(code), factor.decimals));
    section.chain.back().value.marks = number.marks;
    section.lines.push_back(reasonOf(*action, code, factor, value));
    if (value.isFollower)
        section.lines.push_back(followingOf(factor, value));
    if (!value.origin.note.empty())
        section.lines.push_back("Note: " + value.origin.note + ".");
}

void explainAction(Answer& answer, const Asked& asked, const Context& context)
{
    const ActionTypeId action = actionNamed(asked.word);
    if (asked.factor.empty())
        throw Failure("which factor of " + wordOf(action) + "?\nAll: zelstandard list factors");
    const FactorRow& factor = rowOf(factorNamed(asked.factor));
    for (const Mode code : context.codes())
        for (const Structure structure : context.structures())
            addFactor(answer, context, action, factor, code, structure);
    context.noteSettings(answer);
    context.noteOffice(answer);
    answer.more = "zelstandard factors " + wordOf(action) + " --code all --for " +
                  lowerWordOf(context.structures().front());
}

void explainMaterial(Answer& answer, const Asked& asked, const Context& context)
{
    const MaterialRow& table = materialTableNamed(asked.word);
    const auto columns = columnsOf(table);
    const ZelStandard& standard = *ZelStandard::get();
    std::size_t column = 0;
    if (table.gamma)
        column = static_cast<std::size_t>(asked.factor.empty() ? standard.getSituation()
                                                               : situationNamed(asked.factor));
    if (table.alpha && folded(asked.factor) == "bridge")
        column = 1;
    else if (table.alpha)
        column =
            (asked.factor.empty() ? context.structure() : structureNamed(asked.factor)).isBuilding()
                ? 0
                : 1;
    for (const Mode code : context.codes()) {
        const Value& value = context.data().materialValues().find(table, code, column);
        const std::string what = std::string(table.table) + " (" + nameOf(table) + ")" +
                                 (table.control ? "" : std::string(", ") + columns[column]);
        if (value.steps.empty()) {
            Section& section = answer.section("no value: " + what + ", " + wordOf(code));
            section.lines.push_back("No annex gives it; the library answers " +
                                    numberText(valueOf(table, code, column), 2) + ".");
            continue;
        }
        Section& section =
            answer.section(what + " = " + numberText(value.number, 2) + "       " + wordOf(code));
        section.facts = {
            {"table",  table.table    },
            {"column", columns[column]},
            {"code",   wordOf(code)   },
            {"value",  cellOf(value,    2)},
            {"status",        value.origin.status               }
        };
        for (const ValueStep& step : value.steps)
            section.chain.push_back(chainStep(
                step, step.kind == Kind::Own ? std::string(step.element->parent->get("NAME")) : "",
                2));
        section.chain.back().value.marks = cellOf(value, 2).marks;
        if (value.isCopy)
            section.lines.push_back(
                wordOf(code) + (value.steps.size() == 1 ? " gives no value" : " stands before it") +
                ": the annex EC gives its own to all codes.");
        else if (table.control && code != Mode::EC && code != Mode::DIN_1988)
            section.lines.push_back("All codes but DIN-1988 share one record of control values.");
        if (!value.origin.note.empty())
            section.lines.push_back("Note: " + value.origin.note + ".");
    }
    context.noteSettings(answer, true, table.alpha != nullptr && asked.factor.empty());
    answer.more = "zelstandard material --code all";
}

/// Active or not, and by which rule; the element, and the factors of its action.
void addTag(Answer& answer, const Context& context, const Standard::StateAttribute& attribute,
            Mode code, Structure structure)
{
    const InForce inForce(code, structure);
    const std::string word = attribute.getPersistenceStringFromToken(attribute.getToken());
    const std::string reason = inactivityOf(attribute);
    const char* state = reason.empty() ? "active" : "inactive";
    Section& section =
        answer.section("tag:" + word + " (" + nameOf(attribute.getToken()) + ") is " + state +
                       "       " + wordOf(code) + ", " + nameOf(structure));
    section.facts = {
        {"attribute", word                         },
        {"code",      wordOf(code)                 },
        {"structure", wordOf(structure)            },
        {"active",    reason.empty() ? "yes" : "no"}
    };
    if (!reason.empty())
        section.title.push_back("Rejected by " + reason + ".");
    if (const std::string other = validatorDifference(attribute); !other.empty())
        section.title.push_back(other);
    std::string line;
    if (const Element* element = attributeElement(context.data(), word))
        line = placeOf(*element).file + ":" + std::to_string(placeOf(*element).line) + ": ";
    const Standard::ActionType* action = attribute.getActionType();
    line += "action " + (action ? wordOf(action->getId()) : "none") + ", operator " +
            operatorWord(attribute.getOperator()) + ", exclusion group " +
            std::to_string(attribute.getExclGroup()) + ", combination group " +
            std::to_string(attribute.getCombGroup()) + ".";
    section.lines.push_back(line);
    if (action && action->getFactors(code, structure.classification, structure.bridgeType)) {
        FactorTable table(context, "action");
        table.add(wordOf(action->getId()), action->getId(), code, structure, std::nullopt);
        section.table = table.finish(false);
    } else {
        section.lines.emplace_back(
            "Its action has no set there: all factors are 1, but psi21 and psi22 0.");
    }
}

void explainTag(Answer& answer, const Asked& asked, const Context& context)
{
    const Standard::StateAttributeToken token = tokenNamed(asked.word);
    const Standard::StateAttribute* attribute =
        context.data().attributes().findStateAttributeToToken(token);
    if (!attribute)
        throw Failure("\"" + context.data().attributesPath() + "\" has no " + asked.word);
    if (const Standard::ActionType* action = attribute->getActionType();
        action && !asked.factor.empty())
        throw Failure("a state attribute has no factors of its own; ask for those of its action: " +
                      ("zelstandard explain " + wordOf(action->getId()) + " " + asked.factor));
    for (const Mode code : context.codes())
        for (const Structure structure : context.structures())
            addTag(answer, context, *attribute, code, structure);
    context.noteSettings(answer);
    answer.more = "zelstandard rules --code " + wordOf(context.codes().front()) + " --for " +
                  lowerWordOf(context.structures().front());
}

Answer answerExplain(const Asked& asked, const Context& context)
{
    Answer answer;
    const bool isTag = asked.word.starts_with("tag:") || asked.word.starts_with("TAG:");
    if (!isTag && !isAction(asked.word) && isMaterialTable(asked.word))
        explainMaterial(answer, asked, context);
    else if (isTag)
        explainTag(answer, asked, context);
    else
        explainAction(answer, asked, context);
    return answer;
}

} // namespace

Question declareExplain(CLI::App& app)
{
    auto asked = std::make_shared<Asked>();
    app.add_option("WORD", asked->word,
                   "An action, a table of materials (GAMMA_C), or tag:ATTRIBUTE")
        ->required();
    app.add_option("FACTOR", asked->factor,
                   "Of an action its factor; of a table the design situation or structure");
    return [asked](const Context& context) { return answerExplain(*asked, context); };
}

} // namespace command
