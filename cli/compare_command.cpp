#include "cli/compare_command.h"

#include <memory>

#include "cli/messages.h"
#include "cli/option_text.h"
#include "cli/render_command.h"
#include "cli/several_clips.h"
#include "cli/shell_text.h"
#include "cli/typed_job.h"
#include "cli/usage_error.h"
#include "cli/whole_sequence.h"

namespace ruvex::cli {
namespace {

struct CompareOptions {
    RenderOptions render;
    bool sideBySide = false;
    bool split = false;
    std::string splitAt;
};

OptionTable compareOptions(CompareOptions& options) {
    OptionTable table = renderOptions(options.render);
    const OptionTable own = {
        {"--side-by-side", "", "All of both pictures, before on the left; this is the default",
         &options.sideBySide},
        {"--split", "", "One picture: before to the left of a thin white line, after to its right",
         &options.split},
        {"--split-at", "F",
         "Where that line is, from 0 at the left to 1 at the right; implies --split; default: 0.5",
         &options.splitAt},
    };
    table.insert(table.end(), own.begin(), own.end());
    return table;
}

jobs::Comparison comparisonOf(const CompareOptions& options) {
    jobs::Comparison comparison;
    if (options.split || !options.splitAt.empty()) {
        if (options.sideBySide) {
            throw UsageError("--side-by-side and --split are two ways to compare. Choose one.");
        }
        comparison.kind = jobs::Comparison::Kind::Split;
    }
    if (!options.splitAt.empty()) {
        comparison.splitAt = parsePart("--split-at", options.splitAt);
    }
    return comparison;
}

int compareOne(const CompareOptions& options, const std::string& label) {
    std::vector<std::string> warnings;
    const jobs::Comparison comparison = comparisonOf(options);
    const jobs::RenderJob job = typedJob(options.render, warnings, comparison);
    if (auto whole = wholeSequence(options.render)) {
        CompareOptions all = options;
        all.render = *whole;
        const std::string command = commandText("compare", compareOptions(all));
        warnings.push_back(wholeSequenceText(options.render, command));
    }
    if (talkOf(options.render.talk) != Talk::Quiet) printWarnings(warnings);
    return runTypedJob(job, options.render, label, [&](std::int64_t frame) {
        CompareOptions one = options;
        one.render = oneFrame(options.render, frame);
        return commandText("compare", compareOptions(one));
    });
}

int runCompare(const CompareOptions& options) {
    return renderClips(options.render, [&](const RenderOptions& one, const std::string& label) {
        CompareOptions clip = options;
        clip.render = one;
        return compareOne(clip, label);
    });
}

}  // namespace

Command compareCommand() {
    const auto options = std::make_shared<CompareOptions>();
    return {
        .name = "compare",
        .summary = "Render a clip and show it before and after, in one clip",
        .options = compareOptions(*options),
        .notes = kRenderNotes,
        .examples = {"ruvex compare clip.mp4 -o both.mp4 --preset \"Security Camera\"",
                     "ruvex compare clip.mp4 -o split.mp4 --preset \"Bad B&W TV\" --split-at 0.3",
                     "ruvex compare clip.mp4 -o still.png --frames 30-30 --preset Clean "
                     "--set \"Resolution=20\" --split"},
        .run = [options] { return runCompare(*options); }};
}

}  // namespace ruvex::cli
