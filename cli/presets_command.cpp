#include "cli/presets_command.h"

#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "cli/look_list.h"
#include "cli/messages.h"
#include "cli/sheet_command.h"
#include "cli/usage_error.h"
#include "files/words.h"
#include "looks/look_library.h"
#include "looks/look_writing.h"

namespace ruvex::cli {
namespace {

struct PresetsOptions {
    SheetOptions sheet;
    std::string group;
    std::string saveFolder;
    bool json = false;
    bool names = false;
};

/// The looks of the chosen group.
std::vector<looks::LibraryLook> chosenLooks(const PresetsOptions& options,
                                            const looks::LookLibrary& library) {
    using enum looks::LookGroup;
    if (options.group.empty()) return library.looks;
    const auto group = options.group == "presets" ? Preset
                       : options.group == "looks" ? Shipped
                                                  : User;
    if (group == User && options.group != "own") {
        throw UsageError("--group takes presets, looks or own, not " +
                         files::inQuotes(options.group) + ".");
    }
    std::vector<looks::LibraryLook> chosen;
    for (const looks::LibraryLook& look : library.looks) {
        if (look.group == group) chosen.push_back(look);
    }
    return chosen;
}

void printProblems(const looks::LookLibrary& library) {
    std::vector<std::string> sentences;
    for (const looks::LookProblem& problem : library.problems) {
        sentences.push_back(problem.sentence);
    }
    printWarnings(sentences);
}

int listLooks(const PresetsOptions& options, const std::vector<looks::LibraryLook>& chosen) {
    if (chosen.empty() && !options.json) {
        printMessage("there are no looks of your own in " + looks::lookFolders().user.string() +
                     ".");
    }
    std::cout << (options.json    ? lookListJson(chosen)
                  : options.names ? lookNamesText(chosen)
                                  : lookListText(chosen));
    return finishOutput();
}

int run(const PresetsOptions& options) {
    if (options.json && options.names) {
        throw UsageError("--json and --names exclude each other. Choose one.");
    }
    const looks::LookLibrary library = looks::readLookLibrary();
    const std::vector<looks::LibraryLook> chosen = chosenLooks(options, library);
    printProblems(library);
    if (!options.saveFolder.empty()) looks::writeLookFiles(chosen, options.saveFolder);
    if (!options.sheet.input.empty()) return drawLookSheet(options.sheet, chosen);
    return options.saveFolder.empty() ? listLooks(options, chosen) : 0;
}

OptionTable presetsOptions(PresetsOptions& options) {
    OptionTable table = {
        {"--group", "presets|looks|own",
         "Only the presets of the effect, the looks that come with the program, or your own; "
         "default: all",
         &options.group},
        {"--json", "", "List as JSON, with descriptions and files", &options.json},
        {"--names", "", "List the names alone", &options.names},
        {"--save-to", "FOLDER", "Write each as a look file into a folder", &options.saveFolder},
    };
    const OptionTable sheet = sheetOptions(options.sheet);
    table.insert(table.end(), sheet.begin(), sheet.end());
    return table;
}

constexpr const char* kPresetNotes =
    R"(Your own looks are the look files (.json) in ruvex/looks in your data folder, which is
~/.local/share unless XDG_DATA_HOME names another. One of them replaces a look of the program with
the same name. A file that cannot be used is reported.
Pictures of a sheet are made smaller: to 720 pixels, or 480 if there are more than nine.)";

}  // namespace

Command presetsCommand() {
    const auto options = std::make_shared<PresetsOptions>();
    return {.name = "presets",
            .summary = "List the looks that --preset knows, show them in a picture, or save them",
            .options = presetsOptions(*options),
            .notes = kPresetNotes,
            .examples = {"ruvex presets", "ruvex presets --sheet clip.mp4 -o sheet.png",
                         "ruvex presets --sheet clip.mp4 -o early.png --frame 5 --group presets",
                         "ruvex presets --sheet clip.mp4 -o seeds.png --preset \"Bad Aerial\" "
                         "--vary \"Seed=1..9\"",
                         "ruvex presets --save-to looks"},
            .run = [options] { return run(*options); }};
}

}  // namespace ruvex::cli
