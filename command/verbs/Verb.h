#pragma once

#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <command/answer/Answer.h>
#include <command/verbs/Data.h>

namespace CLI
{
class App;
}

namespace command
{

/// The options that stand before or after every verb.
struct Options {
    std::string data;
    std::string language = "en";
    std::string format = "text";
    std::string color = "auto";
    std::vector<std::string> codes;
    std::vector<std::string> structures;
    std::string material;
    std::string situation;
    bool isStrict = false;
    bool hasOffice = true;
};

/// What lives from verb to verb: one verb on the command line, all lines of a batch.
struct Session {
    explicit Session(const Options& options);

    Data data;
    /// What a batch said about code, structure, material, situation; without it the settings file
    /// decides.
    std::optional<Mode> code;
    std::optional<Structure> structure;
    bool isBatch = false;
};

/// What a verb knows when it answers: the options of its line, and the data.
struct Context {
    const Options& options;
    Session& session;
    std::ostream& out; ///< for verbs that print as they go (batch)
    std::ostream& err;

    [[nodiscard]] Data& data() const { return session.data; }
    /// False when people read the answer.
    [[nodiscard]] bool isMachineRead() const { return options.format != "text"; }

    /// The codes that the question is about: --code, else the one in force.
    [[nodiscard]] std::vector<Mode> codes() const;
    [[nodiscard]] std::vector<Structure> structures() const;
    /// The only one of them; throws Failure when several were named.
    [[nodiscard]] Mode code() const;
    [[nodiscard]] Structure structure() const;
    /// Says which code and structure the settings file has decided on, where it has.
    void noteSettings(Answer& answer, bool asksCode = true, bool asksStructure = true) const;
    /// Says that programs see the office's values only after a merge, where there are any.
    void noteOffice(Answer& answer) const;
};

/// The settings of the library while the object lives; then those from before are in force again.
class InForce
{
public:
    InForce(Mode code, Structure structure);
    ~InForce();
    InForce(const InForce&) = delete;
    InForce& operator=(const InForce&) = delete;

private:
    Mode code_;
    Classification classification_;
    BridgeType bridgeType_;
};

/// Answers the question that the command line has put.
using Question = std::function<Answer(const Context&)>;

/// One word of the command line.
struct Verb {
    const char* name;
    const char* purpose; ///< one line
    const char* example; ///< works on the shipped data
    /// Declares the verb's own options, and gives what answers them.
    Question (*declare)(CLI::App& app);
};

/// Every verb, in the order of the help. In main.cpp.
extern const std::vector<Verb> verbs;

/// Answers one command line, without the name of the program, and prints the answer.
/// @param session the session of a batch; null for one of its own
/// @return the exit status: 0 fine, 1 findings, 2 wrong usage or unreadable input
int answerLine(const std::vector<std::string>& words, Session* session, const Options& defaults,
               std::ostream& out, std::ostream& err);

// Where a value comes from, as answers show it.

Place placeOf(const Element& element);
/// A number with the mark and status of its source.
Cell cellOf(const Value& value, int decimals);
/// The word in lower case, for a question to ask next: "building".
std::string lowerWordOf(Structure structure);
/// "LW  Wind loads, building"
std::string titleOf(ActionTypeId action, Structure structure);

} // namespace command
