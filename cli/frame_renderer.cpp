#include "cli/frame_renderer.h"

#include <cstring>
#include <utility>

#include "cli/interruption.h"
#include "cli/mask_image.h"
#include "cli/ruvex_control.h"
#include "cli/usage_error.h"
#include "runtime/error.h"
#include "runtime/images.h"

namespace ruvex::cli {
namespace {

void setWorkers(runtime::EffectSession& session, const RenderJob& job) {
    if (!job.workers) {
        return;
    }
    if (ruvexControl(session).setWorkerCount(*job.workers) != 0) {
        throw UsageError("--workers: the effect does not take " + std::to_string(*job.workers) +
                         " workers. Use fewer.");
    }
}

}  // namespace

FrameRenderer::FrameRenderer(const RenderJob& job, const RenderPlan& plan,
                             std::shared_ptr<SharedClip> clip, const ParameterChoice& parameters)
    : job_(job),
      plan_(plan),
      clip_(std::move(clip)),
      input_(std::make_shared<ClipInput>(clip_, plan.project, job.ends)),
      session_({.module = runtime::Module::loadDefault(),
                .project = plan.project,
                .provider = input_,
                .interruption = stopWished,
                .family = job.mask.empty() ? runtime::kEffectFamily : runtime::kPaintFamily}) {
    if (!job.mask.empty()) {
        mask_ = loadMask(job.mask, plan.size, plan.project);
    }
    setWorkers(session_, job);
    setParameters(session_, parameters);
}

FrameRenderer::FrameRenderer(const FrameRenderer& other, std::shared_ptr<ClipInput> input)
    : job_(other.job_),
      plan_(other.plan_),
      clip_(other.clip_),
      input_(std::move(input)),
      session_(other.session_.clone(input_)),
      mask_(other.mask_) {}

FrameRenderer FrameRenderer::clone() const {
    return {*this, std::make_shared<ClipInput>(clip_, plan_.project, job_.ends)};
}

bool FrameRenderer::render(std::int64_t number, const media::Frame& source, media::Frame& result) {
    if (stopWished()) {
        return false;
    }
    const auto output = runtime::makeProjectImage(plan_.project, plan_.size.width,
                                                  plan_.size.height, formatOf(plan_.depth));
    runtime::RenderRequest request = requestFor(number, source);
    request.output = output;
    execute(number, request);
    input_->rethrowFailure();
    std::memcpy(result.bytes().data(), output->bytes(), result.bytes().size());
    return !session_.interrupted();
}

runtime::RenderRequest FrameRenderer::requestFor(std::int64_t number,
                                                 const media::Frame& source) const {
    runtime::RenderRequest request;
    request.seconds = runtime::frameTime(number, plan_.project.frameRate);
    request.input = toImage(plan_.project, source);
    request.pixelMask = mask_;
    if (job_.region) {
        request.region =
            DSRECT{job_.region->x, job_.region->y, job_.region->width, job_.region->height};
    }
    return request;
}

void FrameRenderer::execute(std::int64_t number, const runtime::RenderRequest& request) {
    try {
        session_.render(request);
    } catch (const runtime::Error& error) {
        throw runtime::Error("frame " + std::to_string(number) + ": " + error.what());
    }
}

}  // namespace ruvex::cli
