#include <memory>
#include <sstream>

#include <CLI/CLI.hpp>
#include <zelstandard/datafiles/DataFileKey.h>
#include <zelstandard/platform/FileCrypt.h>
#include <zelsuite/zelsuite.h>

#include <command/provenance/SafeFile.h>
#include <command/verbs/Verbs.h>
#include <command/vocabulary/Failure.h>

namespace command
{

namespace
{

using FileCrypt::Clr::KorvaneUtil;

struct Asked {
    std::vector<std::string> words;
    std::string keyFile;
};

/// The first line of the key file, else the data-file key.
std::string keyOf(const Asked& asked)
{
    if (asked.keyFile.empty())
        return Standard::getDataFileKey();
    std::string key = readFile(asked.keyFile);
    key.erase(std::min(key.find_first_of("\r\n"), key.size()));
    if (key.empty())
        throw Failure("\"" + asked.keyFile + "\" holds no key in its first line");
    return key;
}

/// Throws Failure for what the library would not read enciphered, and for another place that holds
/// something else.
void refuseOthers(const std::string& path, const std::string& bytes, const std::string& to)
{
    const auto document = Document::parse(path, bytes);
    if (document->orFail().kind() == "settings")
        throw Failure("\"" + path +
                      "\" is a settings file, which is always plain: the library "
                      "reads no other");
    if (document->kind().empty())
        throw Failure("\"" + path + "\" holds neither action types nor state attributes");
    refuseToReplace(to, document->kind());
}

Answer written(const std::string& from, const std::string& to, const char* what)
{
    Answer answer;
    Section& section = answer.section();
    section.facts = {
        {"from", from},
        {"to",   to  },
        {"what", what}
    };
    section.lines.push_back(from == to
                                ? to + " is " + what + " now."
                                : to + " is written, " + what + "; " + from + " is as it was.");
    return answer;
}

Answer encipher(const Asked& asked, const std::string& from, const std::string& to)
{
    const std::string bytes = readFile(from);
    const std::string key = keyOf(asked);
    if (KorvaneUtil::isEncrypted(from, key))
        throw Failure("\"" + from + "\" is enciphered already");
    refuseOthers(from, bytes, to);
    std::istringstream plain(bytes);
    std::ostringstream enciphered;
    if (!zelsuite::encrypt(plain, enciphered, key))
        throw Failure("\"" + from + "\" cannot be enciphered");
    replaceFile(to, enciphered.str());
    Answer answer = written(from, to, "enciphered");
    if (!asked.keyFile.empty())
        answer.note("The library opens it with the data-file key alone; this is another key.");
    return answer;
}

Answer decipher(const Asked& asked, const std::string& from, const std::string& to)
{
    (void)readFile(from);
    const std::string key = keyOf(asked);
    if (!KorvaneUtil::isEncrypted(from, key))
        throw Failure("\"" + from + "\" is not enciphered");
    std::ostringstream plain;
    if (!KorvaneUtil::decrypt(from, plain, key))
        throw Failure("\"" + from + "\" does not open with this key: another key, or damaged\n" +
                      "Another key: --key-file FILE");
    refuseToReplace(to, Document::parse(from, plain.str())->kind());
    replaceFile(to, plain.str());
    return written(from, to, "plain");
}

Answer merge(const std::string& to, const Context& context)
{
    Data& data = context.data();
    const Document& document = data.actionsDocument();
    const Document* office = data.officeDocument();
    if (!office)
        throw Failure("there is no \"" + data.officePath() + "\" to merge");
    for (const std::string& input : {data.actionsPath(), data.officePath()})
        if (isSameFile(to, input))
            throw Failure("\"" + to + "\" is one of the files to merge; name another one");
    refuseToReplace(to, document.kind());
    const auto merged = Document::parse(to, mergedText(document, *office));
    int values = 0;
    for (const Element& element : office->elements())
        values += element.children.empty() && !element.text.empty() ? 1 : 0;
    replaceFile(to, merged->text());
    Answer answer = written(data.actionsPath(), to, "with the office's values in it");
    answer.sections.front().facts.emplace_back("values", Cell(static_cast<double>(values), 0));
    answer.note(
        "Programs name this file in the place of ActionTypes.xml. Merge anew after each change.");
    answer.more = "zelstandard check " + to;
    return answer;
}

Answer answerFile(const Asked& asked, const Context& context)
{
    const auto& words = asked.words;
    const std::string& from = words[1];
    const std::string& to = words.back();
    if (words.front() == "encipher")
        return encipher(asked, from, to);
    if (words.front() == "decipher")
        return decipher(asked, from, to);
    if (words.front() == "merge" && words.size() == 2)
        return merge(to, context);
    throw Failure("file knows \"encipher FILE [TO]\", \"decipher FILE [TO]\" and \"merge TO\"");
}

} // namespace

Question declareFile(CLI::App& app)
{
    auto asked = std::make_shared<Asked>();
    app.add_option("WORDS", asked->words,
                   "encipher FILE [TO], decipher FILE [TO], merge TO; without TO in place")
        ->required()
        ->expected(2, 3);
    app.add_option("--key-file", asked->keyFile,
                   "A file whose first line is the key, in the place of the data-file key")
        ->type_name("FILE");
    return [asked](const Context& context) { return answerFile(*asked, context); };
}

} // namespace command
