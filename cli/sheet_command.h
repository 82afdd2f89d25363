// `ruvex presets --sheet`: one frame of a clip with several looks, in one picture.

#pragma once

#include <span>
#include <string>

#include "cli/command_table.h"
#include "looks/look_library.h"

namespace ruvex::cli {

/// The options of the sheet, as typed; empty where one was not given.
struct SheetOptions {
    std::string input;
    std::string output;
    std::string vary;
    std::string preset;
    std::string frame;
    std::string rate;
    std::string size;
    std::string depth;
    std::string workers;
};

/// The options, --sheet first.
OptionTable sheetOptions(SheetOptions& options);

/// Renders and writes the sheet of these looks, or of the variations that the options name; returns
/// the exit status. Throws UsageError, media::MediaError and runtime::Error.
int drawLookSheet(const SheetOptions& options, std::span<const looks::LibraryLook> list);

}  // namespace ruvex::cli
