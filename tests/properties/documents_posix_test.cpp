// What holds of every state that a program can set and of every document that it is written into:
// what is read again is what was written, but for what a file cannot hold; writing once more
// changes no byte; and what the library does not know stays. Settings, coefficients, control
// values, action types and state attributes share the document.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <map>
#include <set>

#include <rapidcheck.h>

#include <zelstandard/actions/ActionGroupManager.h>
#include <zelstandard/context/IO.h>

#include "actions/Catalogue.h"
#include "attributes/Attributes.h"
#include "material/CoefficientTables.h"
#include "material/ControlRecords.h"

using namespace Standard;
using Text = std::string;

namespace
{

/// Uniform from the first case on.
int below(int limit) { return *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(0, limit)); }
bool maybe() { return below(2) != 0; }

/// Some of the five rooms in some order.
std::vector<int> anyOrder()
{
    std::vector<int> rooms = {0, 1, 2, 3, 4};
    for (int& room : rooms)
        std::swap(room, rooms[static_cast<std::size_t>(below(5))]);
    rooms.resize(static_cast<std::size_t>(1 + below(5)));
    return rooms;
}

/// Values that files round, some of them to each other or to nothing.
double anyValue()
{
    return *rc::gen::element(0.0, 0.5, 0.501, 1.0, 1.35, 1.355, 0.004, -0.5, 12345.125);
}

double rounded(double value, int decimals = 2)
{
    char text[40];
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return std::stod(text);
}

bool differ(double left, double right) { return std::fabs(left - right) > 1e-7; }

// ---- Action types

using Factors = std::array<double, 9>;
constexpr int building = -1;       ///< in the place of a bridge type
using Place = std::pair<int, int>; ///< code, bridge type or building

struct Type {
    int group, duration;
    std::map<Place, Factors> sets;

    bool operator==(const Type&) const = default;
};
using Types = std::map<int, Type>;

Types anyTypes()
{
    Types types;
    for (int count = below(4); count > 0; --count) {
        Type& type = types[*rc::gen::element(1, 12, 30, 40)]; // G1, V, SNOW, T and the like
        type.group = below(12);
        type.duration = below(5);
        for (int sets = below(12); sets > 0; --sets)
            for (double& factor : type.sets[{below(9), below(8) - 1}])
                factor = maybe() ? 0.5 : anyValue();
    }
    return types;
}

/// What a file holds of a type: no SIA, no bridge types but 1 to 5, two decimals (crack reduction
/// three); of a code that equals EC wherever both have a set, nothing but that it is there.
Type kept(const Type& type)
{
    Type result{type.group, type.duration, {}};
    const auto set = [&](int mode, int bridge) {
        const auto found = type.sets.find({mode, bridge});
        return found == type.sets.end() ? nullptr : &found->second;
    };
    for (const int mode : {1, 2, 3, 5, 6, 7, 8}) {
        bool isThere = false;
        bool differs = mode == 1;
        for (const int bridge : {building, 1, 2, 3, 4, 5, 6}) {
            const Factors* own = set(mode, bridge);
            const Factors* ec = set(1, bridge);
            isThere |= own && bridge != 6;
            differs |= own && ec && !std::ranges::equal(*own, *ec, std::not_fn(differ));
        }
        if (!isThere)
            continue;
        for (const int bridge : {building, 1, 2, 3, 4, 5}) {
            const Factors* own = differs ? set(mode, bridge) : nullptr;
            const auto ec = result.sets.find({1, bridge});
            if (own) {
                Factors& factors = result.sets[{mode, bridge}];
                for (std::size_t i = 0; i < 9; ++i)
                    factors[i] = rounded((*own)[i], i == 8 ? 3 : 2);
            } else if (ec != result.sets.end()) {
                result.sets[{mode, bridge}] = ec->second;
            }
        }
    }
    return result;
}

void fill(ActionTypeManager& catalogue, const Types& types)
{
    for (const auto& [id, type] : types) {
        ActionType& made = *catalogue.giveActionType(ActionType::Id{id});
        made.setActionGroup(
            ActionGroupManager::get()->findActionGroupToId(ActionGroup::Type{type.group}));
        made.setLoadDurationClass(LoadDuration{type.duration});
        for (const auto& [place, factors] : type.sets) {
            const auto [mode, bridge] = place;
            SafetyFactors& set = *made.giveFactors(
                Mode{mode}, bridge == building ? Classification::BUILDING : Classification::BRIDGE,
                BridgeType{bridge});
            std::size_t i = 0;
            for (const auto& field : support::factorFields)
                (set.*field.set)(factors[i++]);
        }
    }
}

