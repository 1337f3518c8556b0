#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <optional>

#include <CLI/CLI.hpp>
#include <zelstandard/actions/ActionGroup.h>
#include <zelstandard/actions/ActionType.h>
#include <zelstandard/context/ZelStandard.h>
#include <zelstandard/vocabulary/XMLUtil.h>

#include <command/combination/Combinations.h>
#include <command/names/Names.h>
#include <command/verbs/RuleFactors.h>
#include <command/verbs/Verbs.h>
#include <command/vocabulary/Failure.h>

namespace command
{

namespace
{

using Standard::ActionGroupType;
using Standard::InstructionType;
using Standard::StateAttribute;

struct Asked {
    std::vector<std::string> actions;
    std::string rule;
    std::string permanent = "together";
    std::string leading;
    bool all = false;
};

std::string ruleWord(InstructionType rule)
{
    return Standard::XMLUtil::get()->getStringToInstruction(rule);
}

/// The parts of a list with a separator between them.
std::string joined(const std::vector<std::string>& texts, const char* separator = ", ")
{
    std::string result;
    for (const std::string& text : texts)
        result += (result.empty() ? "" : separator) + text;
    return result;
}

CombinationRule ruleAsked(const Asked& asked, Mode code)
{
    const InstructionType type =
        folded(asked.rule) == "seismic" ? InstructionType::EARTHQUAKE : ruleNamed(asked.rule);
    const auto found = combinationRule(type, code);
    if (!found) {
        std::vector<std::string> all;
        for (const CombinationRule& rule : combinationRules())
            all.push_back(ruleWord(rule.type));
        throw Failure("the rule \"" + asked.rule +
                      "\" has no formula of EN 1990. With one: " + joined(all));
    }
    CombinationRule rule = *found;
    if (asked.leading.empty())
        return rule;
    if (rule.event != ActionGroupType::A)
        throw Failure("--leading is for the accidental combination alone");
    rule.leading = factorNamed(asked.leading);
    if (rule.leading != Factor::Psi1 && rule.leading != Factor::Psi2)
        throw Failure("--leading is psi1 or psi2");
    return rule;
}

/// One action of the question with what is in force for it.
struct Member {
    std::string name; ///< in formulas and over the columns
    ActionTypeId action{};
    ActionGroupType kind{};
    const FactorSet* factors = nullptr;
    Participant part;

    [[nodiscard]] bool isVariable() const { return part.choice == Choice::Variable; }
};

/// A product of factors, with the marks of their sources.
struct Product {
    double number = 1;
    std::string formula; ///< "1.50*0.60"
    std::string marks;   ///< of the factors

    void multiply(const Value& value)
    {
        number *= value.number;
        formula += (formula.empty() ? "" : "*") + numberText(value.number, 2);
        const char mark = statusMark(value.origin.status);
        if (mark && marks.find(mark) == std::string::npos)
            marks += mark;
    }
};

/// Answers for one code and structure, whose settings are in force.
class Combiner
{
public:
    Combiner(const Asked& asked, const Context& context, Answer& answer, Mode code,
             Structure structure)
        : asked_(asked), context_(context), answer_(answer), code_(code), structure_(structure),
          rule_(ruleAsked(asked, code))
    {
    }

    void answer()
    {
        if (rule_.type == InstructionType::INFREQUENT &&
            structure_ != bridge(Standard::BridgeType::ROADWAY))
            throw Failure("the infrequent combination is for road bridges only; name one with "
                          "--for road");
        for (const std::string& action : asked_.actions)
            addMember(action);
        Section& section = answer_.section(nameOf(rule_.type) + " (" + rule_.equation + "), " +
                                           wordOf(code_) + ", " + nameOf(structure_));
        section.facts = {
            {"rule",      ruleWord(rule_.type)},
            {"code",      wordOf(code_)       },
            {"structure", wordOf(structure_)  }
        };
        std::vector<Participant> parts;
        for (const Member& member : members_)
            parts.push_back(member.part);
        for (const Combination& combination : combinationsOf(parts, rule_.leads))
            addRows(combination);
        fill(section);
        addNotes();
    }

private:
    // What the question names.

