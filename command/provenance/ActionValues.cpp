#include <command/provenance/ActionValues.h>

#include <algorithm>
#include <optional>
#include <set>
#include <sstream>
#include <utility>

#include <zelstandard/vocabulary/XMLUtil.h>

#include <command/vocabulary/Failure.h>

namespace command
{

namespace
{

using Standard::XMLUtil;
using Kind = ValueStep::Kind;

constexpr auto crackRed = static_cast<std::size_t>(Factor::CrackRed);

Origin originOf(const Element& element, const char* source, const char* status)
{
    return {std::string(element.get(source)), std::string(element.get(status)), {}};
}

bool isEmpty(const Origin& origin) { return origin.source.empty() && origin.status.empty(); }

/// Of the attributes of the value, of its set for gammas and of its set the first pair that is
/// present.
Origin originOfValue(const Element& value, const Element& set)
{
    Origin origin = originOf(value, "SOURCE", "STATUS");
    if (isEmpty(origin) && value.name.starts_with("GAMMA"))
        origin = originOf(set, "GAMMA_SOURCE", "GAMMA_STATUS");
    if (isEmpty(origin))
        origin = originOf(set, "SOURCE", "STATUS");
    origin.note = value.get("NOTE");
    if (origin.note.empty())
        origin.note = set.get("NOTE");
    return origin;
}

bool isFollowing(const FactorRow& factor, const Element& value)
{
    return factor.leader != factor.value && isEmpty(originOf(value, "SOURCE", "STATUS"));
}

/// Whether a blank-separated list of words holds the word.
bool listHolds(std::string_view list, std::string_view word)
{
    for (std::size_t at = 0; at < list.size();) {
        const std::size_t end = std::min(list.find_first_of(" \t\r\n", at), list.size());
        if (list.substr(at, end - at) == word)
            return true;
        at = end + 1;
    }
    return false;
}

/// The key of a set by its name.
SetKey setKey(Mode code, std::string_view name)
{
    if (name == "BUILDING")
        return {code, true, BridgeType{}};
    return {code, false, XMLUtil::get()->getBridgeTypeToString(std::string(name))};
}

/// What a DEFAULT collects for one factor; the element is null for a factor that none has named.
struct Collected {
    const Element* element = nullptr;
    const Element* set = nullptr;
    double value = -1;
    bool isOffice = false;
};

/// Derives the sets of one action type.
class Derivation
{
public:
    explicit Derivation(ActionValues& type) : type_(type) {}

    void begin(const Element& annex)
    {
        type_.annexes.push_back(&annex);
        annex_ = &annex;
        code_ = XMLUtil::get()->getModeToString(std::string(annex.get("NAME")));
        defaults_ = {};
        if (code_ != Mode::EC)
            copyFromEc();
    }

    void readSet(const Element& element, bool isOffice)
    {
        isOffice_ = isOffice;
        if (element.get("NAME") == "DEFAULT")
            readDefault(element);
        else
            readNamed(element);
    }

    /// psi11, psi21 and psi22 without a source of their own take that of psi1 and psi2, which they
    /// repeat.
    void end()
    {
        for (auto& [key, set] : type_.sets) {
            if (std::get<0>(key) != code_)
                continue;
            for (const FactorRow& row : factors) {
                Value& value = set.values[static_cast<std::size_t>(row.value)];
                if (!value.isFollower)
                    continue;
                const Value& leader = set[row.leader];
                value.isLeftBehind = value.number != leader.number;
                if (value.isLeftBehind)
                    continue;
                value.origin = leader.origin;
                value.place = leader.place ? value.place : nullptr;
                if (leader.place && !value.place)
                    value.place = leader.place;
                if (!value.steps.empty())
                    value.steps.back().origin = leader.origin;
            }
        }
    }

private:
    void copyFromEc()
    {
        const std::string_view confirmed = annex_->get("BUILDING_VALUES");
        const auto sets = type_.sets; // the target may be EC's own place for an unknown word
        for (const auto& [key, source] : sets) {
            const auto [code, isBuilding, bridgeType] = key;
            if (code != Mode::EC)
                continue;
            FactorSet& target = type_.sets[{code_, isBuilding, bridgeType}];
            for (const FactorRow& row : factors) {
                const Value& from = source[row.value];
                Value& to = target.values[static_cast<std::size_t>(row.value)];
                to.number = from.number;
                to.element = from.element;
                to.place = nullptr;
                to.isFollower = from.isFollower;
                to.isLeftBehind = false;
                to.isCopy = true;
                to.origin = {from.origin.source, "INHERITED", {}};
                if (from.origin.status.empty() || from.origin.status == "OFFICE") {
                    to.origin.status = from.origin.status;
                } else if (isBuilding && listHolds(confirmed, row.element)) {
                    to.origin = originOf(*annex_, "BUILDING_SOURCE", "BUILDING_STATUS");
                    to.place = annex_;
                }
                const ValueStep& decided = from.steps.back();
                to.steps.push_back({Kind::Copy, from.number,
                                    from.element ? from.element : decided.element, from.origin,
                                    decided.isOffice});
            }
        }
    }

