#include "cli/clip_render.h"

#include "cli/interruption.h"
#include "cli/messages.h"
#include "cli/open_project.h"
#include "cli/progress.h"
#include "cli/render_line.h"

namespace ruvex::cli {
namespace {

/// False if it was told to stop; the result is then not there.
bool renderInto(media::FrameWriter& writer, RenderLine& line, const FramesToMake& frames,
                Talk talk) {
    Progress progress(frames.count(), talk);
    const bool all = line.run(frames, [&](std::int64_t number, const media::Frame& result) {
        writer.write(number, result);
        progress.step();
    });
    if (all) {
        writer.finish();
        progress.finish();
    }
    return all;
}

}  // namespace

int renderClip(RenderJob job) {
    const media::ReadOptions reading{.size = job.size, .depth = job.depth};
    auto reader = media::openReader(job.input, reading);
    const RenderPlan plan = makeRenderPlan(job, reader->info());
    if (job.talk != Talk::Quiet) {
        printWarnings(job.warnings);
    }
    catchStopSignals();
    const OpenProject project(plan.project);
    const auto clip = std::make_shared<SharedClip>(
        std::move(reader), [&] { return media::openReader(job.input, reading); });
    RenderLine line(job, plan, clip);
    const auto writer = media::openWriter(job.output, plan.output);
    if (!renderInto(*writer, line, {plan.frames}, job.talk)) {
        return reportStop(job.output);
    }
    return 0;
}

}  // namespace ruvex::cli
