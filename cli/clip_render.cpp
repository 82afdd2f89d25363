#include "cli/clip_render.h"

#include "cli/frame_renderer.h"
#include "cli/interruption.h"
#include "cli/messages.h"
#include "cli/open_project.h"
#include "cli/progress.h"
#include "runtime/error.h"

namespace ruvex::cli {
namespace {

/// What is written of each frame: the render, or before and after.
class ClipRender {
public:
    ClipRender(const RenderJob& job, const RenderPlan& plan,
               std::unique_ptr<media::FrameReader> reader)
        : job_(job),
          plan_(plan),
          input_(
              std::make_shared<ClipInput>(std::move(reader), plan.depth, plan.project, job.ends)),
          renderer_(job, plan, input_, job.parameters),
          rendered_(plan.size, plan.depth) {
        if (job.comparison) {
            compared_ = media::Frame(plan.output.size, plan.depth);
        }
    }

    /// False if it was told to stop; the result is then not there.
    bool run() {
        const auto writer = media::openWriter(job_.output, plan_.output);
        Progress progress(plan_.frames.last - plan_.frames.first + 1);
        for (std::int64_t k = plan_.frames.first; k <= plan_.frames.last; ++k) {
            if (!render(k)) {
                return false;
            }
            writer->write(k, resultOf(k));
            progress.step();
        }
        if (stopWished()) {
            return false;
        }
        writer->finish();
        return true;
    }

private:
    bool render(std::int64_t number) {
        try {
            return renderer_.render(number, rendered_);
        } catch (const runtime::Error& error) {
            const std::string frame = std::to_string(number);
            throw runtime::Error(std::string(error.what()) + ". The same command with --frames " +
                                 frame + "-" + frame + " repeats it.");
        }
    }

    const media::Frame& resultOf(std::int64_t number) {
        if (!job_.comparison) {
            return rendered_;
        }
        input_->read(number, before_);
        compareFrames(*job_.comparison, before_, rendered_, compared_);
        return compared_;
    }

    const RenderJob& job_;
    const RenderPlan& plan_;
    std::shared_ptr<ClipInput> input_;
    FrameRenderer renderer_;
    media::Frame rendered_;
    media::Frame before_;
    media::Frame compared_;
};

}  // namespace

int renderClip(RenderJob job) {
    auto reader = media::openReader(job.input, {.size = job.size, .depth = job.depth});
    const RenderPlan plan = makeRenderPlan(job, reader->info());
    printWarnings(job.warnings);
    catchStopSignals();
    const OpenProject project(plan.project);
    if (!ClipRender(job, plan, std::move(reader)).run()) {
        return reportStop(job.output);
    }
    return 0;
}

}  // namespace ruvex::cli
