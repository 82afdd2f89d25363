#include "cli/presets_command.h"

#include <iostream>

#include "cli/messages.h"
#include "parameters/presets.h"

namespace ruvex::cli {
namespace {

int listPresets() {
    for (const std::string_view name : presetNames()) {
        std::cout << name << '\n';
    }
    return finishOutput();
}

}  // namespace

Command presetsCommand() {
    return {.name = "presets",
            .summary = "List the looks that --preset knows",
            .options = {},
            .notes = "",
            .examples = {},
            .run = listPresets};
}

}  // namespace ruvex::cli
