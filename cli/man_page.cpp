#include "cli/man_page.h"

#include <algorithm>
#include <cstring>
#include <sstream>

#include "cli/exit_status.h"
#include "cli/value_kind.h"

namespace ruvex::cli {
namespace {

/// Text as the typesetter prints it back: it takes backslashes, hyphens, and dots and apostrophes
/// at a line's beginning for its own.
std::string plain(const std::string& text) {
    std::string safe;
    bool lineBegins = true;
    for (const char letter : text) {
        if (lineBegins && (letter == '.' || letter == '\'')) safe += "\\&";
        if (letter == '\\') {
            safe += "\\e";
        } else if (letter == '-') {
            safe += "\\-";
        } else {
            safe += letter;
        }
        lineBegins = letter == '\n';
    }
    return safe;
}

std::string bold(const std::string& text) {
    return "\\fB" + plain(text) + "\\fR";
}

std::string italic(const std::string& text) {
    return "\\fI" + plain(text) + "\\fR";
}

bool same(const Option& a, const Option& b) {
    return std::strcmp(a.name, b.name) == 0 && std::strcmp(a.help, b.help) == 0;
}

bool takes(const Command& command, const Option& option) {
    return std::ranges::any_of(command.options,
                               [&](const Option& other) { return same(option, other); });
}

bool takesAllOf(const Command& command, const Command& other) {
    return !other.options.empty() && std::ranges::all_of(other.options, [&](const Option& option) {
        return takes(command, option);
    });
}

/// An earlier command all of whose options this one takes too; null where there is none.
const Command* widens(const std::vector<Command>& commands, const Command& command) {
    for (const Command& other : commands) {
        if (&other == &command) break;
        if (takesAllOf(command, other)) return &other;
    }
    return nullptr;
}

std::string headOf(const Option& option) {
    if (isPlace(option)) return italic(option.name);
    std::string head;
    for (const std::string& name : namesOf(option)) {
        head += (head.empty() ? "" : ", ") + bold(name);
    }
    return *option.argument == '\0' ? head : head + " " + italic(option.argument);
}

void addOption(std::string& page, const Option& option) {
    page.append(".TP\n").append(headOf(option)).append("\n").append(plain(option.help));
    page += ".";
    if (option.required) page += " Has to be given.";
    if (option.needs != nullptr) page.append(" Goes with ").append(bold(option.needs)).append(".");
    page += "\n";
}

/// As it stands, line for line.
void addLines(std::string& page, const std::string& text) {
    page.append(".PP\n.nf\n").append(plain(text)).append("\n.fi\n");
}

void addExamples(std::string& page, const Command& command) {
    std::string lines;
    for (const char* example : command.examples) {
        lines.append(lines.empty() ? "" : "\n").append(example);
    }
    if (!lines.empty()) {
        page += ".PP\nExamples:\n";
        addLines(page, lines);
    }
}

void addCommand(std::string& page, const std::vector<Command>& commands, const Command& command) {
    const Command* base = widens(commands, command);
    page.append(".SS ruvex ").append(plain(command.name)).append("\n");
    page.append(plain(command.summary)).append(".\n");
    if (base != nullptr) {
        page.append("Takes all that ").append(bold(std::string("ruvex ") + base->name));
        page += " takes, and:\n";
    }
    for (const Option& option : command.options) {
        if (base == nullptr || !takes(*base, option)) addOption(page, option);
    }
    const bool repeated = base != nullptr && std::strcmp(base->notes, command.notes) == 0;
    if (*command.notes != '\0' && !repeated) addLines(page, command.notes);
    addExamples(page, command);
}

void addExitStatus(std::string& page) {
    page += ".SH EXIT STATUS\n";
    for (const ExitStatus& status : kExitStatuses) {
        page.append(".TP\n").append(bold(std::to_string(status.code))).append("\n");
        page.append(plain(status.meaning)).append("\n");
    }
}

}  // namespace

std::string manPage(const std::vector<Command>& commands) {
    std::string page = ".TH RUVEX 1 \"\" \"ruvex " RUVEX_VERSION "\" \"User Commands\"\n";
    page += ".SH NAME\nruvex \\- make clips look like faulty television\n.SH SYNOPSIS\n";
    for (const Command& command : commands) {
        page.append(".B ruvex ").append(plain(command.name)).append("\n.RI [ ARGUMENTS ]\n.br\n");
    }
    page +=
        ".SH DESCRIPTION\n"
        "Runs clips through the V_Ruvex effect, which simulates poor reception and the winding of "
        "a "
        "tape. Each command lists its options with\n.BR \\-\\-help ,\nand in short with\n.BR \\-h "
        ".\n.SH COMMANDS\n";
    for (const Command& command : commands) {
        addCommand(page, commands, command);
    }
    addExitStatus(page);
    page +=
        ".SH ENVIRONMENT\n.TP\n.B RUVEX_REGISTRY\nThe file in which the module is registered.\n";
    return page;
}

}  // namespace ruvex::cli
