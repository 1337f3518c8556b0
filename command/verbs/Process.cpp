#include <command/verbs/Process.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <ostream>
#include <sstream>

#include <zelstandard/context/ZelStandard.h>
#include <zelstandard/flat.h>
#include <zelstandard/platform/FileCrypt.h>
#include <zelstandard/platform/ZelXml.h>
#include <zelsuite/zelsuite.h>

#include <command/provenance/SafeFile.h>
#include <command/vocabulary/Failure.h>

namespace command
{

using namespace Standard;

namespace
{

struct Call {
    const Statement& statement;
    const Context& context;

    [[nodiscard]] std::size_t count() const { return statement.words.size() - 1; }
    /// The operand of that number, from 1; throws Failure when it is missing.
    [[nodiscard]] const std::string& operator[](std::size_t index) const
    {
        if (index >= statement.words.size())
            throw Failure(statement.words.front() + " needs more words");
        return statement.words[index];
    }
    [[nodiscard]] double number(std::size_t index) const
    {
        double value = 0;
        if (!readNumber((*this)[index], value))
            throw Failure("\"" + (*this)[index] + "\" is no number");
        return value;
    }
    [[nodiscard]] std::ostream& out() const { return context.out; }
};

// Bytes in a line: those that do not print are "\n", "\r", "\t", "\0" or "\xHH".

std::string bytesOf(const std::string& text)
{
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || ++i == text.size()) {
            bytes += text[std::min(i, text.size() - 1)];
            continue;
        }
        static const std::string letters = "nrt0";
        if (const auto at = letters.find(text[i]); at != std::string::npos)
            bytes += "\n\r\t\0"[at];
        else if (text[i] == 'x')
            bytes += static_cast<char>(
                std::stoi("0x0" + text.substr(std::exchange(i, i + 2) + 1, 2), nullptr, 16));
        else
            bytes += text[i];
    }
    return bytes;
}

std::string printable(const std::string& bytes)
{
    std::string text;
    for (const char c : bytes) {
        static const char* const digits = "0123456789ABCDEF";
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x20 && byte < 0x7F)
            text += c;
        else
            text += std::string("\\x") + digits[byte >> 4] + digits[byte & 15];
    }
    return text;
}

// Documents.

std::string rewritten(const std::string& document)
{
    ZelXmlTree tree;
    std::istringstream stream(document);
    if (!tree.buildOfStream(stream))
        return "none";
    std::ostringstream text;
    tree.putToStream(text, false);
    return text.str().substr(text.str().find("?>") + 2);
}

/// Each line of the text is a document; behind it stands what is written of what was read, without
/// the declaration.
void rewrite(const Call& call)
{
    std::istringstream lines(call.statement.text);
    for (std::string line; std::getline(lines, line);) {
        const std::string result = printable(rewritten(bytesOf(line)));
        call.out() << line << "  =>  " << (result == line ? "same" : result) << '\n';
    }
}

/// What the number readers make of the texts: a whole number, a number, and a number in the place
/// of -7.
void readNumbers(const Call& call)
{
    for (std::size_t i = 1; i <= call.count(); ++i) {
        ZelXmlTree tree;
        ZelXmlData* root = tree.open("A", false);
        ZelXmlData* child = ZelXmlData::openChild(root, "V", false);
        ZelXmlData::setData(child, bytesOf(call[i]));
        double field = -7;
        ZelXmlDataUtil::readValToChild(child, field);
        call.out() << '"' << call[i] << "\" "
                   << std::to_string(ZelXmlDataUtil::getChildInt(root, "V")) << ' '
                   << numberText(ZelXmlDataUtil::getChildDouble(root, "V")) << ' '
                   << numberText(field) << '\n';
    }
}

/// The numbers as the format writes them into a document, on one line.
void writeNumbers(const Call& call)
{
    for (std::size_t i = 2; i <= call.count(); ++i) {
        ZelXmlTree tree;
        ZelXmlData* root = tree.open("A", false);
        ZelXmlDataUtil::setChildData(root, "V", call.number(i), call[1].c_str());
        call.out() << (i == 2 ? "" : " ") << ZelXmlDataUtil::getChildString(root, "V");
    }
    call.out() << '\n';
}

