#include <command/check/Rules.h>

#include <algorithm>

namespace command
{

namespace
{

using enum Severity;

// clang-format off
constexpr Rule table[] = {
    // The text
    {"not-xml",               Error,   "The file is no document: the library reads nothing of it, not even in part.", rules::notXml},
    {"not-utf8",              Error,   "A byte that is no UTF-8: a word or a source with it is not what it seems.", rules::bytes},
    {"forbidden-character",   Error,   "A control character, which XML forbids and the library lets pass.", rules::character},
    {"bad-reference",         Error,   "A bare \"&\" or an unknown entity, which XML forbids and the library lets pass.", rules::reference},
    {"bad-attribute",         Error,   "An attribute that stands twice or holds \"<\"; of two the library takes the first.", rules::attributeSyntax},
    {"bad-comment",           Error,   "\"--\" within a comment, which XML forbids and the library lets pass.", rules::comment},
    {"bad-text",              Error,   "\"]]>\" in a text, which XML forbids and the library lets pass.", rules::section},
    {"bad-declaration",       Error,   "An XML declaration that is not at the begin, or names an encoding that the library does not know.", rules::declaration},
    {"nothing-to-read",       Error,   "The file holds none of the parts that the library looks for.", rules::nothing},
    {"enciphered-settings",   Error,   "A settings file is enciphered; the library reads settings plain only.", rules::enciphered},
    // What may stand where
    {"unknown-element",       Error,   "An element that the library does not know there and passes over.", rules::unknownElement},
    {"element-name",          Warning, "An element of an unusual name where the library takes any name.", rules::elementName},
    {"unknown-attribute",     Warning, "An attribute that nobody knows: often SOURCE, STATUS or NAME misspelt.", rules::unknownAttribute},
    {"stray-text",            Warning, "A text among elements, or an element in a text: the library passes over it.", rules::strayText},
    {"duplicate-element",     Error,   "An element stands twice: the first one counts.", rules::duplicateElement},
    {"missing-element",       Error,   "An element is missing or empty and reads as a fixed word.", rules::missingElement},
    {"missing-attribute",     Error,   "NAME, OPERATOR, TYPE or TEMPLATE is missing and reads as a fixed word.", rules::missingAttribute},
    {"unknown-word",          Error,   "A word that the library does not know and reads as a fixed one. Words are exact: upper case, no blanks.", rules::unknownWord},
    {"odd-word",              Warning, "A word that reads as another one.", rules::oddWord},
    // Numbers
    {"decimal-comma",         Error,   "A number with a comma is none for the library: it counts as not given.", rules::decimalComma},
    {"malformed-number",      Error,   "A text that is no number counts as not given.", rules::malformedNumber},
    {"number-form",           Warning, "A number with a sign or an exponent: it is read, but the schemas ask for the plain form.", rules::numberForm},
    {"lost-point",            Error,   "A number without its decimal point: 150 for 1.50.", rules::lostPoint},
    {"out-of-range",          Error,   "A partial factor is from 0 to below 10, a psi and an alpha from 0 to 1, a service class 1, 2 or 3.", rules::range},
    {"zero-value",            Warning, "A material factor of 0 counts as not given.", rules::zeroValue},
    // Action types
    {"duplicate-type",        Error,   "A second action type of one name: the first one counts.", rules::duplicateType},
    {"duplicate-annex",       Error,   "A second annex of one code: it begins again as a copy of EC.", rules::duplicateAnnex},
    {"duplicate-set",         Warning, "A second set of one structure in an annex goes over the first one.", rules::duplicateSet},
    {"annex-before-ec",       Error,   "An annex before EC takes nothing of EC, or loses its values to EC.", rules::annexBeforeEc},
    {"missing-annex",         Warning, "A type lacks the annex of a code that other types have: it is inactive there.", rules::missingAnnex},
    {"set-not-in-ec",         Error,   "A set for a structure that EC lacks begins with zeros.", rules::setNotInEc},
    {"default-after-sets",    Error,   "A DEFAULT behind a set: under EC the set gets nothing of it, under another code it loses its own values.", rules::defaultAfterSets},
    {"default-reaches-bridges", Warning, "A DEFAULT of a national annex changes the bridges too, although only buildings are named.", rules::defaultReachesBridges},
    {"follower-left-behind",  Error,   "PSI1 was changed without PSI11, or PSI2 without PSI21 and PSI22, which keep what they were.", rules::followerLeftBehind},
    {"missing-value",         Warning, "Nobody gives a factor of a set: it is 0.", rules::missingValue},
    {"gamma-order",           Error,   "gamma inf is above gamma sup.", rules::gammaOrder},
    {"psi-order",             Warning, "psi1 is above psi0, or psi2 above psi1.", rules::psiOrder},
    {"infrequent-order",      Warning, "psi11 is below psi1.", rules::infrequentOrder},
    {"office-default",        Error,   "A DEFAULT in the file of the office's values, where each value names its structure.", rules::officeDefault},
    // Materials, attributes, rules
    {"earthquake-left-behind", Warning, "An annex sets PERSISTENT and not ACCIDENTAL_EQ: that of EC stays.", rules::earthquakeLeftBehind},
    {"shared-record",         Error,   "Two annexes of STRESSBLOCK for codes that share one record: the later one counts for all.", rules::sharedRecord},
    {"duplicate-tag",         Error,   "A state attribute stands twice and is one: the first action type, the rest of the later one.", rules::duplicateTag},
    {"duplicate-block",       Warning, "Two blocks of one name become one.", rules::duplicateBlock},
    {"unknown-block",         Error,   "A rule pulls in a block that nobody defines: it adds nothing.", rules::unknownBlock},
    {"block-before-definition", Error, "A rule pulls in a block that is defined behind it: it adds nothing.", rules::blockBeforeDefinition},
    {"unused-block",          Warning, "A block that no rule pulls in.", rules::unusedBlock},
    {"duplicate-rule",        Warning, "Two rules of one type and template become one.", rules::duplicateRule},
    {"repeated-tag",          Warning, "A state attribute stands twice in a rule or block: the first operator counts.", rules::repeatedTag},
    // Several files
    {"unknown-action",        Error,   "A state attribute names an action that the action types lack: all its factors are 1.", rules::unknownAction},
    {"action-without-set",    Error,   "A state attribute is offered for a structure for which its action has no factors.", rules::actionWithoutSet},
    {"unknown-tag",           Error,   "A rule names a state attribute that the file of attributes lacks.", rules::unknownTag},
    {"unused-tag",            Warning, "No rule names the state attribute: its load cases take part in nothing.", rules::unusedTag},
    {"operator-differs",      Error,   "The operator of a state attribute is another one in a rule.", rules::operatorDiffers},
    // Where values come from
    {"missing-source",        Warning, "A value without SOURCE or STATUS in a file where others have them.", rules::missingSource},
    {"malformed-source",      Warning, "A SOURCE is \"standard, table or clause, row\"; a choice of the data set is CONVENTION or OFFICE.", rules::malformedSource},
    {"unknown-status",        Error,   "A STATUS that is none of the seven.", rules::unknownStatus},
    {"inherited-differs",     Error,   "A value is marked as that of EC and is another one.", rules::inheritedDiffers},
    {"confirmed-twice",       Error,   "A value is given, and confirmed as that of EC by BUILDING_VALUES.", rules::buildingValues},
    {"malformed-tick",        Error,   "A CHECKED that has not its form, or stands where nothing can be ticked.", rules::malformedTick},
    {"stale-tick",            Warning, "A reviewer has read another value than the one that stands here.", rules::staleTick},
    // What a save through the library would lose: with --save
    {"save-rounds",           Warning, "A save rounds the value: two decimals, crack reduction three.", rules::savedValues},
    {"save-drops-annex",      Note,    "A save into a new document does not write the annex.", rules::savedAnnexes},
    {"save-rewords",          Note,    "A save writes another word of the same meaning.", rules::savedWords},
    {"save-replaces-file",    Note,    "A save of the settings to the path of this file leaves nothing but the settings.", rules::savedParts},
    {"save-forgets",          Note,    "A save into a new document keeps no comments and nothing that the library does not read.", rules::savedComments},
    // The last one, since it looks at what the others have used
    {"idle-acceptance",       Warning, "An ACCEPTED that names no rule, gives no reason, or accepts nothing.", rules::acceptance},
};
// clang-format on

} // namespace

std::span<const Rule> checkRules() { return table; }

const Rule* findRule(std::string_view name)
{
    const auto* found = std::ranges::find(table, name, &Rule::name);
    return found == std::end(table) ? nullptr : found;
}

Report check(const CheckedFiles& files)
{
    Report report;
    for (const Rule& rule : table) {
        report.begin(rule);
        rule.find(files, report);
    }
    std::vector<std::string> paths;
    for (const auto& file : files.files)
        paths.push_back(file->document->path());
    report.sort(paths);
    return report;
}

} // namespace command
