#include "cli/commands.h"

#include "cli/compare_command.h"
#include "cli/help_command.h"
#include "cli/level_command.h"
#include "cli/module_command.h"
#include "cli/params_command.h"
#include "cli/presets_command.h"
#include "cli/render_command.h"
#include "cli/run_command.h"

namespace ruvex::cli {

std::vector<Command> newCommands() {
    return {renderCommand(), compareCommand(), runCommand(),    levelCommand(),
            paramsCommand(), presetsCommand(), moduleCommand(), helpCommand()};
}

const std::vector<Command>& commands() {
    static const std::vector<Command> all = newCommands();
    return all;
}

}  // namespace ruvex::cli
