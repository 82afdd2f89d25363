// `ruvex presets --sheet`: one frame of a clip with each preset, in one picture.

#pragma once

#include <string>

namespace ruvex::cli {

/// The options of the sheet, as typed; empty where one was not given.
struct SheetOptions {
    std::string input;
    std::string output;
    std::string frame;
    std::string rate;
    std::string size;
    std::string depth;
    std::string workers;
};

/// Renders and writes the sheet; returns the exit status. Throws UsageError, media::MediaError and
/// runtime::Error.
int drawPresetSheet(const SheetOptions& options);

}  // namespace ruvex::cli
