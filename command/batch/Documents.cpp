#include <command/batch/Statement.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <sstream>

#include <zelstandard/context/IO.h>
#include <zelstandard/context/ZelStandard.h>
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

// Of each kind of document how the library reads and writes it, as a file and as a tree.

using Path = const std::string&;

struct DocumentKind {
    const char* name;
    void (*load)(const Call& call, Path path);
    void (*read)(const Call& call, const ZelXmlTree& tree);
    void (*save)(const Call& call, Path path);
    void (*write)(const Call& call, ZelXmlTree& tree);
};

// clang-format off
const DocumentKind documentKinds[] = {
    {"actions",
     [](const Call& call, Path path)               { call.data().loadActions(path); },
     [](const Call& call, const ZelXmlTree& tree)  { call.data().loadActions(tree, call.text()); },
     [](const Call& call, Path path)               { call.data().actions().output(path); },
     [](const Call& call, ZelXmlTree& tree)        { call.data().actions().output(tree); }},
    {"attributes",
     [](const Call& call, Path path)               { call.data().loadAttributes(path); },
     [](const Call& call, const ZelXmlTree& tree)  { call.data().loadAttributes(tree, call.text()); },
     [](const Call& call, Path path)               { call.data().attributes().output(path); },
     [](const Call& call, ZelXmlTree& tree)        { call.data().attributes().output(tree); }},
    {"settings",
     [](const Call&, Path path)                    { ZelStandard::get()->input(path); },
     [](const Call&, const ZelXmlTree& tree)       { IO::read(tree.getRoot(), ZelStandard::get()); },
     [](const Call&, Path path)                    { ZelStandard::get()->output(path); },
     [](const Call&, ZelXmlTree& tree)             { IO::write(tree, ZelStandard::get()); }},
    {"coefficients",
     [](const Call&, Path path)                    { Coefficients::get()->input(path); },
     [](const Call&, const ZelXmlTree& tree)       { Coefficients::get()->input(tree.getRoot()); },
     [](const Call&, Path path)                    { Coefficients::get()->output(path); },
     [](const Call&, ZelXmlTree& tree)             { Coefficients::get()->output(tree); }},
    {"control",
     [](const Call&, Path path)                    { Control::input(path); },
     [](const Call&, const ZelXmlTree& tree)       { Control::input(tree); },
     [](const Call&, Path path)                    { Control::output(path); },
     [](const Call&, ZelXmlTree& tree)             { Control::output(tree); }},
    {"rules", // which the library only reads
     [](const Call& call, Path path)               { std::ifstream file(path); call.data().emptyRules().read(file); },
     [](const Call& call, const ZelXmlTree& tree)  { call.data().emptyRules().read(tree); },
     nullptr,
     nullptr},
};
// clang-format on

const DocumentKind& kindOf(const std::string& name)
{
    const auto* found = std::ranges::find(
        documentKinds, name, [](const DocumentKind& k) { return std::string(k.name); });
    if (found == std::end(documentKinds))
        throw Failure("no kind of document \"" + name +
                      "\"; there are actions, attributes, settings, coefficients, control, rules");
    return *found;
}

void buildTree(ZelXmlTree& tree, const std::string& text)
{
    std::istringstream stream(text);
    tree.buildOfStream(stream);
}

/// The kind of document that a file is, by its elements.
const DocumentKind& kindOfFile(const std::string& path)
{
    const auto document = Document::read(path);
    const Element* root = document->orFail().root();
    if (root->find("ACTIONTYPES"))
        return kindOf("actions");
    // Rules have elements STATEATTRIBUTES too.
    if (!root->find("STATEINSTRUCTIONS") && root->find("STATEATTRIBUTES"))
        return kindOf("attributes");
    return kindOf("settings");
}

/// "load KIND FILE", "load KIND <<END", "load FILE".
void load(const Call& call)
{
    if (call.hasText()) {
        ZelXmlTree tree;
        buildTree(tree, call.text());
        kindOf(call[1]).read(call, tree);
    } else if (call.count() == 1) {
        const DocumentKind& kind = kindOfFile(call[1]);
        if (kind.name == std::string("settings"))
            call.data().useSettings(call[1]);
        else
            kind.load(call, call[1]);
    } else {
        kindOf(call[1]).load(call, call[2]);
    }
}

/// "save KIND FILE"; "save FILE" saves the actions.
void save(const Call& call)
{
    const DocumentKind& kind = kindOf(call.count() == 1 ? "actions" : call[1]);
    if (!kind.save)
        throw Failure(std::string("the library has no writer for ") + kind.name);
    kind.save(call, call[call.count() == 1 ? 1 : 2]);
}

/// "write KIND [into FILE]": a new document, or into what the file holds.
void write(const Call& call)
{
    const DocumentKind& kind = kindOf(call[1]);
    if (!kind.write)
        throw Failure(std::string("the library has no writer for ") + kind.name);
    ZelXmlTree tree;
    const bool isInto = call.count() > 1;
    if (isInto || call.hasText())
        buildTree(tree, isInto ? readFile(call[3]) : call.text());
    kind.write(call, tree);
    std::ostringstream text;
    tree.putToStream(text, true);
    if (isInto)
        replaceFile(call[3], text.str());
    else
        call.out() << text.str();
}

void writeFile(const Call& call) { replaceFile(call[1], call.text()); }

void showFile(const Call& call) { call.out() << readFile(call[1]); }

void copy(const Call& call) { replaceFile(call[2], readFile(call[1])); }

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

std::string laidOut(const std::string& path)
{
    ZelXmlTree tree;
    buildTree(tree, readFile(path));
    std::ostringstream text;
    tree.putToStream(text, true);
    return text.str();
}

/// "same FILE FILE": whether two documents are the same but for their layout.
void same(const Call& call)
{
    std::istringstream left(laidOut(call[1]));
    std::istringstream right(laidOut(call[2]));
    std::string leftLine;
    std::string rightLine;
    bool isLeft = true;
    bool isRight = true;
    while (isLeft && isRight && leftLine == rightLine) {
        isLeft = static_cast<bool>(std::getline(left, leftLine));
        isRight = static_cast<bool>(std::getline(right, rightLine));
    }
    if (isLeft || isRight)
        call.out() << "- " << leftLine << "\n+ " << rightLine << '\n';
    else
        call.out() << "same\n";
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
    std::istringstream lines(call.text());
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

constexpr StatementRow statements[] = {
    {"load",          "[KIND] FILE, or KIND <<END and the document",                load        },
    {"save",          "[KIND] FILE",                                                save        },
    {"write",         "KIND [into FILE], or KIND <<END",                            write       },
    {"write-file",    "FILE <<END and its text",                                    writeFile   },
    {"show",          "FILE",                                                       showFile    },
    {"lines",         "FILE WORD ...: the lines with one of the words",             showLines   },
    {"copy",          "FILE TO",                                                    copy        },
    {"same",          "FILE FILE: two documents but for layout",                    same        },
    {"make-folder",   "DIR",                                                        makeFolder  },
    {"encipher",      "FILE TO KEY",                                                encipher    },
    {"decipher",      "FILE KEY",                                                   decipher    },
    {"rewrite",       "<<END and a document a line, with \\n \\xHH: written again", rewrite     },
    {"read-numbers",  "TEXT ...: as a document's numbers are read",                 readNumbers },
    {"write-numbers", "FORMAT NUMBER ...: as they are written",                     writeNumbers},
};

} // namespace

std::span<const StatementRow> documentStatements() { return statements; }

} // namespace command
