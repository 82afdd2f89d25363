// `ruvex presets`: the looks that come with the effect.

#pragma once

namespace ruvex::cli {

/// Lists their names. Returns the exit status.
int runPresets();

}  // namespace ruvex::cli
