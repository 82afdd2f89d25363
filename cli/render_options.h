// The options of a render, as typed.

#pragma once

#include <string>
#include <vector>

#include "cli/command_table.h"
#include "cli/parameter_options.h"
#include "cli/talk_options.h"

namespace ruvex::cli {

/// Empty where an option was not given.
struct RenderOptions {
    std::vector<std::string> inputs;  ///< Of one clip, at the first place; see several_clips.h.
    std::string output;
    std::string size;
    std::string rate;
    ParameterOptions parameters;
    std::string frames;
    std::string depth;
    std::string alpha;
    std::string resultAlpha;
    std::string outputSize;
    std::string codec;
    std::string quality;
    std::string encoderSpeed;
    std::string encoderThreads;
    std::string exrPixels;
    std::string exrCompression;
    bool mute = false;
    std::string inputFormat;
    std::string outputFormat;
    std::string workers;
    std::string projectSize;
    std::string pixelAspect;
    std::string region;
    bool fields = false;
    std::string fieldOrder;
    std::string mask;
    std::string ends;
    std::string jobs;
    bool resume = false;
    bool dryRun = false;
    std::string saveJob;
    TalkOptions talk;
};

/// The options of every command that renders a clip.
OptionTable renderOptions(RenderOptions& options);

/// The options that render one frame alone, for the message about a frame that failed.
RenderOptions oneFrame(RenderOptions options, std::int64_t number);

/// The kinds of files, for the help of those commands.
extern const char* const kRenderNotes;

}  // namespace ruvex::cli
