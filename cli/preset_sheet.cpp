#include "cli/preset_sheet.h"

#include <vector>

#include "cli/clip_choice.h"
#include "cli/frame_renderer.h"
#include "cli/interruption.h"
#include "cli/messages.h"
#include "cli/open_project.h"
#include "cli/progress.h"
#include "cli/usage_error.h"
#include "media/file_kind.h"
#include "media/numbered_path.h"
#include "media/pixels/sample_convert.h"
#include "media/pixels/scale_frame.h"
#include "media/stills/contact_sheet.h"
#include "parameters/presets.h"

namespace ruvex::cli {
namespace {

// The clip itself and the eight presets fill three rows.
constexpr int kColumns = 3;
constexpr int kLongestSide = 720;

RenderJob makeSheetJob(const SheetOptions& options) {
    if (options.output.empty()) {
        throw UsageError("Say where the sheet goes (-o sheet.png).");
    }
    if (media::fileKind(options.output) != media::FileKind::Png ||
        media::NumberedPath(options.output).isPattern()) {
        throw UsageError(options.output +
                         " is not the name of one PNG picture. Use one that ends in .png.");
    }
    checkNoStream(options.input);
    RenderOptions render;
    render.input = options.input;
    render.output = options.output;
    render.rate = options.rate;
    render.size = options.size;
    render.depth = options.depth;
    render.workers = options.workers;
    return makeRenderJob(render);
}

/// The named frame, or the one in the middle: looks that change take some time to show.
std::int64_t chooseFrame(const SheetOptions& options, const media::ClipInfo& clip) {
    if (options.frame.empty()) {
        return clip.first + (clip.last - clip.first) / 2;
    }
    const int last = static_cast<int>(kFrameNumberEnd) - 1;
    const std::int64_t frame = parseWhole("--frame", options.frame, 0, last);
    if (frame < clip.first || frame > clip.last) {
        throw UsageError("--frame: " + options.input + " has the frames " +
                         std::to_string(clip.first) + "-" + std::to_string(clip.last) + ", not " +
                         options.frame + ".");
    }
    return frame;
}

/// One frame of a clip, as the sheet shows it.
class SheetPictures {
public:
    SheetPictures(const RenderJob& job, const RenderPlan& plan,
                  std::unique_ptr<media::FrameReader> reader)
        : job_(job),
          plan_(plan),
          clip_(std::make_shared<SharedClip>(std::move(reader), SharedClip::Open())),
          frame_(plan.size, plan.depth) {
        clip_->read(plan.frames.first, source_);
    }

    /// Without any effect.
    media::Frame source() const { return small(source_); }

    /// With a preset over the parameters' defaults; nothing if it was told to stop.
    std::optional<media::Frame> withPreset(int preset) {
        FrameRenderer renderer(job_, plan_, clip_, {presetChanges(preset), {}});
        if (!renderer.render(plan_.frames.first, source_, frame_)) {
            return std::nullopt;
        }
        return small(frame_);
    }

private:
    media::Frame small(const media::Frame& frame) const {
        return media::scaleDown(media::convertDepth(frame, media::Depth::Bits8),
                                media::fitInto(plan_.size, kLongestSide));
    }

    const RenderJob& job_;
    const RenderPlan& plan_;
    std::shared_ptr<SharedClip> clip_;
    media::Frame source_;
    media::Frame frame_;
};

/// Nothing if it was told to stop.
std::optional<media::Frame> drawSheet(SheetPictures pictures) {
    std::vector<media::LabelledPicture> all = {{"Source", pictures.source()}};
    Progress progress(kPresetCount);
    for (int preset = 0; preset < kPresetCount; ++preset) {
        auto picture = pictures.withPreset(preset);
        if (!picture) {
            return std::nullopt;
        }
        const std::string name(presetNames()[static_cast<std::size_t>(preset)]);
        all.push_back({name, std::move(*picture)});
        progress.step();
    }
    return media::contactSheet(all, kColumns);
}

}  // namespace

int drawPresetSheet(const SheetOptions& options) {
    RenderJob job = makeSheetJob(options);
    auto reader = media::openReader(job.input, readingOf(job));
    const std::int64_t frame = chooseFrame(options, reader->info());
    job.frames = FrameRange{frame, frame};
    const RenderPlan plan = makeRenderPlan(job, reader->info());
    printWarnings(job.warnings);
    catchStopSignals();
    const OpenProject project(plan.project);
    const auto sheet = drawSheet({job, plan, std::move(reader)});
    if (!sheet) {
        return reportStop(job.output);
    }
    const auto writer = media::openWriter(
        job.output, {.size = sheet->size(), .pixelAspect = plan.output.pixelAspect});
    writer->write(0, *sheet);
    writer->finish();
    return 0;
}

}  // namespace ruvex::cli
