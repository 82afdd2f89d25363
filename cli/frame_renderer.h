// The effect at work on the frames of one clip.

#pragma once

#include <memory>

#include "cli/clip_input.h"
#include "cli/render_plan.h"
#include "runtime/effect_session.h"

namespace ruvex::cli {

/// Renders with one choice of parameters. The project is to be open as long as this lives. One
/// thread uses a renderer at a time; several may share one clip.
class FrameRenderer {
public:
    /// `job` and `plan` are to outlive this. Throws UsageError for what the effect does not take,
    /// media::MediaError and runtime::Error.
    FrameRenderer(const RenderJob& job, const RenderPlan& plan, std::shared_ptr<SharedClip> clip,
                  const ParameterChoice& parameters);

    /// One more renderer, over a clone of the effect as it is now, for another thread.
    FrameRenderer clone() const;

    /// Frame `number`, which is `source`, into `result`, which has the plan's size and depth. False
    /// if it was told to stop; the result is then unfinished. Throws media::MediaError and
    /// runtime::Error, which names the frame.
    bool render(std::int64_t number, const media::Frame& source, media::Frame& result);

private:
    FrameRenderer(const FrameRenderer& other, std::shared_ptr<ClipInput> input);

    runtime::RenderRequest requestFor(std::int64_t number, const media::Frame& source) const;
    void execute(std::int64_t number, const runtime::RenderRequest& request);

    const RenderJob& job_;
    const RenderPlan& plan_;
    std::shared_ptr<SharedClip> clip_;
    std::shared_ptr<ClipInput> input_;
    runtime::EffectSession session_;
    ComPtr<IDSImage> mask_;
};

}  // namespace ruvex::cli
