// A command line as if it were typed, with commands of its own.

#pragma once

#include <string>
#include <vector>

#include "cli/command_parser.h"
#include "cli/level_job.h"
#include "cli/render_options.h"

namespace ruvex::fuzz {

class TypedLine {
public:
    TypedLine();

    /// The command that the words behind the program's name mean; null where a text was asked for,
    /// which then is not empty. Throws UsageError.
    const cli::Command* type(const std::vector<std::string>& words);

    /// Where the values of `render` and of `level` go.
    cli::RenderOptions render;
    cli::LevelOptions level;

    const cli::Command& command(std::string_view name) const;

    /// The values of the command's options, each as text, in the table's order.
    std::vector<std::string> valuesOf(const cli::Command& command) const;

    /// The words, without the program's name, that commandText writes for the command.
    std::vector<std::string> textOf(const cli::Command& command) const;

private:
    std::vector<cli::Command> commands_;
};

/// Demands that options have the values that they were given. A file whose name begins as options
/// do may have got its folder's name in front.
void demandSameValues(const std::vector<std::string>& given, const std::vector<std::string>& read);

}  // namespace ruvex::fuzz