/// The types of these identities.
/// @param ofForeign false: without what only an annex or a structure gives that the host knows
/// alone
Text textOf(const ActionTypeManager& catalogue, const Types& types, bool ofForeign = true)
{
    Text result;
    for (const auto& [id, unused] : types) {
        const ActionType* type = catalogue.findActionType(ActionType::Id{id});
        result += std::to_string(id);
        if (!type) {
            result += " missing\n";
            continue;
        }
        result += " " + std::to_string(static_cast<int>(type->getActionGroupId())) + " " +
                  std::to_string(static_cast<int>(type->getLoadDurationClass())) + "\n";
        std::istringstream lines(support::sets(*type));
        for (Text line; std::getline(lines, line);)
            if (ofForeign || (!line.starts_with("- ") && line.find(" 0 ") != line.find(' ')))
                result += line + "\n";
    }
    return result;
}

// ---- State attributes

struct Attribute {
    int action, operation, type, loadType, exclGroup, combGroup;
    std::set<int> classifications, codes, bridges;
};
using Attributes = std::map<int, Attribute>;

std::set<int> anySet(int first, int last)
{
    std::set<int> result;
    for (int value = first; value <= last; ++value)
        if (below(3) == 0)
            result.insert(value);
    return result;
}

Attributes anyAttributes()
{
    Attributes attributes;
    for (int count = below(4); count > 0; --count)
        attributes[*rc::gen::element(1, 25, 30, 60)] = {below(50),    below(6) - 1,   below(34),
                                                        below(13),    below(60) - 10, below(6),
                                                        anySet(1, 2), anySet(0, 8),   anySet(0, 6)};
    return attributes;
}

/// What a file holds: one classification or none, four codes, five bridge types, groups with a
/// word.
Attribute kept(Attribute attribute)
{
    XMLUtil& words = *XMLUtil::get();
    if (attribute.classifications.size() == 2)
        attribute.classifications.clear();
    std::erase_if(attribute.codes,
                  [](int code) { return code != 1 && code != 3 && code != 5 && code != 6; });
    std::erase_if(attribute.bridges, [](int type) { return type < 1 || type > 5; });
    if (attribute.combGroup > 3)
        attribute.combGroup = 0;
    if (words.getStringToAttributeType(AttributeType{attribute.type}) == "-")
        attribute.type = 0;
    if (words.getStringToAttributeLoadType(AttributeLoadType{attribute.loadType}) == "-")
        attribute.loadType = 0;
    return attribute;
}

void fill(StateAttributeManager& catalogue, const Attributes& attributes)
{
    for (const auto& [token, attribute] : attributes) {
        StateAttribute& made = *catalogue.giveStateAttribute(StateAttributeToken{token},
                                                             ActionType::Id{attribute.action});
        made.setOperator(Operator{attribute.operation});
        made.setType(AttributeType{attribute.type});
        made.setLoadType(AttributeLoadType{attribute.loadType});
        made.setExclGroup(attribute.exclGroup);
        made.setCombGroup(attribute.combGroup);
        for (const int value : attribute.classifications)
            made.addClassification(Classification{value});
        for (const int value : attribute.codes)
            made.addStandard(Mode{value});
        for (const int value : attribute.bridges)
            made.addBridgeType(BridgeType{value});
    }
}

Text textOf(const StateAttributeManager& catalogue, const Attributes& attributes)
{
    Text result;
    for (const auto& [token, unused] : attributes) {
        const StateAttribute* found =
            catalogue.findStateAttributeToToken(StateAttributeToken{token});
        result += (found ? support::text(*found) : std::to_string(token) + " missing") + "\n";
    }
    return result;
}

// ---- Coefficients, control values, settings

/// By coefficient, code and key.
using Table = std::map<std::array<int, 3>, double>;

Table anyTable()
{
    Table table;
    for (int i = 0; i < 11; ++i)
        for (int code = 1; code <= 8; ++code)
            for (int key = i < 9 ? 0 : 1; key <= 2; ++key)
                table[{i, code, key}] = below(4) == 0 ? anyValue() : 1.5;
    return table;
}

/// EC with two decimals, other codes where they differ from it; 0 cannot be told from nothing.
Table kept(const Table& table)
{
    Table result;
    for (const auto& [place, value] : table) {
        const double ec = table.at({place[0], 1, place[2]});
        const double ecKept = result.contains({place[0], 1, place[2]})
                                  ? result.at({place[0], 1, place[2]})
                                  : (rounded(ec) == 0.0 ? 0.0 : rounded(ec));
        result[place] =
            place[1] == 1 || !differ(value, ec) || rounded(value) == 0.0 ? ecKept : rounded(value);
    }
    return result;
}

