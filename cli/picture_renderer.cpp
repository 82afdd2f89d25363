#include "cli/picture_renderer.h"

#include <cstring>
#include <utility>

#include "cli/interruption.h"
#include "cli/ruvex_control.h"
#include "cli/usage_error.h"
#include "runtime/error.h"
#include "runtime/images.h"

namespace ruvex::cli {
namespace {

runtime::EffectSession openSession(const RenderJob& job, const runtime::Project& project,
                                   const std::shared_ptr<ClipInput>& input) {
    return runtime::EffectSession(
        {.module = runtime::Module::loadDefault(),
         .project = project,
         .provider = input,
         .interruption = stopWished,
         .family = job.mask.empty() ? runtime::kEffectFamily : runtime::kPaintFamily});
}

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

PictureRenderer::PictureRenderer(const RenderJob& job, const runtime::Project& project,
                                 std::shared_ptr<ClipInput> input,
                                 const ParameterChoice& parameters)
    : project_(project), input_(std::move(input)), session_(openSession(job, project, input_)) {
    setWorkers(session_, job);
    setParameters(session_, parameters);
}

PictureRenderer::PictureRenderer(runtime::Project project, std::shared_ptr<ClipInput> input,
                                 runtime::EffectSession session)
    : project_(project), input_(std::move(input)), session_(std::move(session)) {}

PictureRenderer PictureRenderer::clone(std::shared_ptr<ClipInput> input) const {
    return {project_, input, session_.clone(input)};
}

bool PictureRenderer::render(const PictureTask& task, media::Frame& result) {
    if (stopWished()) {
        return false;
    }
    const auto output = runtime::makeProjectImage(project_, result.width(), result.height(),
                                                  formatOf(result.depth()));
    runtime::RenderRequest request = requestFor(task);
    request.output = output;
    try {
        session_.render(request);
    } catch (const runtime::Error& error) {
        throw runtime::Error("frame " + std::to_string(task.frame) + ": " + error.what());
    }
    input_->rethrowFailure();
    std::memcpy(result.bytes().data(), output->bytes(), result.bytes().size());
    return !session_.interrupted();
}

runtime::RenderRequest PictureRenderer::requestFor(const PictureTask& task) const {
    runtime::RenderRequest request;
    request.seconds = task.seconds;
    request.input = toImage(project_, task.source);
    request.pixelMask = task.mask;
    if (task.region) {
        request.region =
            DSRECT{task.region->x, task.region->y, task.region->width, task.region->height};
    }
    return request;
}

}  // namespace ruvex::cli