    void addMember(const std::string& text)
    {
        const std::size_t equals = text.find('=');
        const std::string word = text.substr(0, equals);
        const bool isTag = folded(word.substr(0, 4)) == "tag" && word.find(':') == 3;
        const StateAttribute* tag = isTag ? attributeInForce(word) : nullptr;
        Member member;
        member.action = tag ? actionOf(*tag, word) : actionNamed(word);
        member.name = equals != std::string::npos ? text.substr(equals + 1)
                      : tag                       ? word.substr(4)
                                                  : wordOf(member.action);
        if (member.name.find_first_not_of(' ') == std::string::npos)
            throw Failure("\"" + text + "\" gives no name; write " + word + "=NAME");
        member.factors = factorsInForce(member.action);
        for (const Member& other : members_)
            if (folded(other.name) == folded(member.name))
                throw Failure("\"" + member.name +
                              "\" stands twice; give each a name of its own, " + word + "=NAME");
        const std::vector<const StateAttribute*> tags =
            tag ? std::vector{tag} : tagsInForce(member.action);
        member.kind = kindOf(member.action);
        if (!takesPart(member, tags))
            return;
        member.part.choice = choiceOf(member);
        member.part.action = static_cast<int>(member.action);
        member.part.exclusion = shared(member, tags, "exclusion", &StateAttribute::getExclGroup);
        member.part.group = shared(member, tags, "combination", &StateAttribute::getCombGroup);
        members_.push_back(std::move(member));
    }

    const StateAttribute* attributeInForce(const std::string& word) const
    {
        const auto token = tokenNamed(word);
        const StateAttribute* tag = context_.data().attributes().findStateAttributeToToken(token);
        if (!tag || !tag->isActive())
            throw Failure("the state attribute \"" + word + "\" is not in force under " +
                          wordOf(code_) + " for " + nameOf(structure_) +
                          "\nWhy: zelstandard explain " + word + " --code " + wordOf(code_) +
                          " --for " + lowerWordOf(structure_) + " --material " +
                          Standard::XMLUtil::get()->getStringToDgnMaterial(
                              ZelStandard::get()->getDesignMaterial()));
        return tag;
    }

    static ActionTypeId actionOf(const StateAttribute& tag, const std::string& word)
    {
        if (!tag.getActionType())
            throw Failure("the state attribute \"" + word + "\" has no action");
        return tag.getActionType()->getId();
    }

    const FactorSet* factorsInForce(ActionTypeId action) const
    {
        const ActionValues* values = context_.data().actionValues().find(action);
        const FactorSet* factors = values ? values->find(code_, structure_) : nullptr;
        if (!factors)
            throw Failure(wordOf(action) + " (" + nameOf(action) + ") has no factors under " +
                          wordOf(code_) + " for " + nameOf(structure_) +
                          "\nWhere it has: zelstandard factors " + wordOf(action) +
                          " --for all --code all");
        return factors;
    }

    std::vector<const StateAttribute*> tagsInForce(ActionTypeId action) const
    {
        std::vector<const StateAttribute*> tags;
        for (const StateAttribute* tag : context_.data().attributes().getAttributes())
            if (tag->isActive() && tag->getActionType() && tag->getActionType()->getId() == action)
                tags.push_back(tag);
        return tags;
    }

    ActionGroupType kindOf(ActionTypeId action) const
    {
        const Standard::ActionType* type = context_.data().actions().findActionType(action);
        const Standard::ActionGroup* group = type ? type->getActionGroup() : nullptr;
        return group ? group->getId() : ActionGroupType::NONE;
    }

    /// Actions of accidents and earthquakes stand in the combination of their name alone; others
    /// where the rule of the data names one of their tags. An action without tags takes part.
    bool takesPart(const Member& member, const std::vector<const StateAttribute*>& tags)
    {
        const bool isEvent = member.kind == ActionGroupType::A || member.kind == ActionGroupType::E;
        auto& rules = context_.data().rules();
        const auto* instruction =
            rules.findStateInstruction(rule_.type, rules.getCurrentTemplateID());
        const bool isNamed =
            tags.empty() || !instruction || std::ranges::any_of(tags, [&](const auto* tag) {
                return instruction->findAttributeToToken(tag->getToken()) != nullptr;
            });
        if (isEvent ? rule_.event == member.kind : isNamed)
            return true;
        answer_.note(
            member.name + " takes no part: the rule " + ruleWord(rule_.type) +
            (isEvent ? " is not that of its action." : " of the data names no tag of it."));
        return false;
    }