void fill(const Table& table)
{
    support::clearCoefficients();
    for (const auto& [place, value] : table)
        support::coefficients[place[0]].set(Mode{place[1]}, place[2], value);
}

using Control6 = std::array<double, 6>; ///< strut factor, eta, lambda of EC and of DIN-1988

void fill(const Control6& values)
{
    support::setRecord(Mode::EC, {1, 1, values[0], values[1], values[2], 0});
    support::setRecord(Mode::DIN_1988, {1, 1, values[3], values[4], values[5], 0});
}

/// Below zero nothing is read.
Control6 kept(Control6 values)
{
    for (double& value : values)
        value = std::max(value, 0.0);
    return values;
}

using Settings = std::array<int, 8>;

Settings anySettings()
{
    return {below(9),     1 + below(2), below(7), below(3),
            below(7) - 1, below(3),     below(3), below(6) - 1};
}

/// The second footbridge and no bridge type become one that is given as a road bridge.
Settings kept(Settings settings)
{
    settings[2] = settings[2] == 6 ? 1 : std::max(settings[2], 1);
    if (settings[7] < 1 || settings[7] > 3)
        settings[7] = 1;
    if (settings[4] == 5 + 1)
        settings[4] = -1;
    return settings;
}

void fill(const Settings& settings)
{
    ZelStandard& context = *ZelStandard::get();
    context.setMode(Mode{settings[0]});
    context.setClassification(Classification{settings[1]});
    context.setBridgeType(BridgeType{settings[2]});
    context.setBuildingType(BuildingType{settings[3]});
    context.setDesignMaterial(DesignMaterial{settings[4]});
    context.setSituation(DesignSituation{settings[5]});
    context.setDuctilityClass(DuctilityClass{settings[6]});
    context.setServiceClass(settings[7]);
}

Text settingsText()
{
    const ZelStandard& context = *ZelStandard::get();
    Text result;
    for (const int value :
         {static_cast<int>(context.getMode()), static_cast<int>(context.getClassification()),
          static_cast<int>(context.getBridgeType()), static_cast<int>(context.getBuildingType()),
          static_cast<int>(context.getDesignMaterial()), static_cast<int>(context.getSituation()),
          static_cast<int>(context.getDuctilityClass()), context.getServiceClass()})
        result += std::to_string(value) + " ";
    return result;
}

// ---- All of it

struct State {
    Types types = anyTypes();
    Attributes attributes = anyAttributes();
    Table table = anyTable();
    Control6 control = {anyValue(), anyValue(), 0.1 + 0.2, anyValue(), anyValue(), anyValue()};
    Settings settings = anySettings();

    [[nodiscard]] State kept() const
    {
        State result = *this;
        for (auto& [id, type] : result.types)
            type = ::kept(type);
        for (auto& [token, attribute] : result.attributes)
            attribute = ::kept(attribute);
        result.table = ::kept(table);
        result.control = ::kept(control);
        result.settings = ::kept(settings);
        return result;
    }
};

/// The library's objects, of which some are the process's own.
struct Library {
    ActionTypeManager types{ZelXmlTree()};
    support::Attributes attributes;

    Library() { clear(); }

    explicit Library(const State& state)
    {
        fill(types, state.types);
        fill(*attributes, state.attributes);
        fill(state.table);
        fill(state.control);
        fill(state.settings);
    }

    static void clear()
    {
        fill(Table{});
        fill(Control6{});
        fill(Settings{3, 2, 3, 2, 2, 2, 2, 3});
    }

    void read(const ZelXmlTree& tree)
    {
        types.init(tree);
        attributes->init(tree);
        Coefficients::get()->input(tree.getRoot());
        Control::input(tree);
        IO::read(tree.getRoot(), ZelStandard::get());
    }

    void write(ZelXmlTree& tree, const std::vector<int>& order)
    {
        for (const int room : order)
            switch (room) {
            case 0:
                types.output(tree);
                break;
            case 1:
                attributes->output(tree);
                break;
            case 2:
                Coefficients::get()->output(tree);
                break;
            case 3:
                Control::output(tree);
                break;
            default:
                IO::write(tree, ZelStandard::get());
            }
    }

    /// What the rooms hold of a state.
    [[nodiscard]] Text text(const State& of, const std::vector<int>& rooms, bool ofForeign = true)
    {
        Text result;
        for (const int room : rooms)
            result += room == 0   ? textOf(types, of.types, ofForeign)
                      : room == 1 ? textOf(*attributes, of.attributes)
                      : room == 2 ? support::values()
                      : room == 3 ? support::records()
                                  : settingsText();
        return result;
    }
};

