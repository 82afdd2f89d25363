// What a render is to do, before any file is looked at.

#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "cli/clip_ends.h"
#include "cli/comparison.h"
#include "cli/option_text.h"
#include "cli/parameter_choice.h"
#include "cli/progress.h"
#include "cli/render_options.h"
#include "media/frame_reader.h"

namespace ruvex::cli {

struct RenderJob {
    std::filesystem::path input;
    std::filesystem::path output;
    std::optional<media::FrameSize> size;
    std::optional<media::Rational> rate;
    ParameterChoice parameters;
    std::optional<FrameRange> frames;
    std::optional<media::Depth> depth;
    std::optional<media::AlphaForm> alpha;        ///< Nothing: each file as its kind does.
    std::optional<media::FileKind> inputFormat;   ///< Of standard input.
    std::optional<media::FileKind> outputFormat;  ///< Of standard output.
    std::optional<std::string> codec;
    std::optional<int> quality;
    std::optional<int> workers;
    std::optional<media::FrameSize> projectSize;
    double pixelAspect = 1.0;
    std::optional<Region> region;
    bool fields = false;  ///< Each field is rendered as a picture of its own.
    std::optional<media::FieldOrder> fieldOrder;  ///< Nothing: as the input says.
    std::filesystem::path mask;  ///< Empty: the effect is not painted but fills the picture.
    ClipEnds ends = ClipEnds::Blank;
    std::optional<Comparison> comparison;  ///< Nothing: the result is the render alone.
    int jobs = 1;                          ///< Frames that are rendered at once.
    Talk talk = Talk::Usual;
    bool resume = false;  ///< Frames that are there already are not made again.
    bool dryRun = false;  ///< Nothing is done; what would be is told.
    /// The command line that renders one frame of this alone; may be empty.
    std::function<std::string(std::int64_t frame)> repeat;
    std::vector<std::string> warnings;  ///< For the person; the render goes on.
};

/// How the job's input is to be read.
media::ReadOptions readingOf(const RenderJob& job);

/// Throws UsageError for everything that is wrong with the options by themselves.
RenderJob makeRenderJob(const RenderOptions& options);

}  // namespace ruvex::cli
