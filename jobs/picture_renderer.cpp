#include "jobs/picture_renderer.h"

#include <algorithm>
#include <new>
#include <utility>

#include "jobs/frame_memory.h"
#include "looks/ruvex_control.h"
#include "looks/session_look.h"
#include "runtime/error.h"

namespace ruvex::jobs {
namespace {

runtime::EffectSession openSession(const RenderPlan& plan, const std::shared_ptr<ClipInput>& input,
                                   const std::stop_token& stop) {
    return runtime::EffectSession({.module = runtime::Module::loadDefault(),
                                   .project = plan.project,
                                   .provider = input,
                                   .stop = stop,
                                   .family = plan.mask.empty() ? DSFAMILY_Filter : DSFAMILY_Paint});
}

void setWorkers(runtime::EffectSession& session, const RenderPlan& plan) {
    if (!plan.workers) return;
    if (looks::ruvexControl(session).setWorkerCount(*plan.workers) != 0) {
        throw JobError(
            JobField::Workers,
            "the effect does not take " + std::to_string(*plan.workers) + " workers. Use fewer.");
    }
}

/// Takes back the clip's images after a render, a failed one too.
class RenderEnding {
public:
    explicit RenderEnding(ClipInput& input) : input_(input) {}
    ~RenderEnding() { input_.endRender(); }
    RenderEnding(const RenderEnding&) = delete;
    RenderEnding& operator=(const RenderEnding&) = delete;

private:
    ClipInput& input_;
};

}  // namespace

PictureRenderer::PictureRenderer(const RenderPlan& plan, std::shared_ptr<ClipInput> input,
                                 std::stop_token stop)
    : project_(plan.project),
      input_(std::move(input)),
      stop_(std::move(stop)),
      session_(openSession(plan, input_, stop_)) {
    setWorkers(session_, plan);
    looks::applyChanges(session_, plan.parameters);
}

PictureRenderer::PictureRenderer(runtime::Project project, std::shared_ptr<ClipInput> input,
                                 std::stop_token stop, runtime::EffectSession session)
    : project_(project),
      input_(std::move(input)),
      stop_(std::move(stop)),
      session_(std::move(session)) {}

PictureRenderer PictureRenderer::clone(const std::shared_ptr<ClipInput>& input) const {
    return {project_, input, stop_, session_.clone(input)};
}

media::HeldMemory PictureRenderer::held() const {
    const auto bytes = looks::ruvexControl(session_).keptPictureBytes();
    media::HeldMemory held;
    held.add(static_cast<std::size_t>(bytes));
    return held;
}

bool PictureRenderer::render(const PictureTask& task, media::Frame& result) {
    if (stop_.stop_requested()) return false;
    try {
        renderPicture(task, result);
    } catch (const std::bad_alloc&) {
        throw FrameOutOfMemory(task.frame);
    } catch (const runtime::OutOfMemory&) {
        throw FrameOutOfMemory(task.frame);
    } catch (const runtime::Error& error) {
        throw runtime::Error("frame " + std::to_string(task.frame) + ": " + error.what());
    }
    return !session_.interrupted();
}

void PictureRenderer::renderPicture(const PictureTask& task, media::Frame& result) {
    const RenderEnding ending(*input_);
    const LentFrame source(source_, project_, task.source);
    const LentFrame output(result_, project_, result);
    runtime::RenderRequest request;
    request.seconds = task.seconds;
    request.input = source.image();
    request.output = output.image();
    request.pixelMask = task.mask;
    if (task.region) {
        // The effect writes the whole picture, but of a region nothing else.
        std::ranges::fill(result.bytes(), std::byte{});
        request.region =
            DSRECT{task.region->x, task.region->y, task.region->width, task.region->height};
    }
    session_.render(request);
    input_->rethrowFailure();
    if (looks::ruvexControl(session_).frameOutcome() == FrameOutcome::OutOfMemory) {
        throw std::bad_alloc();
    }
}

}  // namespace ruvex::jobs
