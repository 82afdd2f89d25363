// A command as a table: what it is called, what it takes, what it does. The parser, the help, and
// whatever else tells of the commands, are made from it.

#pragma once

#include <functional>
#include <string>
#include <variant>
#include <vector>

namespace CLI {
class App;
}

namespace ruvex::cli {

/// One thing that may be typed after a command. The texts are constants.
struct Option {
    /// "--rate"; "-o,--output" for one with a short form; "INPUT" for one that is told by its
    /// place.
    const char* name;
    /// What the help calls the value: "R", "WxH", "8|16"; empty for a switch.
    const char* argument;
    const char* help;
    /// Where the value goes: a switch that is on or off, one text, or a text each time it is given.
    std::variant<bool*, std::string*, std::vector<std::string>*> value;
    bool required = false;
    /// The option without which this one means nothing; null where there is none.
    const char* needs = nullptr;
};

using OptionTable = std::vector<Option>;

/// The longer form of its name, "--output" of "-o,--output", or what it is called by its place.
std::string longName(const Option& option);

struct Command {
    /// "render"; "farm submit" for one of the commands that begin with the word "farm".
    const char* name;
    const char* summary;
    /// Their targets live as long as `run`.
    OptionTable options;
    /// What the help says below the options; may be empty.
    const char* notes;
    /// Whole command lines; may be none.
    std::vector<const char*> examples;
    /// Does what the options say; the exit status. Throws UsageError for options that do not go
    /// together, other exceptions for a job that failed.
    std::function<int()> run;
};

/// The words of the command's name: {"farm", "submit"}.
std::vector<std::string> wordsOf(const Command& command);

/// The first word of the name of a command that has two; empty for others.
std::string familyOf(const Command& command);

/// Whether the name of some command begins with this word, and goes on.
bool isFamily(const std::vector<Command>& commands, const std::string& word);

/// Adds the command with its options to what the parser knows. `command` must live until the
/// command line is parsed.
CLI::App& declareCommand(CLI::App& parser, const Command& command);

}  // namespace ruvex::cli