    /// The values of a set or DEFAULT: each the first child of its name.
    template <class Take> void readValues(const Element& set, Take take)
    {
        for (const FactorRow& row : factors)
            if (const Element* element = set.child(row.element))
                take(row, *element);
    }

    void readDefault(const Element& element)
    {
        readValues(element, [&](const FactorRow& row, const Element& value) {
            Collected& collected = defaults_[static_cast<std::size_t>(row.value)];
            double number = 0;
            if (!readNumber(value.text, number))
                return;
            collected = {&value, &element, number, isOffice_};
        });
        if (code_ == Mode::EC)
            return;
        for (auto& [key, set] : type_.sets)
            if (std::get<0>(key) == code_)
                takeDefaults(set, element);
    }

    void readNamed(const Element& element)
    {
        const auto [at, isNew] = type_.sets.try_emplace(setKey(code_, element.get("NAME")));
        FactorSet& set = at->second;
        if (isNew)
            for (Value& value : set.values)
                value.steps.push_back({Kind::Zero, 0, &element, {}, isOffice_});
        set.named.push_back(&element);
        // The office changes what it names, and nothing else by naming it.
        if (isNew || !isOffice_)
            takeDefaults(set, element);
        readValues(element, [&](const FactorRow& row, const Element& value) {
            take(set, row, Kind::Own, {&value, &element, 0, isOffice_});
        });
    }

    /// @param named the element that makes the set take them
    void takeDefaults(FactorSet& set, const Element& named)
    {
        for (const FactorRow& row : factors) {
            const auto i = static_cast<std::size_t>(row.value);
            if (defaults_[i].element)
                take(set, row, Kind::Default, defaults_[i]);
            else if (i == crackRed)
                takeCrackReduction(set.values[i], named);
        }
    }

    void takeCrackReduction(Value& value, const Element& named)
    {
        value = {1, std::move(value.steps), {}, nullptr, nullptr, false, false, false};
        value.steps.push_back({Kind::CrackRed, 1, &named, {}, isOffice_});
    }

    static void take(FactorSet& set, const FactorRow& row, Kind kind, const Collected& from)
    {
        Value& value = set.values[static_cast<std::size_t>(row.value)];
        ValueStep step{kind, value.number, from.element, originOfValue(*from.element, *from.set),
                       from.isOffice};
        if (from.isOffice)
            step.origin.status = "OFFICE";
        if (!readNumber(from.element->text, step.value)) {
            step.kind = Kind::NoNumber;
            step.value = value.number;
        } else if (kind == Kind::Default && !(step.value >= 0)) {
            step.kind = Kind::Negative;
            step.value = value.number;
        }
        // A DEFAULT is merged again into each set that is named behind it.
        if (!value.steps.empty() && value.steps.back().element == from.element)
            return;
        value.steps.push_back(step);
        if (step.kind != kind)
            return;
        value.number = step.value;
        value.origin = step.origin;
        value.element = from.element;
        value.place = from.set;
        value.isFollower = isFollowing(row, *from.element);
        value.isLeftBehind = false;
        value.isCopy = false;
    }

