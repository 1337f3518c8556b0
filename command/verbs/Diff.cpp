#include <filesystem>
#include <memory>
#include <optional>

#include <CLI/CLI.hpp>

#include <command/names/Names.h>
#include <command/process/Process.h>
#include <command/verbs/Differences.h>
#include <command/verbs/Verbs.h>
#include <command/vocabulary/Failure.h>

namespace command
{

namespace
{

namespace fs = std::filesystem;
using Documents = std::shared_ptr<const Document>;

struct Asked {
    std::string left;
    std::string right;
    bool exitCode = false;
};

constexpr const char* fileNames[] = {"ActionTypes.xml", "Profiles/Standard.xml",
                                     "StateAttributes.xml"};

/// The documents of one side; null for what it does not have.
struct Side {
    Documents actions;
    Documents office;
    Documents settings;
    Documents attributes;

    [[nodiscard]] bool isEmpty() const { return !actions && !settings && !attributes; }
};

/// The text "REV:", and neither a path with a drive nor one that exists.
bool isRevision(const std::string& text)
{
    return text.size() > 1 && text.ends_with(':') && !fs::exists(text);
}

/// A file of the revision, null when it is not there.
/// @param folder the folder of the work tree that it lies in
Documents readRevision(const std::string& revision, const fs::path& folder, const std::string& name)
{
    if (revision.starts_with('-'))
        throw Failure("\"" + revision + "\" is no revision: it begins with \"-\"");
    const std::string object = revision + "./" + name;
    const auto shown = runProgram("git", {"-C", folder.string(), "cat-file", "blob", object});
    if (!shown)
        throw Failure("git is not on the path; it is needed to read \"" + revision +
                      "\". Without it compare with a copy of the folder: zelstandard diff COPY " +
                      folder.string());
    if (shown->status != 0)
        return nullptr;
    Documents document = Document::parse(object, shown->output);
    (void)document->orFail();
    return document;
}

Documents readPath(const fs::path& path)
{
    Documents document = Document::read(path.string());
    (void)document->orFail();
    return document;
}

/// A document of one of the three kinds, by what it holds.
void take(Side& side, Documents document)
{
    const Element& root = *document->root();
    const auto has = [&](const char* name) { return root.find(name) != nullptr; };
    if (has("ACTIONTYPES"))
        side.actions = std::move(document);
    else if (has("SETTINGS") || has("COEFFICIENTS") || has("STRESSBLOCK") ||
             has("STATEINSTRUCTIONS"))
        side.settings = std::move(document);
    else if (has("STATEATTRIBUTES"))
        side.attributes = std::move(document);
    else
        throw Failure(document->path() +
                      " holds neither action types nor state attributes nor settings");
}

/// @param path a file or folder of the work tree
Side readSide(const std::string& path, bool withOffice)
{
    Side side;
    if (!fs::is_directory(path)) {
        take(side, readPath(path));
        return side;
    }
    for (const char* name : fileNames)
        if (fs::exists(fs::path(path) / name))
            take(side, readPath(fs::path(path) / name));
    if (withOffice && fs::exists(fs::path(path) / "Office.xml"))
        side.office = readPath(fs::path(path) / "Office.xml");
    if (side.isEmpty())
        throw Failure("the folder \"" + path + "\" has no data files, such as " + fileNames[0]);
    return side;
}

/// What the revision has in the place of a file or folder of the work tree.
Side readSide(const std::string& revision, const std::string& path, bool withOffice)
{
    Side side;
    const bool isFolder = fs::is_directory(path);
    const fs::path folder = isFolder ? fs::path(path) : fs::absolute(path).parent_path();
    if (!isFolder) {
        if (Documents file = readRevision(revision, folder, fs::path(path).filename().string()))
            take(side, std::move(file));
    } else {
        for (const char* name : fileNames)
            if (Documents file = readRevision(revision, folder, name))
                take(side, std::move(file));
        if (withOffice)
            side.office = readRevision(revision, folder, "Office.xml");
    }
    if (side.isEmpty())
        throw Failure("git has nothing at \"" + revision + "\" for " + path +
                      "\nRevisions: git log --oneline");
    return side;
}

bool compareFiles(Answer& answer, const Side& left, const Side& right, const Context& context)
{
    const auto codes = context.options.codes.empty()
                           ? std::vector<Mode>(allCodes().begin(), allCodes().end())
                           : context.codes();
    const auto among =
        context.options.structures.empty() ? structuresNamed({"all"}) : context.structures();
    bool differs = false;
    if (!left.actions != !right.actions || !left.settings != !right.settings ||
        !left.attributes != !right.attributes)
        throw Failure("the two sides do not hold the same kinds of files");
    if (left.actions)
        differs |= addDifferences(answer, ActionFile(left.actions, left.office),
                                  ActionFile(right.actions, right.office), codes, among,
                                  context.isMachineRead());
    if (left.settings) {
        differs |= addDifferences(answer, MaterialFile(left.settings), MaterialFile(right.settings),
                                  codes);
        differs |= addRuleDifferences(answer, *left.settings, *right.settings);
    }
    if (left.attributes)
        differs |= addAttributeDifferences(answer, *left.attributes, *right.attributes);
    if (!differs && answer.sections.empty())
        answer.section().lines = {"Nothing differs."};
    return differs;
}

bool compareCodes(Answer& answer, Mode left, Mode right, const Context& context)
{
    const bool differs = addDifferences(answer, context.data().actionValues(), left, right,
                                        context.structures(), context.isMachineRead());
    context.noteSettings(answer, false, true);
    context.noteOffice(answer);
    answer.more = "zelstandard material --code " + wordOf(left) + "," + wordOf(right);
    return differs;
}

/// What a text means: nothing for a file or folder.
std::optional<Mode> codeOf(const std::string& text)
{
    if (fs::exists(text))
        return std::nullopt;
    try {
        return codeNamed(text);
    } catch (const Failure& failure) {
        const std::string reason = failure.what();
        throw Failure("\"" + text + "\" is no file or folder, and " + reason);
    }
}

Answer answerDiff(const Asked& asked, const Context& context)
{
    Answer answer;
    bool differs = false;
    const bool hasOffice = context.options.hasOffice;
    const std::string& folder = context.data().folder();
    if (isRevision(asked.left)) {
        const std::string right = asked.right.empty() ? folder : asked.right;
        if (isRevision(right))
            differs = compareFiles(answer, readSide(asked.left, folder, hasOffice),
                                   readSide(right, folder, hasOffice), context);
        else
            differs = compareFiles(answer, readSide(asked.left, right, hasOffice),
                                   readSide(right, hasOffice), context);
    } else if (asked.right.empty()) {
        throw Failure("diff takes two sides: two codes, two files, two folders, or REV: alone for "
                      "a revision and the data folder");
    } else {
        const auto left = codeOf(asked.left);
        const auto right = codeOf(asked.right);
        if (left && right)
            differs = compareCodes(answer, *left, *right, context);
        else if (left || right)
            throw Failure("a code can be compared with a code alone");
        else
            differs = compareFiles(answer, readSide(asked.left, hasOffice),
                                   readSide(asked.right, hasOffice), context);
    }
    if (asked.exitCode && differs)
        answer.status = 1;
    return answer;
}

} // namespace

Question declareDiff(CLI::App& app)
{
    auto asked = std::make_shared<Asked>();
    app.add_option("A", asked->left, "A code, a file, a folder, or REV: of git, as HEAD:")
        ->required();
    app.add_option("B", asked->right,
                   "What A is compared with; for REV: the data folder as a rule");
    app.add_flag("--exit-code", asked->exitCode, "Status 1 when there are differences");
    return [asked](const Context& context) { return answerDiff(*asked, context); };
}

} // namespace command
