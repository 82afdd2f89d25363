#include "cli/sheet_command.h"

#include <utility>
#include <vector>

#include "cli/job_words.h"
#include "cli/messages.h"
#include "cli/option_text.h"
#include "cli/progress.h"
#include "cli/stop_signals.h"
#include "cli/typed_job.h"
#include "cli/usage_error.h"
#include "files/numbered_path.h"
#include "jobs/clip_choice.h"
#include "jobs/preset_sheet.h"
#include "media/file_kind.h"
#include "parameters/presets.h"

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

int draw(const SheetOptions& options) {
    jobs::RenderJob job = sheetJob(options);
    auto reader = media::openReader(job.input, readingOf(job));
    const std::int64_t frame = chooseFrame(options, reader->info());
    job.frames = jobs::FrameRange{frame, frame};
    std::vector<jobs::Note> notes;
    const jobs::RenderPlan plan = planRender(job, reader->info(), notes);
    printNotes(notes);
    const StopSignals signals;
    Progress progress(kPresetCount);
    const auto sheet = presetSheet(
        plan, std::move(reader), [&] { progress.step(); }, signals.token());
    if (!sheet) return reportStop(plan.output);
    writeSheet(plan, *sheet);
    return 0;
}

}  // namespace

int drawPresetSheet(const SheetOptions& options) {
    return inOptionWords([&] { return draw(options); });
}

}  // namespace ruvex::cli