    ActionValues& type_;
    const Element* annex_ = nullptr;
    Mode code_{};
    std::array<Collected, factorCount> defaults_;
    bool isOffice_ = false;
};

const Element* findTypes(const Document& document)
{
    return document.root() ? document.root()->find("ACTIONTYPES") : nullptr;
}

const Element* named(const std::vector<const Element*>& elements, std::string_view name)
{
    const auto found =
        std::ranges::find(elements, name, [](const Element* e) { return e->get("NAME"); });
    return found == elements.end() ? nullptr : *found;
}

const Element* lastNamed(const Element* parent, std::string_view name)
{
    const Element* last = nullptr;
    if (parent)
        for (const Element* child : parent->children)
            if (child->get("NAME") == name)
                last = child;
    return last;
}

/// The elements below the annexes of a type.
std::vector<const Element*> annexesOf(const Element* type)
{
    const Element* annexes = type ? type->find("ANNEXES") : nullptr;
    return annexes ? annexes->children : std::vector<const Element*>();
}

void refuseDefaults(const Document& office)
{
    for (const Element& element : office.elements())
        if (element.get("NAME") == "DEFAULT" && element.parent && element.parent->name == "ANNEX")
            throw Failure(office.path() + ":" + std::to_string(element.position().line) +
                          ": a file of office values has no DEFAULT; name the structures");
}

ActionValues derive(const Element& element, const Element* office, bool isOffice)
{
    ActionValues type;
    type.word = element.get("NAME");
    type.id = XMLUtil::get()->getActionTypeIDToString(type.word);
    type.element = &element;
    Derivation derivation(type);
    const Element* annexes = element.find("ANNEXES");
    const std::vector<const Element*> added = annexesOf(office);
    const auto readOffice = [&](std::string_view name) {
        for (const Element* annex : added)
            if (annex->get("NAME") == name)
                for (const Element* set : annex->children)
                    derivation.readSet(*set, true);
    };
    for (const Element* annex : annexesOf(&element)) {
        derivation.begin(*annex);
        for (const Element* set : annex->children)
            derivation.readSet(*set, isOffice);
        if (annex == lastNamed(annexes, annex->get("NAME")))
            readOffice(annex->get("NAME"));
        derivation.end();
    }
    for (const Element* annex : added) {
        if (lastNamed(annexes, annex->get("NAME")) || named(added, annex->get("NAME")) != annex)
            continue;
        derivation.begin(*annex);
        readOffice(annex->get("NAME"));
        derivation.end();
    }
    return type;
}

} // namespace

char statusMark(const std::string& status)
{
    static constexpr std::pair<std::string_view, char> marks[] = {
        {"INHERITED",  'i'},
        {"CONVENTION", 'c'},
        {"SAFER",      's'},
        {"OFFICE",     'o'},
    };
    const auto* found = std::ranges::find(marks, status, &std::pair<std::string_view, char>::first);
    return found == std::end(marks) ? '\0' : found->second;
}

SetKey keyOf(Mode code, Structure structure)
{
    return {code, structure.isBuilding(),
            structure.isBuilding() ? BridgeType{} : structure.bridgeType};
}

const FactorSet* ActionValues::find(Mode code, Structure structure) const
{
    const auto found = sets.find(keyOf(code, structure));
    return found == sets.end() ? nullptr : &found->second;
}

const Element* ActionValues::annexOf(Mode code) const
{
    return lastNamed(element->find("ANNEXES"), wordOf(code));
}

ActionFile::ActionFile(std::shared_ptr<const Document> document,
                       std::shared_ptr<const Document> office)
    : document_(std::move(document)), office_(std::move(office))
{
    if (office_)
        refuseDefaults(*office_);
    const Element* types = findTypes(*document_);
    const Element* officeTypes = office_ ? findTypes(*office_) : nullptr;
    if (!types)
        return;
    for (const Element* type : types->children) {
        const bool isFirst = named(types->children, type->get("NAME")) == type;
        const Element* added =
            officeTypes && isFirst ? named(officeTypes->children, type->get("NAME")) : nullptr;
        types_.push_back(derive(*type, added, false));
    }
    if (officeTypes)
        for (const Element* type : officeTypes->children)
            if (!named(types->children, type->get("NAME")))
                types_.push_back(derive(*type, nullptr, true));
}

const ActionValues* ActionFile::find(ActionTypeId id) const
{
    const auto found = std::ranges::find(types_, id, &ActionValues::id);
    return found == types_.end() ? nullptr : &*found;
}

namespace
{

std::string escaped(const std::string& text)
{
    std::string result;
    for (const char c : text)
        if (c == '"')
            result += "&quot;";
        else if (c == '&')
            result += "&amp;";
        else if (c == '<')
            result += "&lt;";
        else
            result += c;
    return result;
}

/// Whether naming a set at the end of the annex gives it the factor anew.
bool isGivenByNaming(const FactorRow& factor, const Element& annex, double value)
{
    const bool isDefault = std::ranges::any_of(annex.children, [&](const Element* set) {
        return set->get("NAME") == "DEFAULT" && set->child(factor.element);
    });
    return isDefault || (factor.value == Factor::CrackRed && value != 1);
}

/// The element of a set of the office for the end of the annex. What a DEFAULT would overwrite
/// there is repeated.
/// @param wanted the values in the end; null when nothing is to be kept
/// @param isFirst whether no set of its name stands before it
std::string officeSet(const Element& set, const Element& annex, const FactorSet* wanted,
                      bool isFirst)
{
    std::string repeated;
    for (const FactorRow& factor : factors) {
        if (!wanted || set.child(factor.element))
            continue;
        const Value& value = (*wanted)[factor.value];
        if (!isGivenByNaming(factor, annex, value.number))
            continue;
        const std::string name = factor.element;
        repeated += "<" + name;
        if (!value.isFollower && !value.origin.source.empty())
            repeated += " SOURCE=\"" + escaped(value.origin.source) + "\" STATUS=\"" +
                        value.origin.status + "\"";
        repeated += ">" + numberText(value.number) + "</" + name + ">";
    }
    TextEdits edits(*set.document);
    std::string origin;
    if (!set.attribute("SOURCE"))
        origin += " SOURCE=\"Office, Office.xml, own value\"";
    if (!set.attribute("STATUS"))
        origin += " STATUS=\"OFFICE\"";
    if (!isFirst && !set.attribute("ACCEPTED"))
        origin += " ACCEPTED=\"duplicate-set: laid over by the office\"";
    const std::size_t behindName = set.begin + 1 + set.name.size();
    edits.replace(behindName, behindName, origin);
    if (!repeated.empty())
        edits.append(set, repeated);
    return edits.apply(set.begin, set.end);
}

} // namespace

void dropConfirmations(TextEdits& edits, const Element& annex,
                       const std::vector<std::string_view>& given)
{
    const Attribute* confirmed = annex.attribute("BUILDING_VALUES");
    if (!confirmed)
        return;
    std::string left;
    std::istringstream words{std::string(confirmed->value)};
    for (std::string word; words >> word;)
        if (std::ranges::find(given, word) == given.end())
            left += (left.empty() ? "" : " ") + word;
    if (left == confirmed->value)
        return;
    if (!left.empty()) {
        edits.replaceValue(*confirmed, left);
        return;
    }
    for (const char* key : {"BUILDING_VALUES", "BUILDING_SOURCE", "BUILDING_STATUS"})
        if (const Attribute* attribute = annex.attribute(key))
            edits.remove(*attribute);
}

std::string mergedText(const Document& document, const Document& office)
{
    refuseDefaults(office);
    const Element* types = findTypes(document);
    const Element* officeTypes = findTypes(office);
    if (!types || !officeTypes)
        return document.text();
    const auto borrowed = [](const Document& owned) {
        return std::shared_ptr<const Document>(std::shared_ptr<const Document>(), &owned);
    };
    const ActionFile wanted(borrowed(document), borrowed(office));
    TextEdits edits(document);
    const auto text = [&](const Element& element) {
        return office.text().substr(element.begin, element.end - element.begin);
    };
    for (const Element* added : officeTypes->children) {
        const Element* type = named(types->children, added->get("NAME"));
        if (!type) {
            edits.append(*types, text(*added));
            continue;
        }
        const ActionValues& values =
            *std::ranges::find(wanted.types(), type, &ActionValues::element);
        const Element* annexes = type->find("ANNEXES");
        std::map<const Element*, std::vector<std::string_view>> given; // for buildings
        std::set<std::pair<const Element*, std::string_view>> laid;
        for (const Element* annex : annexesOf(added)) {
            const Element* target = lastNamed(annexes, annex->get("NAME"));
            if (!target && annexes) {
                edits.append(*annexes, text(*annex));
                continue;
            }
            for (const Element* set : annex->children) {
                if (!target)
                    continue;
                const auto key =
                    setKey(XMLUtil::get()->getModeToString(std::string(annex->get("NAME"))),
                           set->get("NAME"));
                const auto found = values.sets.find(key);
                const bool isFirst = laid.emplace(target, set->get("NAME")).second &&
                                     !named(target->children, set->get("NAME"));
                edits.append(*target,
                             officeSet(*set, *target,
                                       found == values.sets.end() ? nullptr : &found->second,
                                       isFirst));
                for (const Element* value : set->children)
                    if (set->get("NAME") == "BUILDING")
                        given[target].push_back(value->name);
            }
        }
        for (const auto& [target, names] : given)
            dropConfirmations(edits, *target, names);
    }
    return edits.apply();
}

} // namespace command