    /// Of the permanent actions those of weight and earth have one source.
    Choice choiceOf(const Member& member) const
    {
        switch (member.kind) {
        case ActionGroupType::A:
        case ActionGroupType::E:
            return Choice::Event;
        case ActionGroupType::G:
            return member.action == ActionTypeId::SSHI || asked_.permanent == "each"
                       ? Choice::Own
                       : Choice::Together;
        case ActionGroupType::V:
        case ActionGroupType::S:
        case ActionGroupType::Z:
            return Choice::Own;
        default:
            return Choice::Variable;
        }
    }

    /// The group that all tags have; the answer says it, and also that there is none when they
    /// differ.
    int shared(const Member& member, const std::vector<const StateAttribute*>& tags,
               const std::string& kind, int (StateAttribute::*get)() const)
    {
        if (tags.empty())
            return 0;
        const int first = (tags.front()->*get)();
        if (!std::ranges::all_of(tags, [&](const auto* tag) { return (tag->*get)() == first; })) {
            undecided_[kind].push_back(member.name);
            return 0;
        }
        if (first != 0)
            groups_[kind + " group " + std::to_string(first)].push_back(member.name);
        return first;
    }

    // The factors.

    Product productOf(const Member& member, Role role, bool isSup) const
    {
        static const Product none{0, {}, {}};
        Product product;
        if (role == Role::Absent)
            return none;
        const bool isVariable = role == Role::Leading || role == Role::Accompanying;
        if (rule_.hasGamma && role != Role::Event)
            product.multiply((*member.factors)[isSup ? Factor::GammaSup : Factor::GammaInf]);
        else if (isVariable && !isSup)
            return none;
        const auto psi = role == Role::Leading        ? rule_.leading
                         : role == Role::Accompanying ? rule_.accompanying
                                                      : std::nullopt;
        if (psi)
            product.multiply((*member.factors)[*psi]);
        if (product.formula.empty())
            product.formula = "1.00";
        return product;
    }

    /// One row of the matrix: for each action the factor when it acts unfavourably and favourably.
    struct Row {
        std::vector<Product> sup;
        std::vector<Product> inf;
        std::vector<std::size_t> leaders;
        std::vector<std::string> leading; ///< names of the leaders, of each row that is like this
        std::string permanent;            ///< "sup", "inf"; empty when they are the same
    };

    Row rowOf(const Combination& combination) const
    {
        Row row;
        row.leaders = combination.leaders;
        for (std::size_t i = 0; i < members_.size(); ++i) {
            const bool isTogether = members_[i].part.choice == Choice::Together;
            const Role role = combination.roles[i];
            const bool isSup = !isTogether || combination.isSup;
            row.sup.push_back(productOf(members_[i], role, isSup));
            row.inf.push_back(productOf(members_[i], role, isTogether && isSup));
            if (isTogether && rule_.hasGamma)
                row.permanent = isSup ? "sup" : "inf";
        }
        return row;
    }

    void addRows(const Combination& combination)
    {
        const Row row = rowOf(combination);
        if (asked_.all)
            addChoices(row, 0);
        else
            addRow(row);
    }

    /// Each action from there on with the one factor and the other.
    void addChoices(Row row, std::size_t from)
    {
        if (from == members_.size()) {
            addRow(row);
            return;
        }
        const Product inf = row.inf[from];
        row.inf[from] = row.sup[from];
        addChoices(row, from + 1);
        if (inf.number == row.sup[from].number)
            return;
        row.sup[from] = row.inf[from] = inf;
        addChoices(std::move(row), from + 1);
    }

