#include "jobs/run_render.h"

#include <utility>

#include "files/partial_file.h"
#include "jobs/frames_to_make.h"
#include "looks/sound_drift.h"
#include "media/file_kind.h"
#include "media/media_error.h"

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
    const bool others =
        looks::movesPictures(plan.parameters) || looks::framesBehind(plan.parameters) > 0;
    using enum SharedClip::Requests;
    return std::make_shared<SharedClip>(std::move(reader), std::move(openAgain),
                                        others ? AnyFrame : None);
}

std::unique_ptr<media::FrameReader> openInput(const RenderPlan& plan, const std::stop_token& stop) {
    media::ReadOptions reading = plan.reading;
    reading.stop = stop;
    return media::openReader(plan.input, reading);
}

OpenResult openOutput(const RenderPlan& plan) {
    return [&plan](const media::WriteOptions& writing) {
        files::removeAbandoned(plan.output);
        return media::openWriter(plan.output, writing);
    };
}

RenderEnd render(const RenderPlan& plan, std::unique_ptr<media::FrameReader> reader,
                 const OpenResult& open, RenderEvents& events, const std::stop_token& stop) {
    const FramesToMake frames = framesToMake(plan, stop);
    events.begun(frames);
    Pipeline pipeline(plan, clipOf(plan, std::move(reader)), stop);
    media::WriteOptions writing = plan.writing;
    writing.stop = stop;
    writing.written = [&] { events.frameWritten(); };
    const auto writer = open(writing);
    for (const std::string& remark : writer->remarks()) {
        events.remark(remark);
    }
    const bool all = pipeline.run(frames, [&](std::int64_t number, const media::Frame& result) {
        writer->write(number, result);
    });
    if (!all) return RenderEnd::Stopped;
    media::HeldMemory held = pipeline.held();
    held.add(writer->held());
    events.memoryUsed(held);
    writer->finish();
    events.finished();
    return RenderEnd::Finished;
}

}  // namespace

RenderEnd runRender(const RenderPlan& plan, RenderEvents& events, const std::stop_token& stop) {
    try {
        return render(plan, openInput(plan, stop), openOutput(plan), events, stop);
    } catch (const media::Stopped&) {
        return RenderEnd::Stopped;
    }
}

RenderEnd runRender(const RenderPlan& plan, std::unique_ptr<media::FrameReader> reader,
                    RenderEvents& events, const std::stop_token& stop) {
    return renderInto(openOutput(plan), plan, std::move(reader), events, stop);
}

RenderEnd renderInto(const OpenResult& open, const RenderPlan& plan,
                     std::unique_ptr<media::FrameReader> reader, RenderEvents& events,
                     const std::stop_token& stop) {
    try {
        return render(plan, std::move(reader), open, events, stop);
    } catch (const media::Stopped&) {
        return RenderEnd::Stopped;
    }
}

}  // namespace ruvex::jobs
