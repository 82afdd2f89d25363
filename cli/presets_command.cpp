#include "cli/presets_command.h"

#include <iostream>
#include <memory>
#include <string>

#include "cli/messages.h"
#include "cli/sheet_command.h"
#include "looks/presets.h"
#include "parameters/presets.h"

namespace ruvex::cli {
namespace {

int listPresets() {
    for (const std::string_view name : presetNames()) {
        std::cout << name << '\n';
    }
    return finishOutput();
}

struct PresetsOptions {
    SheetOptions sheet;
    std::string saveFolder;
};

int run(const PresetsOptions& options) {
    if (!options.saveFolder.empty()) looks::writePresetFiles(options.saveFolder);
    if (!options.sheet.input.empty()) return drawPresetSheet(options.sheet);
    return options.saveFolder.empty() ? listPresets() : 0;
}

OptionTable presetsOptions(PresetsOptions& all) {
    constexpr const char* kSheet = "--sheet";
    SheetOptions& options = all.sheet;
    return {
        {"--save-to", "FOLDER", "Instead, write each as a look file into a folder",
         &all.saveFolder},
        {kSheet, "INPUT", "Instead, render one frame of a clip or a still with each of them",
         &options.input},
        {"-o,--output", "SHEET.png", "The picture that shows them, with the clip's own frame",
         &options.output, false, kSheet},
        {"--frame", "N", "Which frame; default: the one in the middle", &options.frame, false,
         kSheet},
        {"--rate", "R",
         "Frames a second of stills, raw frames and video of variable frame rate: 25, 29.97, "
         "30000/1001; default: 25, for video the slowest rate that keeps every picture",
         &options.rate, false, kSheet},
        {"--size", "WxH", "Size of raw input frames", &options.size, false, kSheet},
        {"--depth", "8|16", "Bits a channel in the chain; default: by the input", &options.depth,
         false, kSheet},
        {"--workers", "N",
         "Shares that each picture is cut into; default: the machine's processors. The same number "
         "gives the same picture on every machine",
         &options.workers, false, kSheet},
    };
}

}  // namespace

Command presetsCommand() {
    const auto options = std::make_shared<PresetsOptions>();
    return {.name = "presets",
            .summary = "List the looks that --preset knows, show them in a picture, or save them",
            .options = presetsOptions(*options),
            .notes = "Pictures longer than 720 pixels are made smaller for the sheet.",
            .examples = {"ruvex presets", "ruvex presets --sheet clip.mp4 -o sheet.png",
                         "ruvex presets --sheet clip.mp4 -o early.png --frame 5",
                         "ruvex presets --save-to looks"},
            .run = [options] { return run(*options); }};
}

}  // namespace ruvex::cli