void encipher(const Call& call)
{
    std::istringstream plain(readFile(call[1]));
    std::ostringstream enciphered;
    if (!zelsuite::encrypt(plain, enciphered, call[3]))
        throw Failure("cannot encipher");
    replaceFile(call[2], enciphered.str());
}

void decipher(const Call& call)
{
    std::ostringstream plain;
    const bool isEncrypted = FileCrypt::Clr::KorvaneUtil::isEncrypted(call[1], call[2]);
    if (FileCrypt::Clr::KorvaneUtil::decrypt(call[1], plain, call[2]))
        call.out() << plain.str();
    else
        call.out() << (isEncrypted ? "refused\n" : "not enciphered\n");
}

// The settings in force.

/// Mode, classification, bridge type, building type, material, situation, ductility class, service
/// class.
void settingNumbers(const Call& call)
{
    const ZelStandard& s = *ZelStandard::get();
    std::string line;
    for (const int value :
         {static_cast<int>(s.getMode()), static_cast<int>(s.getClassification()),
          static_cast<int>(s.getBridgeType()), static_cast<int>(s.getBuildingType()),
          static_cast<int>(s.getDesignMaterial()), static_cast<int>(s.getSituation()),
          static_cast<int>(s.getDuctilityClass()), s.getServiceClass()})
        line += (line.empty() ? "" : " ") + std::to_string(value);
    call.out() << line << '\n';
}

/// The code and the use as numbers, and what holds.
void queries(const Call& call)
{
    const ZelStandard& s = *ZelStandard::get();
    call.out() << std::to_string(s.getCODE()) << ' ' << std::to_string(s.getNUTZ(false)) << ' '
               << std::to_string(s.getNUTZ(true));
    const std::pair<bool, const char*> all[] = {
        {isBuildingClassification(),          "building"          },
        {isBridgeClassification(),            "bridge"            },
        {isRailwayBridge(),                   "railway"           },
        {s.isFootbridge(),                    "footbridge"        },
        {s.isConcrete(),                      "concrete"          },
        {s.isSteel(),                         "steel"             },
        {isComposite(),                       "composite"         },
        {isCompositeSteel(),                  "composite-steel"   },
        {isCompositeConcrete(),               "composite-concrete"},
        {s.isPersistentSituation(),           "persistent"        },
        {s.isAccidentalSituation(),           "accidental"        },
        {s.isAccidentalEarthquakeSituation(), "seismic"           }
    };
    for (const auto& [holds, name] : all)
        call.out() << (holds ? std::string(" ") + name : "");
    call.out() << '\n';
}

/// Requirement classes with their crack width in m, requirements with their type, exposure classes
/// with their group.
void durability(const Call& call)
{
    const ZelStandard& s = *ZelStandard::get();
    for (const RequirementClass* c : s.getRequirementClasses())
        call.out() << "class " << c->getNameAndDescription() << ' ' << std::to_string(c->getNClas())
                   << ' ' << numberText(c->getCrackWidth()) << '\n';
    for (const Requirement* r : s.getRequirements())
        call.out() << "requirement " << r->getNameAndDescription() << ' '
                   << std::to_string(r->getNClas()) << ' '
                   << std::to_string(static_cast<int>(r->getBridgeRequirement())) << '\n';
    for (const ExposureClass* e : s.getExposureClasses())
        call.out() << "exposure " << e->getName() << ' ' << e->getDescription() << ' '
                   << std::to_string(e->getNumber()) << ' ' << std::to_string(e->getGroup())
                   << '\n';
}

/// "flat FILE": whether a catalogue is loaded then. "flat ACTION CODE STRUCTURE": its factors.
void flat(const Call& call)
{
    if (call.count() == 1) {
        call.out() << std::to_string(ZelStandardInitialiseFile(call[1].c_str())) << '\n';
        return;
    }
    double values[ZELSTANDARD_FACTORS];
    const int found = ZelStandardGetCombValues(call[1].c_str(), call[2].c_str(), call[3].c_str(),
                                               values, ZELSTANDARD_FACTORS);
    call.out() << std::to_string(found);
    for (const double value : values)
        call.out() << (found ? ' ' + numberText(value) : "");
    call.out() << '\n';
}

