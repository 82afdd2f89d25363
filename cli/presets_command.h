// `ruvex presets`: the looks that come with the effect.

#pragma once

#include "cli/command_table.h"

namespace ruvex::cli {

/// Lists their names, or draws a picture of them all.
Command presetsCommand();

}  // namespace ruvex::cli
