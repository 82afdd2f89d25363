#include "jobs/run_render.h"

#include <utility>

#include "files/partial_file.h"
#include "jobs/frames_to_make.h"
#include "media/file_kind.h"

namespace ruvex::jobs {
namespace {

std::shared_ptr<SharedClip> clipOf(const RenderPlan& plan,
                                   std::unique_ptr<media::FrameReader> reader) {
    SharedClip::Open openAgain;
    if (media::fileKind(plan.input) != media::FileKind::Stream) {
        openAgain = [input = plan.input, reading = plan.reading] {
            return media::openReader(input, reading);
        };
    }
    return std::make_shared<SharedClip>(std::move(reader), std::move(openAgain));
}

}  // namespace

RenderEnd runRender(const RenderPlan& plan, RenderEvents& events, const std::stop_token& stop) {
    return runRender(plan, media::openReader(plan.input, plan.reading), events, stop);
}

RenderEnd runRender(const RenderPlan& plan, std::unique_ptr<media::FrameReader> reader,
                    RenderEvents& events, const std::stop_token& stop) {
    const FramesToMake frames = framesToMake(plan, stop);
    events.begun(frames);
    Pipeline pipeline(plan, clipOf(plan, std::move(reader)), stop);
    files::removeAbandoned(plan.output);
    const auto writer = media::openWriter(plan.output, plan.writing);
    for (const std::string& remark : writer->remarks()) {
        events.remark(remark);
    }
    const bool all = pipeline.run(frames, [&](std::int64_t number, const media::Frame& result) {
        writer->write(number, result);
        events.frameWritten(number);
    });
    if (!all) return RenderEnd::Stopped;
    writer->finish();
    events.finished();
    return RenderEnd::Finished;
}

}  // namespace ruvex::jobs