void installation(const Call& call)
{
    zelsuite::setInstallationDirectory(call.count() ? call[1] : "");
}

/// The lines of the file in which one of the words stands.
void showLines(const Call& call)
{
    std::istringstream lines(readFile(call[1]));
    for (std::string line; std::getline(lines, line);)
        for (std::size_t i = 2; i <= call.count(); ++i)
            if (line.find(call[i]) != std::string::npos) {
                call.out() << line << '\n';
                break;
            }
}

void makeFolder(const Call& call)
{
    std::error_code error;
    std::filesystem::create_directories(call[1], error);
    if (error)
        throw Failure("cannot make \"" + call[1] + "\"");
}

/// Lines, with words ";" between them; all behind an "each" are its own.
void runLines(const Words& words, const Context& context)
{
    Statement line;
    const auto run = [&] {
        if (!runLibraryStatement(line, context) && !runProcessStatement(line, context))
            throw Failure("the library has no \"" + line.words.front() + "\"");
        line.words.clear();
    };
    for (const std::string& word : words)
        if (word == ";" && !line.words.empty() && line.words.front() != "each")
            run();
        else
            line.words.push_back(word);
    if (line.words.empty())
        throw Failure("a line is missing");
    run();
}

/// "each NAME FIRST LAST LINE [; LINE]": the lines with each of the numbers in the place of $NAME,
/// and their answer behind it.
void each(const Call& call)
{
    for (int value = static_cast<int>(call.number(2)); value <= call.number(3); ++value) {
        Words words;
        for (std::size_t i = 4; i <= call.count(); ++i)
            words.push_back(call[i] == "$" + call[1] ? std::to_string(value) : call[i]);
        std::ostringstream answer;
        runLines(words, {call.context.options, call.context.session, answer, call.context.err});
        std::istringstream lines(answer.str());
        for (std::string text; std::getline(lines, text);)
            call.out() << std::to_string(value) << ' ' << text << '\n';
    }
}

/// The lines that a change of classification runs, each time; of the last "on-change".
struct Listener {
    Words words;
    Context context;
};
std::optional<Listener> listener;

/// "on-change LINE [; LINE]"
void onChange(const Call& call)
{
    listener.emplace(Listener{
        {call.statement.words.begin() + 1, call.statement.words.end()},
        call.context
    });
    ZelStandard::get()->addCallbackFunction(
        [](Classification) { runLines(listener->words, listener->context); });
}

struct StatementRow {
    const char* name;
    const char* usage;
    void (*run)(const Call&);
};

constexpr StatementRow statements[] = {
    {"setting-numbers", "the eight settings on one line",                             settingNumbers},
    {"queries",         "what holds of the settings",                                 queries       },
    {"durability",      "the classes of the settings object",                         durability    },
    {"installation",    "[DIR], else that of the build",                              installation  },
    {"flat",            "FILE, or ACTION CODE STRUCTURE: the two functions for C",    flat          },
    {"rewrite",         "<<END and a document a line, with \\n \\xHH: written again", rewrite       },
    {"read-numbers",    "TEXT ...: as a document's numbers are read",                 readNumbers   },
    {"write-numbers",   "FORMAT NUMBER ...: as they are written",                     writeNumbers  },
    {"encipher",        "FILE TO KEY",                                                encipher      },
    {"decipher",        "FILE KEY",                                                   decipher      },
    {"lines",           "FILE WORD ...: the lines with one of the words",             showLines     },
    {"make-folder",     "DIR",                                                        makeFolder    },
    {"on-change",       "LINE [; LINE]: run when the classification changes",         onChange      },
    {"each",            "NAME FIRST LAST LINE [; LINE]: for the numbers $NAME",       each          },
};

} // namespace

bool runProcessStatement(const Statement& statement, const Context& context)
{
    const auto* found =
        std::ranges::find(statements, statement.words.front(),
                          [](const StatementRow& row) { return std::string(row.name); });
    if (found == std::end(statements))
        return false;
    found->run({statement, context});
    return true;
}

std::string processStatements()
{
    std::string text;
    for (const StatementRow& row : statements)
        text += std::string("  ") + row.name + " " + row.usage + "\n";
    return text;
}

} // namespace command
