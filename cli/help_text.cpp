#include "cli/help_text.h"

#include <algorithm>
#include <span>
#include <sstream>

#include "cli/exit_status.h"
#include "cli/option_group.h"
#include "cli/value_kind.h"

namespace ruvex::cli {
namespace {

constexpr std::size_t kLineWidth = 80;
constexpr std::size_t kTextColumn = 26;
/// Commands with more options list them in groups.
constexpr std::size_t kMostUngrouped = 10;

/// The text, beginning in column `column`, with line ends where the lines would be too long.
std::string wrapped(const std::string& text, std::size_t column) {
    std::istringstream words(text);
    std::string result;
    std::size_t at = column;
    for (std::string word; words >> word;) {
        if (result.empty()) {
            result = word;
        } else if (at + 1 + word.size() > kLineWidth) {
            result.append("\n").append(column, ' ').append(word);
            at = column;
        } else {
            result.append(" ").append(word);
            ++at;
        }
        at += word.size();
    }
    return result;
}

/// An option and its value, after two spaces; a long list of choices is continued in more lines.
std::string headLines(const std::string& head) {
    constexpr const char* kContinued = "\n      ";
    std::string text = "  ";
    std::size_t lineBegin = 0;
    std::size_t at = 0;
    while (at < head.size()) {
        const std::size_t end = std::min(head.find('|', at), head.size() - 1) + 1;
        if (at > 0 && text.size() - lineBegin + end - at > kLineWidth) {
            lineBegin = text.size() + 1;
            text += kContinued;
        }
        text.append(head, at, end - at);
        at = end;
    }
    return text;
}

/// "  --rate R   What it is", the text in its column.
std::string entry(const std::string& head, const std::string& text) {
    std::string line = headLines(head);
    if (line.size() + 2 > kTextColumn) {
        line.append("\n").append(kTextColumn, ' ');
    } else {
        line.resize(kTextColumn, ' ');
    }
    return line + wrapped(text, kTextColumn) + "\n";
}

/// In the short help, a list of choices that does not fit its column is left to the long help.
std::string entryHead(const Option& option, HelpLength length) {
    const std::string name = option.name;
    const std::string argument = option.argument;
    if (argument.empty()) return name;
    const std::string head = name + " " + argument;
    const bool fits = head.size() + 4 <= kTextColumn;
    const bool choice = argument.find('|') != std::string::npos;
    return length == HelpLength::Short && choice && !fits ? name + " WORD" : head;
}

/// The text up to the end of its first clause.
std::string firstClause(const std::string& text) {
    std::size_t end = text.size();
    for (const char* mark : {"; ", ". "}) end = std::min(end, text.find(mark));
    return text.substr(0, end);
}

std::string helpOf(const Option& option, HelpLength length) {
    if (length == HelpLength::Short) return firstClause(option.help);
    std::string text = option.help;
    if (option.required) text += ". Required";
    if (option.needs != nullptr) text.append(". Requires ").append(option.needs);
    return text + ".";
}

std::string entriesOf(const std::vector<const Option*>& options, HelpLength length) {
    std::string text;
    for (const Option* option : options)
        text += entry(entryHead(*option, length), helpOf(*option, length));
    return text;
}

/// Every command has them.
std::string helpEntries(HelpLength length) {
    return entry("-h", "Short help") +
           entry("--help", length == HelpLength::Short ? "All of the help" : "This help");
}

std::vector<const Option*> optionsIn(const Command& command, OptionGroup group) {
    std::vector<const Option*> options;
    for (const Option& option : command.options) {
        if (groupOf(option) == group) options.push_back(&option);
    }
    return options;
}

std::string ungroupedOptions(const Command& command, HelpLength length) {
    std::vector<const Option*> all;
    for (const Option& option : command.options) all.push_back(&option);
    return "\nOptions:\n" + entriesOf(all, length) + helpEntries(length);
}

std::string groupedOptions(const Command& command, HelpLength length) {
    std::string text;
    for (const auto& [group, title] : kGroupTitles) {
        const std::vector<const Option*> options = optionsIn(command, group);
        if (options.empty()) continue;
        text.append("\n").append(title).append(":\n").append(entriesOf(options, length));
    }
    return text + "\nHelp:\n" + helpEntries(length);
}

/// "ruvex render INPUT -o OUTPUT [OPTIONS]"
std::string usageOf(const Command& command) {
    std::string text = std::string("Usage: ruvex ") + command.name;
    for (const Option& option : command.options) {
        if (!isPlace(option) && !option.required) continue;
        std::string word =
            isPlace(option) ? option.name : namesOf(option).front() + " " + option.argument;
        text.append(option.required ? " " : " [").append(word).append(option.required ? "" : "]");
    }
    return text + " [OPTIONS]\n";
}

std::string examplesOf(const Command& command, std::size_t most) {
    if (command.examples.empty()) return "";
    std::string text = "\nExamples:\n";
    for (const char* example :
         std::span(command.examples).first(std::min(most, command.examples.size()))) {
        text += std::string("  ") + example + "\n";
    }
    return text;
}

}  // namespace

std::string programHelp(const std::vector<Command>& commands, HelpLength length) {
    std::string text =
        "Faulty television: runs clips through the V_Ruvex effect.\n"
        "Usage: ruvex COMMAND [OPTIONS]\n\nCommands:\n";
    for (const Command& command : commands) text += entry(command.name, command.summary);
    text += "\nOptions:\n" + helpEntries(length) + entry("--version", "The version");
    text += "\n'ruvex COMMAND -h' and 'ruvex COMMAND --help' tell of a command.\n";
    return length == HelpLength::Short ? text : text + "\n" + exitStatusText() + "\n";
}

std::string familyHelp(const std::vector<Command>& commands, const std::string& family,
                       HelpLength length) {
    std::string text = "Usage: ruvex " + family + " COMMAND [OPTIONS]\n\nCommands:\n";
    for (const Command& command : commands) {
        if (familyOf(command) == family) text += entry(command.name, command.summary);
    }
    text += "\nOptions:\n" + helpEntries(length);
    return length == HelpLength::Short ? text : text + "\n" + exitStatusText() + "\n";
}

std::string commandHelp(const Command& command, HelpLength length) {
    std::string text = std::string(command.summary) + ".\n" + usageOf(command);
    text += command.options.size() > kMostUngrouped ? groupedOptions(command, length)
                                                    : ungroupedOptions(command, length);
    if (length == HelpLength::Short) return text + examplesOf(command, 1);
    if (*command.notes != '\0') text += std::string("\n") + command.notes + "\n";
    return text + examplesOf(command, command.examples.size()) + "\n" + exitStatusText() + "\n";
}

}  // namespace ruvex::cli
