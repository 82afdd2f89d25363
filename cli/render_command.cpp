#include "cli/render_command.h"

#include <cstdio>
#include <cstring>

#include "cli/clip_input.h"
#include "cli/interruption.h"
#include "cli/mask_image.h"
#include "cli/messages.h"
#include "cli/open_project.h"
#include "cli/progress.h"
#include "cli/render_plan.h"
#include "cli/ruvex_control.h"
#include "cli/usage_error.h"
#include "media/frame_reader.h"
#include "runtime/effect_session.h"
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

/// One render, from the first frame to the last.
class Render {
public:
    Render(const RenderJob& job, const RenderPlan& plan, std::unique_ptr<media::FrameReader> reader)
        : job_(job),
          plan_(plan),
          project_(plan.project),
          input_(
              std::make_shared<ClipInput>(std::move(reader), plan.depth, plan.project, job.ends)),
          session_({.module = runtime::Module::loadDefault(),
                    .project = plan.project,
                    .provider = input_,
                    .interruption = stopWished,
                    .family = job.mask.empty() ? runtime::kEffectFamily : runtime::kPaintFamily}) {
        if (!job.mask.empty()) {
            mask_ = loadMask(job.mask, plan.size, plan.project);
        }
        setParameters(session_, job.parameters);
        setWorkers(session_, job);
    }

    /// False if it was told to stop; the result is then not there.
    bool run() {
        const auto writer = media::openWriter(job_.output, plan_.output);
        Progress progress(plan_.frames.last - plan_.frames.first + 1);
        media::Frame result(plan_.size, plan_.depth);
        for (std::int64_t k = plan_.frames.first; k <= plan_.frames.last; ++k) {
            if (!renderFrame(k, result)) {
                return false;
            }
            writer->write(k, result);
            progress.step();
        }
        if (stopWished()) {
            return false;
        }
        writer->finish();
        return true;
    }

private:
    bool renderFrame(std::int64_t number, media::Frame& result) {
        if (stopWished()) {
            return false;
        }
        const auto output = runtime::makeProjectImage(plan_.project, plan_.size.width,
                                                      plan_.size.height, formatOf(plan_.depth));
        runtime::RenderRequest request;
        request.seconds = runtime::frameTime(number, plan_.project.frameRate);
        request.input = input_->frame(number);
        request.output = output;
        request.region = region();
        request.pixelMask = mask_;
        execute(number, request);
        input_->rethrowFailure();
        std::memcpy(result.bytes().data(), output->bytes(), result.bytes().size());
        return !session_.interrupted();
    }

    void execute(std::int64_t number, const runtime::RenderRequest& request) {
        try {
            session_.render(request);
        } catch (const runtime::Error& error) {
            const std::string frame = std::to_string(number);
            throw runtime::Error("frame " + frame + ": " + error.what() +
                                 ". The same command with --frames " + frame + "-" + frame +
                                 " repeats it.");
        }
    }

    std::optional<DSRECT> region() const {
        if (!job_.region) {
            return std::nullopt;
        }
        return DSRECT{job_.region->x, job_.region->y, job_.region->width, job_.region->height};
    }

    const RenderJob& job_;
    const RenderPlan& plan_;
    OpenProject project_;
    std::shared_ptr<ClipInput> input_;
    runtime::EffectSession session_;
    ComPtr<IDSImage> mask_;
};

}  // namespace

int runRender(const RenderOptions& options) {
    RenderJob job = makeRenderJob(options);
    auto reader = media::openReader(job.input, {.size = job.size, .depth = job.depth});
    const RenderPlan plan = makeRenderPlan(job, reader->info());
    printWarnings(job.warnings);
    catchStopSignals();
    if (!Render(job, plan, std::move(reader)).run()) {
        std::fprintf(stderr, "ruvex: stopped; %s was not written.\n", job.output.string().c_str());
        return kStoppedStatus;
    }
    return 0;
}

}  // namespace ruvex::cli
