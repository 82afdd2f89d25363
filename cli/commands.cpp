#include "cli/commands.h"

#include <utility>

#include "cli/compare_command.h"
#include "cli/farm_commands.h"
#include "cli/help_command.h"
#include "cli/level_command.h"
#include "cli/module_command.h"
#include "cli/params_command.h"
#include "cli/presets_command.h"
#include "cli/render_command.h"
#include "cli/run_command.h"

namespace ruvex::cli {

std::vector<Command> newCommands() {
    std::vector<Command> all = {renderCommand(), compareCommand(), runCommand(),    levelCommand(),
                                paramsCommand(), presetsCommand(), moduleCommand(), helpCommand()};
    for (Command& command : farmCommands()) all.insert(all.end() - 1, std::move(command));
    return all;
}

const std::vector<Command>& commands() {
    static const std::vector<Command> all = newCommands();
    return all;
}

}  // namespace ruvex::cli
