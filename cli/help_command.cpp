#include "cli/help_command.h"

#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "cli/command_parser.h"
#include "cli/commands.h"
#include "cli/completion.h"
#include "cli/man_page.h"
#include "cli/messages.h"
#include "cli/usage_error.h"
#include "files/words.h"

namespace ruvex::cli {
namespace {

struct HelpOptions {
    std::vector<std::string> command;
    bool man = false;
    std::string completion;
};

std::string completionFor(const std::string& shell) {
    if (shell == "bash" || shell == "zsh") return bashCompletion(commands());
    if (shell == "fish") return fishCompletion(commands());
    throw UsageError("--completion: " + files::inQuotes(shell) +
                     " is no shell that it is made for; write bash, zsh or fish.");
}

/// The name of a command may have two words.
std::string nameOf(const std::vector<std::string>& words) {
    std::string name;
    for (const std::string& word : words) name.append(name.empty() ? "" : " ").append(word);
    return name;
}

std::string textOf(const HelpOptions& options) {
    const int wishes = (options.man ? 1 : 0) + (options.completion.empty() ? 0 : 1) +
                       (options.command.empty() ? 0 : 1);
    if (wishes > 1) {
        throw UsageError("A command, --man and --completion do not go together. Choose one.");
    }
    if (options.man) return manPage(commands());
    return options.completion.empty() ? helpText(commands(), nameOf(options.command))
                                      : completionFor(options.completion);
}

}  // namespace

Command helpCommand() {
    const auto options = std::make_shared<HelpOptions>();
    return {
        .name = "help",
        .summary = "Tell of a command, or print the manual page or a shell's completion",
        .options = {{"COMMAND", "", "Which one; default: all of them", &options->command},
                    {"--man", "", "Print the manual page, for 'man -l'", &options->man},
                    {"--completion", "bash|zsh|fish",
                     "Print the script that lets this shell complete commands, options, presets "
                     "and parameters",
                     &options->completion}},
        .notes = "",
        .examples = {"ruvex help render", "ruvex help --man >ruvex.1",
                     "ruvex help --completion bash >ruvex.bash"},
        .run = [options] {
            std::cout << textOf(*options);
            return finishOutput();
        }};
}

}  // namespace ruvex::cli
