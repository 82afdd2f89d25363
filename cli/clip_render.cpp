#include "cli/clip_render.h"

#include <iostream>
#include <utility>

#include "cli/interruption.h"
#include "cli/job_report.h"
#include "cli/messages.h"
#include "cli/open_project.h"
#include "cli/progress.h"
#include "cli/resume.h"
#include "media/partial_file.h"

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

/// Everything after a look at the input.
int renderPlanned(const RenderJob& job, const RenderPlan& plan, const FramesToMake& frames,
                  std::shared_ptr<SharedClip> clip) {
    const OpenProject project(plan.project);
    RenderLine line(job, plan, std::move(clip));
    media::removeAbandoned(job.output);
    const auto writer = media::openWriter(job.output, plan.output);
    if (job.talk != Talk::Quiet) {
        printWarnings(writer->remarks());
    }
    return renderInto(*writer, line, frames, job.talk) ? 0 : reportStop(job.output);
}

}  // namespace

int renderClip(RenderJob job) {
    const media::ReadOptions reading = readingOf(job);
    auto reader = media::openReader(job.input, reading);
    const RenderPlan plan = makeRenderPlan(job, reader->info());
    if (job.talk != Talk::Quiet) {
        printWarnings(job.warnings);
    }
    catchStopSignals();
    const FramesToMake frames = framesToMake(job, plan);
    if (job.dryRun) {
        std::cout << jobReport(job, plan, reader->info(), frames);
        return finishOutput();
    }
    if (job.talk == Talk::Verbose) {
        std::cerr << jobReport(job, plan, reader->info(), frames);
    }
    SharedClip::Open openAgain;
    if (media::fileKind(job.input) != media::FileKind::Stream) {
        openAgain = [&] { return media::openReader(job.input, reading); };
    }
    return renderPlanned(job, plan, frames,
                         std::make_shared<SharedClip>(std::move(reader), openAgain));
}

}  // namespace ruvex::cli
