#include "cli/completion.h"

#include <algorithm>

#include "cli/shell_text.h"
#include "cli/value_kind.h"
#include "parameters/parameter_table.h"

namespace ruvex::cli {
namespace {

// The words of a list are parted by line ends, since labels have spaces in them. What was typed is
// compared without the marks that keep a shell from parting it.
constexpr const char* kBashHead =
    R"(# Completion of ruvex for bash. In zsh: autoload -U bashcompinit; bashcompinit; source this.
_ruvex_words() {
    local IFS=$'\n'
    mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -W "$1" -- "$typed")
}
_ruvex_looks() {
    local name
    while IFS= read -r name; do
        [[ $name == "$typed"* ]] && COMPREPLY+=("$name")
    done < <("${COMP_WORDS[0]}" presets --names 2>/dev/null)
}
_ruvex_files() {
    mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -f -- "$typed")
}
_ruvex() {
    local typed=${COMP_WORDS[COMP_CWORD]} before= command=${COMP_WORDS[1]}
    [ "$COMP_CWORD" -gt 0 ] && before=${COMP_WORDS[COMP_CWORD - 1]}
    typed=${typed//\\/}
    typed=${typed#[\"\']}
    COMPREPLY=()
    type compopt >/dev/null 2>&1 && compopt -o filenames 2>/dev/null
)";

constexpr const char* kBashTail = R"(}
complete -F _ruvex ruvex
)";

std::string lines(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) {
        text.append(text.empty() ? "" : "\n").append(word);
    }
    return text;
}

/// The labels, each with the equals sign that follows it.
std::vector<std::string> labels() {
    std::vector<std::string> names;
    for (const ParameterRow& row : parameterTable()) {
        names.push_back(std::string(row.label) + "=");
    }
    return names;
}

std::string bashWords(const std::vector<std::string>& words) {
    return "_ruvex_words " + shellQuoted(lines(words));
}

/// What completes the value of an option.
std::string bashValue(const Option& option) {
    switch (valueKind(option)) {
        case ValueKind::Choice:
            return bashWords(choicesOf(option));
        case ValueKind::PresetOrFile:
            return "_ruvex_looks; _ruvex_files";
        case ValueKind::Parameter:
            return "compopt -o nospace 2>/dev/null; " + bashWords(labels());
        case ValueKind::File:
            return "_ruvex_files";
        default:
            return ":";
    }
}

std::vector<std::string> optionNames(const Command& command) {
    std::vector<std::string> names = {"-h", "--help"};
    for (const Option& option : command.options) {
        for (const std::string& name : namesOf(option)) names.push_back(name);
    }
    return names;
}

std::string bashCases(const Command& command) {
    std::string text;
    const std::string name = command.name;
    for (const Option& option : command.options) {
        if (isPlace(option) || valueKind(option) == ValueKind::None) continue;
        std::string pattern;
        for (const std::string& form : namesOf(option)) {
            pattern.append(pattern.empty() ? "" : "|").append(shellQuoted(name + ":" + form));
        }
        text.append("        ").append(pattern).append(") ").append(bashValue(option));
        text += "; return ;;\n";
    }
    return text;
}

/// The first words of the commands, each once.
std::vector<std::string> firstWords(const std::vector<Command>& commands) {
    std::vector<std::string> names;
    for (const Command& command : commands) {
        const std::string first = wordsOf(command).front();
        if (std::ranges::count(names, first) == 0) names.push_back(first);
    }
    return names;
}

/// The second words of the commands that begin with `family`.
std::vector<std::string> secondWords(const std::vector<Command>& commands,
                                     const std::string& family) {
    std::vector<std::string> names;
    for (const Command& command : commands) {
        if (familyOf(command) == family) names.push_back(wordsOf(command).back());
    }
    return names;
}

/// Completes the second word of a command, and makes two words the command's name.
std::string bashFamilies(const std::vector<Command>& commands) {
    std::string text;
    for (const std::string& first : firstWords(commands)) {
        if (!isFamily(commands, first)) continue;
        text += "    if [ \"$command\" = " + first + " ]; then\n";
        text += "        if [ \"$COMP_CWORD\" -eq 2 ]; then " +
                bashWords(secondWords(commands, first)) + "; return; fi\n";
        text += "        command+=\" ${COMP_WORDS[2]}\"\n    fi\n";
    }
    return text;
}

/// The condition that fish tests: all words of the command's name were typed.
std::string fishCondition(const Command& command) {
    std::string text;
    for (const std::string& word : wordsOf(command)) {
        text += (text.empty() ? "" : "; and ") + ("__fish_seen_subcommand_from " + word);
    }
    return text;
}

std::string fishValue(const Option& option) {
    switch (valueKind(option)) {
        case ValueKind::Choice:
            return " -x -a " + shellQuoted(lines(choicesOf(option)));
        case ValueKind::PresetOrFile:
            return " -r -F -a '(ruvex presets --names 2>/dev/null)'";
        case ValueKind::Parameter:
            return " -x -a " + shellQuoted(lines(labels()));
        case ValueKind::File:
            return " -r -F";
        case ValueKind::Text:
            return " -x";
        default:
            return "";
    }
}

/// The last word of the command's name, after the words before it.
std::string fishCommand(const Command& command) {
    const std::string family = familyOf(command);
    std::string text = "complete -c ruvex -n __fish_use_subcommand -f -a ";
    if (!family.empty()) {
        text +=
            family + "\ncomplete -c ruvex -n '__fish_seen_subcommand_from " + family + "' -f -a ";
    }
    return text + wordsOf(command).back() + " -d " + shellQuoted(command.summary) + "\n";
}

std::string fishOption(const Command& command, const Option& option) {
    std::string text = "complete -c ruvex -n '" + fishCondition(command) + "'";
    for (const std::string& name : namesOf(option)) {
        text += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
    }
    return text + fishValue(option) + " -d " + shellQuoted(option.help) + "\n";
}

}  // namespace

std::string bashCompletion(const std::vector<Command>& commands) {
    std::vector<std::string> first = firstWords(commands);
    first.insert(first.end(), {"-h", "--help", "--version"});
    std::string text = kBashHead;
    text += "    if [ \"$COMP_CWORD\" -le 1 ]; then " + bashWords(first) + "; return; fi\n";
    text += bashFamilies(commands);
    text += "    case $command:$before in\n";
    for (const Command& command : commands) text += bashCases(command);
    text += "    esac\n    case $command:$typed in\n";
    for (const Command& command : commands) {
        text.append("        ").append(shellQuoted(std::string(command.name) + ":")).append("-*) ");
        text.append(bashWords(optionNames(command))).append("; return ;;\n");
    }
    text += "        help:*) " + bashWords(firstWords(commands)) + "; return ;;\n";
    return text + "    esac\n    _ruvex_files\n" + kBashTail;
}

std::string fishCompletion(const std::vector<Command>& commands) {
    std::string text = "# Completion of ruvex for fish.\n";
    for (const Command& command : commands) text += fishCommand(command);
    for (const Command& command : commands) {
        for (const Option& option : command.options) {
            if (!isPlace(option)) text += fishOption(command, option);
        }
    }
    return text;
}

}  // namespace ruvex::cli
