#include "cli/level_options.h"

#include "cli/declare_option.h"

namespace ruvex::cli {
namespace {

constexpr const char* kFooter =
    R"(One line a frame: its time, the seconds of the clip played up to it, the clip's frame that it
shows without and with Repeat Frames, the level from 0 to 1, what each stage does at that level,
and what has built up by then. Lengths are pixels of the project frame.

Examples:
  ruvex level --frames 0-99
  ruvex level clip.mp4 --key "Master Breakup=0:0 2:100" --csv
  ruvex level --rate 25 --frames 0-499 --plot level.svg

Exit status: 0 done, 1 the job failed, 2 the command line is wrong, 130 stopped by Ctrl-C.)";

}  // namespace

void declareLevelOptions(CLI::App& command, LevelOptions& options) {
    command.add_option("INPUT", options.input,
                       "A clip, for its rate and its frames; its pictures do not matter");
    addParameters(command, options.parameters);
    addText(command, "--frames", options.frames, "A-B",
            "First and last frame, inclusive; all of the clip without it. Needed without INPUT");
    addText(command, "--rate", options.rate, "R",
            "Frames a second where no input says: 25, 29.97, 30000/1001. 25 without it");
    addText(command, "--size", options.size, "WxH", "Size of raw input frames");
    command.add_flag("--csv", options.csv,
                     "Comma-separated values with all their digits, instead of a table");
    addText(command, "--plot", options.plot, "FILE.svg",
            "Also draw the level over time, with the threshold of every stage");
    command.footer(kFooter);
}

}  // namespace ruvex::cli
