// The effect at work on the frames of one clip.

#pragma once

#include <array>
#include <memory>

#include "cli/clip_input.h"
#include "cli/picture_renderer.h"
#include "cli/render_plan.h"
#include "media/pixels/fields.h"

namespace ruvex::cli {

/// Renders with one choice of parameters. The project is to be open as long as this lives. One
/// thread uses a renderer at a time; several may share one clip.
///
/// Where the plan says so, each field of a frame is rendered as a picture of its own, at its own
/// time: the first at the frame's, the second half a frame later. It stands for the whole project
/// frame, so that lengths are those of the frame. What the effect then fetches from the clip is the
/// same field of another frame.
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

    bool renderField(media::Field field, double time, std::int64_t number,
                     const media::Frame& source, media::Frame& result);

    const RenderJob& job_;
    const RenderPlan& plan_;
    std::shared_ptr<SharedClip> clip_;
    std::shared_ptr<ClipInput> input_;
    PictureRenderer renderer_;
    ComPtr<IDSImage> mask_;                       ///< Of frames; may be null.
    std::array<ComPtr<IDSImage>, 2> fieldMasks_;  ///< Of top and bottom fields; may be null.
    media::Frame fieldSource_;
    media::Frame fieldResult_;
};

}  // namespace ruvex::cli
