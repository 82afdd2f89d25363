#include "cli/level_options.h"

namespace ruvex::cli {

OptionTable levelOptions(LevelOptions& options) {
    OptionTable table = {{"INPUT", "",
                          "A clip, for its rate and its frames; its pictures do not matter",
                          &options.input}};
    const OptionTable parameters = parameterOptions(options.parameters);
    table.insert(table.end(), parameters.begin(), parameters.end());
    const OptionTable list = {
        {"--frames", "A-B",
         "First and last frame, inclusive, or one frame; default: all of the clip. Required "
         "without "
         "INPUT",
         &options.frames},
        {"--rate", "R", "Frames a second where no input says: 25, 29.97, 30000/1001; default: 25",
         &options.rate},
        {"--size", "WxH", "Size of raw input frames", &options.size},
        {"--csv", "", "Comma-separated values with all their digits, instead of a table",
         &options.csv},
        {"--plot", "FILE.svg", "Also draw the level over time, with the threshold of every stage",
         &options.plot},
    };
    table.insert(table.end(), list.begin(), list.end());
    return table;
}

}  // namespace ruvex::cli