    /// Rows that are equal in all columns are one.
    void addRow(const Row& row)
    {
        static constexpr std::size_t most = 100'000;
        std::vector<double> key;
        for (std::size_t i = 0; i < members_.size(); ++i)
            key.insert(key.end(), {row.sup[i].number, row.inf[i].number});
        const auto [at, isNew] = places_.try_emplace(key, rows_.size());
        if (isNew)
            rows_.push_back(row);
        if (rows_.size() > most)
            throw Failure("more than 100000 combinations; ask without --all, or for fewer actions");
        Row& kept = rows_[at->second];
        if (kept.permanent != row.permanent)
            kept.permanent.clear();
        std::vector<std::string> names;
        for (const std::size_t leader : row.leaders)
            if (row.sup[leader].number != 0)
                names.push_back(members_[leader].name);
        const std::string leading = joined(names, "+");
        if (!leading.empty() && std::ranges::count(kept.leading, leading) == 0)
            kept.leading.push_back(leading);
    }

    // The answer.

    std::string formulaOf(const Row& row) const
    {
        std::string formula;
        for (std::size_t i = 0; i < members_.size(); ++i) {
            const Product& sup = row.sup[i];
            const Product& inf = row.inf[i];
            if (sup.number == 0 && inf.number == 0)
                continue;
            formula += formula.empty() ? "" : " + ";
            formula += members_[i].isVariable() || inf.number == sup.number
                           ? sup.formula
                           : "(" + sup.formula + "|" + inf.formula + ")";
            formula += " " + members_[i].name;
        }
        return formula.empty() ? "0" : formula;
    }

    static std::string keyOf(const std::string& name)
    {
        std::string key;
        for (const char c : name) {
            const bool isPlain = (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') ||
                                 (static_cast<unsigned char>(c) & 0x80U) != 0;
            key += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : isPlain ? c : '_';
        }
        return key;
    }

    std::vector<Column> columns() const
    {
        std::vector<Column> columns = {
            {"number",    ""         },
            {"leading",   "leading"  },
            {"permanent", "permanent"}
        };
        columns[1].hidden =
            std::ranges::all_of(rows_, [](const Row& row) { return row.leading.empty(); });
        columns[2].hidden =
            std::ranges::all_of(rows_, [](const Row& row) { return row.permanent.empty(); });
        for (const Member& member : members_) {
            const std::string key = keyOf(member.name);
            const bool isOwn = member.part.choice == Choice::Own && rule_.hasGamma;
            if (asked_.all) {
                columns.push_back({key, member.name});
                continue;
            }
            columns.push_back({key + "_sup", isOwn ? member.name + " sup" : member.name});
            columns.push_back({key + "_inf", "inf", !isOwn});
        }
        columns.push_back({"formula", "", true});
        return columns;
    }

    void fill(Section& section)
    {
        Table& table = section.table.emplace();
        table.columns = columns();
        for (const Row& row : rows_) {
            const std::string number = std::to_string(table.rows.size() + 1);
            const std::string formula = formulaOf(row);
            std::vector<Cell> cells = {Cell(static_cast<double>(table.rows.size() + 1), 0),
                                       joined(row.leading), row.permanent};
            for (std::size_t i = 0; i < members_.size(); ++i) {
                cells.push_back(cellOf(row.sup[i]));
                if (!asked_.all)
                    cells.push_back(cellOf(row.inf[i]));
            }
            cells.emplace_back(formula);
            table.rows.push_back(std::move(cells));
            if (!asked_.all)
                section.lines.push_back(std::string("  ").append(number).append("  ") += formula);
        }
        hideWhatIsTooWide(table);
    }

    static Cell cellOf(const Product& product)
    {
        Cell cell(std::round(product.number * 1e9) / 1e9); // 1.5 * 0.7 is 1.05
        cell.marks = product.marks;
        return cell;
    }

    /// The formulas say the same.
    void hideWhatIsTooWide(Table& table)
    {
        static constexpr std::size_t pageWidth = 100;
        std::size_t width = 0;
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            std::size_t widest = widthOf(table.columns[i].title);
            for (const auto& row : table.rows)
                widest = std::max(widest, (row[i].number ? numberText(*row[i].number, 2).size()
                                                         : widthOf(row[i].text)) +
                                              row[i].marks.size());
            width += table.columns[i].hidden ? 0 : widest + 2;
        }
        if (width <= pageWidth || asked_.all)
            return;
        for (std::size_t i = 3; i < table.columns.size(); ++i)
            table.columns[i].hidden = true;
        answer_.note("The matrix is wider than the page: --format csv.");
    }

