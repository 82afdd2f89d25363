#include "cli/sheet_command.h"

#include <utility>
#include <vector>

#include "cli/job_words.h"
#include "cli/media_options.h"
#include "cli/messages.h"
#include "cli/option_text.h"
#include "cli/parameter_choice.h"
#include "cli/progress.h"
#include "cli/stop_signals.h"
#include "cli/typed_job.h"
#include "cli/usage_error.h"
#include "cli/variations.h"
#include "files/numbered_path.h"
#include "jobs/clip_choice.h"
#include "jobs/look_sheet.h"
#include "media/file_kind.h"

namespace ruvex::cli {
namespace {

jobs::RenderJob sheetJob(const SheetOptions& options) {
    if (options.output.empty()) {
        throw UsageError("Say where the sheet goes (-o sheet.png).");
    }
    if (media::fileKind(options.output) != media::FileKind::Png ||
        files::NumberedPath(options.output).isPattern()) {
        throw UsageError(options.output +
                         " is not the name of one PNG picture. Use one that ends in .png.");
    }
    jobs::checkNoStream(options.input);
    RenderOptions render;
    render.inputs = {options.input};
    render.output = options.output;
    render.rate = options.rate;
    render.size = options.size;
    render.depth = options.depth;
    render.workers = options.workers;
    std::vector<std::string> none;  // There are no parameters to warn of.
    return typedJob(render, none);
}

/// The named frame, or the middle one: a look that changes over time has got going by then.
std::int64_t chooseFrame(const SheetOptions& options, const media::ClipInfo& clip) {
    if (options.frame.empty()) return clip.first + (clip.last - clip.first) / 2;
    const int last = static_cast<int>(jobs::kFrameNumberEnd) - 1;
    const std::int64_t frame = parseWhole("--frame", options.frame, 0, last);
    if (frame < clip.first || frame > clip.last) {
        throw UsageError("--frame: " + options.input + " has the frames " +
                         toText(jobs::FrameRange{clip.first, clip.last}) + ", not " +
                         options.frame + ".");
    }
    return frame;
}

void writeSheet(const jobs::RenderPlan& plan, const media::Frame& sheet) {
    const auto writer = media::openWriter(
        plan.output, {.size = sheet.size(), .pixelAspect = plan.writing.pixelAspect});
    writer->write(0, sheet);
    writer->finish();
}

/// What a sheet shows.
struct SheetCells {
    std::vector<jobs::SheetLook> looks;
    bool source = true;  ///< The frame as it is, too.
};

SheetCells cellsOf(std::span<const looks::LibraryLook> list) {
    SheetCells cells;
    for (const looks::LibraryLook& entry : list) {
        cells.looks.push_back({entry.look.name, entry.look.changes, entry.look.projectSize});
    }
    return cells;
}

SheetCells variedCells(const SheetOptions& options) {
    std::vector<std::string> warnings;
    ParameterOptions base;
    base.preset = options.preset;
    const looks::Look look = readParameters(base, warnings);
    SheetCells cells{.looks = {}, .source = false};
    for (const Variation& variation : parseVariations(options.vary, warnings)) {
        cells.looks.push_back({variation.label, look.changes, look.projectSize});
        cells.looks.back().changes.emplace_back(variation.setting);
    }
    printWarnings(warnings);
    return cells;
}

int draw(const SheetOptions& options, const SheetCells& cells) {
    jobs::RenderJob job = sheetJob(options);
    auto reader = media::openReader(job.input, readingOf(job));
    const std::int64_t frame = chooseFrame(options, reader->info());
    job.frames = jobs::FrameRange{frame, frame};
    std::vector<jobs::Note> notes;
    const jobs::RenderPlan plan = planRender(job, reader->info(), notes);
    printNotes(notes);
    const StopSignals signals;
    Progress progress(static_cast<std::int64_t>(cells.looks.size()));
    const auto sheet = lookSheet(
        plan, std::move(reader), cells.looks, cells.source, [&] { progress.step(); },
        signals.token());
    if (!sheet) return reportStop(plan.output);
    writeSheet(plan, *sheet);
    return 0;
}

}  // namespace

OptionTable sheetOptions(SheetOptions& options) {
    constexpr const char* kSheet = "--sheet";
    return {
        {kSheet, "INPUT", "Render one frame of a clip or a still with each look, into one picture",
         &options.input},
        {"-o,--output", "SHEET.png", "The picture that shows them", &options.output, false, kSheet},
        {"--vary", "\"NAME=VALUES\"",
         "Show values of one parameter instead of looks: \"Seed=1..9\", \"Snow Max=0,30,60\", "
         "\"TV Type=Colour,Tint\"",
         &options.vary, false, kSheet},
        {"--preset", "NAME|FILE",
         "The look whose parameter is varied; default: the parameters' defaults", &options.preset,
         false, "--vary"},
        {"--frame", "N", "Which frame; default: the one in the middle", &options.frame, false,
         kSheet},
        {"--rate", "R", kRateHelp, &options.rate, false, kSheet},
        {"--size", "WxH", "Size of raw input frames", &options.size, false, kSheet},
        {"--depth", "8|16", "Bits a channel in the chain; default: by the input", &options.depth,
         false, kSheet},
        {"--workers", "N",
         "Shares that each picture is cut into; default: the machine's processors",
         &options.workers, false, kSheet},
    };
}

int drawLookSheet(const SheetOptions& options, std::span<const looks::LibraryLook> list) {
    return inOptionWords(
        [&] { return draw(options, options.vary.empty() ? cellsOf(list) : variedCells(options)); });
}

}  // namespace ruvex::cli
