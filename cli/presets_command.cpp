#include "cli/presets_command.h"

#include <iostream>

#include "cli/messages.h"
#include "parameters/presets.h"

namespace ruvex::cli {

int runPresets() {
    for (const std::string_view name : presetNames()) {
        std::cout << name << '\n';
    }
    return finishOutput();
}

}  // namespace ruvex::cli