    void addNotes()
    {
        if (std::ranges::any_of(members_, &Member::isVariable) && !asked_.all)
            answer_.note("A variable action acts only where it is unfavourable: its factor means "
                         "this or 0.");
        for (const auto& [group, names] : groups_)
            if (names.size() > 1)
                answer_.note(joined(names) + ": " + group +
                             (group.starts_with("excl") ? ", never together."
                                                        : ", lead and accompany together."));
        for (const auto& [kind, names] : undecided_)
            answer_.note(joined(names) + ": no " + kind +
                         " group, since the tags in force differ; name one, tag:WORD.");
        for (std::size_t i = 0; i < members_.size(); ++i)
            for (std::size_t j = 0; j < i; ++j)
                if (members_[i].isVariable() && members_[i].action == members_[j].action &&
                    (members_[i].part.exclusion == 0))
                    answer_.note(members_[j].name + ", " + members_[i].name +
                                 ": one action, so they lead and accompany together.");
        if (rule_.event == ActionGroupType::A)
            answer_.note(wordOf(code_) + ": the leading action takes " +
                         factors[static_cast<std::size_t>(*rule_.leading)].title +
                         "; a country may choose the other, --leading psi1 or psi2.");
        if (rule_.hasGamma)
            answer_.note("Not applied: EN 1990, 6.10a and 6.10b.");
        if (rule_.hasGamma && std::ranges::any_of(members_, [](const Member& member) {
                return (*member.factors)[Factor::CrackRed].number != 1;
            }))
            answer_.note("Not applied: crack reduction.");
        if (!structure_.isBuilding())
            answer_.note("Not applied: EN 1990, A2.2.2 to A2.2.4 (wind need not act with "
                         "temperature, snow not with traffic), beyond the groups of the data.");
    }

    const Asked& asked_;
    const Context& context_;
    Answer& answer_;
    Mode code_;
    Structure structure_;
    CombinationRule rule_;
    std::vector<Member> members_;
    std::vector<Row> rows_;
    std::map<std::vector<double>, std::size_t> places_;
    std::map<std::string, std::vector<std::string>> groups_;
    std::map<std::string, std::vector<std::string>> undecided_;
};

Answer answerCombine(const Asked& asked, const Context& context)
{
    Answer answer;
    for (const Structure structure : context.structures())
        for (const Mode code : context.codes()) {
            const InForce inForce(code, structure);
            Combiner(asked, context, answer, code, structure).answer();
        }
    context.noteSettings(answer);
    context.noteOffice(answer);
    const std::string& first = asked.actions.front();
    answer.more = std::string("zelstandard ") +
                  (first.starts_with("tag:") ? "explain " : "factors ") +
                  first.substr(0, first.find('=')) + " --code " + wordOf(context.codes().front()) +
                  " --for " + lowerWordOf(context.structures().front());
    return answer;
}

} // namespace

Question declareCombine(CLI::App& app)
{
    auto asked = std::make_shared<Asked>();
    app.add_option("ACTION", asked->actions,
                   "Actions or state attributes (tag:WORD), each with a NAME for its column: "
                   "ACTION=NAME")
        ->required();
    app.add_option("--rule", asked->rule,
                   "fundamental, accidental, seismic, characteristic, rare, infrequent, frequent, "
                   "quasi-permanent")
        ->type_name("RULE")
        ->required();
    app.add_option("--permanent", asked->permanent,
                   "Weight and earth all sup, then all inf; or each by itself")
        ->check(CLI::IsMember({"together", "each"}));
    app.add_option("--leading", asked->leading,
                   "What the leading action of the accidental combination takes: psi1 or psi2")
        ->type_name("PSI");
    app.add_flag("--all", asked->all, "A row for every choice, 0 of the variable actions too");
    return [asked](const Context& context) { return answerCombine(*asked, context); };
}

} // namespace command