const std::vector<int> allRooms = {0, 1, 2, 3, 4};

Text writtenAnew(Library&& library)
{
    ZelXmlTree tree;
    library.write(tree, allRooms);
    return support::raw(tree);
}

// ---- Documents

/// A document that holds the rooms in some form, with elements OWN that nobody but the host knows.
class AnyDocument
{
public:
    Text operator()()
    {
        Text rooms[] = {types(), attributes(), coefficients(), control(), settings()};
        Text result;
        for (const int room : anyOrder())
            result +=
                own() + (maybe() ? rooms[room] : "<CODES>" + own() + rooms[room] + "</CODES>");
        const Text root = maybe() ? "SMOD" : "PROFILE";
        return "<" + root + ">" + own() + result + own() + "</" + root + ">";
    }

private:
    Text own()
    {
        return below(3) == 0 ? "<OWN N='" + std::to_string(++owned_) + "'/><!-- own -->" : "";
    }

    Text element(const Text& name, const Text& content)
    {
        return "<" + name + ">" + content + "</" + name + ">";
    }

    template <class Content> Text some(Content content)
    {
        Text result = own();
        for (int count = below(4); count > 0; --count)
            result += content() + own();
        return result;
    }

    /// Elements with a NAME; now and then one of another element name.
    template <class Content>
    Text named(const Text& tag, const std::vector<Text>& names, Content content)
    {
        return some([&] {
            const Text used = below(4) == 0 ? "KIND" : tag;
            return "<" + used + " SINCE='1990' NAME='" +
                   names[static_cast<std::size_t>(below(static_cast<int>(names.size())))] + "'>" +
                   content() + "</" + used + ">";
        });
    }

    Text types()
    {
        const auto set = [&] { return some([] { return Text("<PSI0 TABLE='A1.1'>7</PSI0>"); }); };
        const auto annex = [&] {
            return named("CLASSIFICATION", {"BUILDING", "ROADWAY", "DEFAULT", "TUNNEL"}, set);
        };
        const auto type = [&] {
            return (maybe() ? "<LOADDURATION>LONG<!-- -->TERM</LOADDURATION>"
                            : "<ACTIONGROUP>T</ACTIONGROUP>") +
                   some([&] {
                       return element("ANNEXES",
                                      named("ANNEX", {"EC", "BS", "CSN", "ELSEWHERE"}, annex));
                   });
        };
        return element("ACTIONTYPES", named("ACTIONTYPE", {"G1", "SNOW", "MINE"}, type));
    }

    Text attributes()
    {
        const auto attribute = [&] {
            return some([&] { return Text("<EXCLGROUP>5</EXCLGROUP>"); }) + some([&] {
                       return "<STANDARD>" + own() + "<CSN/><SIA/><EC/><CSN/></STANDARD>";
                   }) +
                   (maybe() ? "<BRIDGETYPE><ROADWAY/><RAILWAY1/></BRIDGETYPE>"
                            : "<CLASSIFICATION>BRIDGE</CLASSIFICATION>");
        };
        return element("STATEATTRIBUTES",
                       named("STATEATTRIBUTE", {"G1", "SNOW", "MINE"}, attribute));
    }

    Text coefficients()
    {
        const auto annex = [&] {
            return some([&] {
                return Text(maybe() ? "<PERSISTENT>1.9</PERSISTENT>"
                                    : "<BRIDGE SOURCE='x'>1.9</BRIDGE>");
            });
        };
        return element("COEFFICIENTS", some([&] {
                           return element(
                               *rc::gen::element<Text>("GAMMA_S", "GAMMA_RE", "ALPHA_CT"),
                               named("ANNEX", {"EC", "BS", "SIA", "ISO"}, annex));
                       }));
    }

    Text control()
    {
        return element("STRESSBLOCK", named("ANNEX", {"EC", "DIN-1988", "BS"}, [&] {
                           return some([] { return Text("<ETA>9</ETA>"); });
                       }));
    }

    Text settings()
    {
        return element("SETTINGS", some([] { return Text("<SITUATION>FIRE</SITUATION>"); }));
    }

    int owned_ = 0;
};

std::set<Text> ownIn(const ZelXmlData* element)
{
    std::set<Text> result;
    if (Text(ZelXmlData::getName(element)) == "OWN")
        result.insert(ZelXmlData::getAttributeString(element, "N"));
    for (const ZelXmlData* child = ZelXmlData::getFirstChild(element); child;
         child = ZelXmlData::getNextSibling(child))
        result.merge(ownIn(child));
    return result;
}

/// The child of the same element name and NAME, as the so-manieth of them.
const ZelXmlData* counterpart(const ZelXmlData* parent, const Text& tag, const Text& name,
                              int number)
{
    for (const ZelXmlData* child = ZelXmlData::getFirstChild(parent); child;
         child = ZelXmlData::getNextSibling(child))
        if (ZelXmlData::getName(child) == tag &&
            ZelXmlData::getAttributeString(child, "NAME") == name && number-- == 0)
            return child;
    return nullptr;
}

/// What of the host's stands in places that a reader does not take for those of the written values:
/// not in a second element of a name, in one of another element name or in one that the state
/// lacks.
std::set<Text> ownToBeKept(const ZelXmlData* before, const ZelXmlData* after)
{
    static const std::set<Text> foreign = {"MINE", "ELSEWHERE", "TUNNEL", "ISO", ""};
    std::set<Text> result;
    std::map<std::pair<Text, Text>, int> seen;
    std::set<Text> names;
    for (const ZelXmlData* child = ZelXmlData::getFirstChild(before); child;
         child = ZelXmlData::getNextSibling(child)) {
        const Text tag = ZelXmlData::getName(child);
        const Text name = ZelXmlData::getAttributeString(child, "NAME");
        const ZelXmlData* const same = counterpart(after, tag, name, seen[{tag, name}]++);
        if (tag == "OWN")
            result.insert(ZelXmlData::getAttributeString(child, "N"));
        else if (foreign.contains(name) || (tag != "KIND" && names.insert(name).second && same))
            result.merge(ownToBeKept(child, same));
    }
    return result;
}

} // namespace

TEST(Documents, OfAnyStateAreReadAgainAsItWas)
{
    const support::FreshContext context;
    EXPECT_TRUE(rc::check([] {
        const State state;
        std::vector<Text> documents = {writtenAnew(Library(state))};
        Text read;
        for (int time = 0; time < 3; ++time) {
            ZelXmlTree tree;
            RC_ASSERT(support::build(tree, documents.back()));
            Library library;
            library.read(tree);
            RC_ASSERT(library.types.getActionTypes().size() == state.types.size());
            RC_ASSERT(library.attributes->getAttributes().size() == state.attributes.size());
            if (time == 0)
                read = library.text(state, allRooms);
            documents.push_back(writtenAnew(std::move(library)));
        }
        RC_ASSERT(read == Library(state.kept()).text(state, allRooms));
        RC_ASSERT(documents[3] == documents[2]);
        if (read == Library(state).text(state, allRooms))
            RC_ASSERT(documents[1] == documents[0]);
    }));
}

TEST(Documents, OfOthersKeepWhatIsTheirsAndGiveWhatWasWritten)
{
    const support::FreshContext context;
    EXPECT_TRUE(rc::check([] {
        const State state;
        const auto rooms = anyOrder();
        const Text document = AnyDocument()();
        RC_LOG() << document << "\n";
        ZelXmlTree before;
        ZelXmlTree tree;
        RC_ASSERT(support::build(before, document) && support::build(tree, document));
        {
            Library library(state);
            library.write(tree, rooms);
            const Text once = support::raw(tree);
            RC_LOG() << once << "\n";
            library.write(tree, rooms);
            RC_ASSERT(support::raw(tree) == once);
        }
        Library library;
        library.read(tree);
        const Text read = library.text(state, rooms, false);
        RC_ASSERT(read == Library(state.kept()).text(state, rooms, false));

        const auto left = ownIn(tree.getRoot());
        for (const Text& number : ownToBeKept(before.getRoot(), tree.getRoot()))
            if (!left.contains(number))
                RC_FAIL("own element " + number + " is lost");
    }));
}

TEST(Documents, CutOrDamagedDoNoHarm)
{
    const support::FreshContext context;
    EXPECT_TRUE(rc::check([] {
        const Text document = AnyDocument()();
        const auto anywhere = [&] {
            return static_cast<std::size_t>(below(static_cast<int>(document.size())));
        };
        ZelXmlTree cut;
        RC_ASSERT(!support::build(cut, document.substr(0, anywhere())) && !cut.getRoot());

        Text damaged = document;
        for (int count = 1 + below(6); count > 0; --count)
            damaged[anywhere()] = static_cast<char>(maybe() ? below(256) : "<>/='&"[below(6)]);
        RC_LOG() << damaged << "\n";
        ZelXmlTree tree;
        const bool isRead = support::build(tree, damaged);
        RC_ASSERT(isRead == (tree.getRoot() != nullptr));
        Library library;
        library.read(tree);
        library.write(tree, allRooms);
        ZelXmlTree again;
        RC_ASSERT(support::build(again, support::raw(tree)));
    }));
}
