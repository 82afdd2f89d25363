// The frames of one clip with the effect: what a pipeline runs, and what a viewer shows.

#pragma once

#include <array>
#include <memory>
#include <optional>
#include <stop_token>

#include "jobs/clip_input.h"
#include "jobs/picture_renderer.h"
#include "jobs/render_plan.h"
#include "media/pixels/area_scaler.h"
#include "media/pixels/fields.h"

namespace ruvex::jobs {

/// Renders frames of a plan, in any order. One thread uses a renderer at a time; several may share
/// one clip.
///
/// Where the plan says so, each field of a frame is rendered as a picture of its own, at its own
/// time: the first at the frame's, the second half a frame later. It fills the whole project frame,
/// so that lengths are those of the frame. Other frames that the effect then asks for come as the
/// same field.
class FrameRenderer {
public:
    /// `plan` has to outlive this. A requested stop ends a frame that is being rendered. Throws
    /// JobError for what the effect does not take, media::MediaError and runtime::Error.
    FrameRenderer(const RenderPlan& plan, std::shared_ptr<SharedClip> clip,
                  std::stop_token stop = {});

    /// Another renderer, with a clone of the effect as it is now, for another thread.
    FrameRenderer clone() const;

    /// Renders frame `number`, whose picture is `source`, into `result`, which gets the size and
    /// depth of the plan's output; a comparison shows both. The effect works in the memory of both:
    /// `source` may be changed. False if a stop was requested; the result is then unfinished.
    /// Throws media::MediaError; FrameOutOfMemory; and runtime::Error, which names the frame.
    bool render(std::int64_t number, media::Frame& source, media::Frame& result);

    /// What this holds for pictures, the effect included.
    media::HeldMemory held() const;

private:
    FrameRenderer(const FrameRenderer& other, std::shared_ptr<ClipInput> input);

    void readMasks();
    bool renderResult(std::int64_t number, media::Frame& source, media::Frame& result);
    /// In the size that is rendered.
    bool renderFrame(std::int64_t number, media::Frame& source, media::Frame& result);
    bool renderEffect(std::int64_t number, media::Frame& source, media::Frame& result);
    bool renderField(media::Field field, double time, std::int64_t number,
                     const media::Frame& source, media::Frame& result);

    const RenderPlan& plan_;
    std::shared_ptr<SharedClip> clip_;
    std::shared_ptr<ClipInput> input_;
    PictureRenderer renderer_;
    ComPtr<IDSImage> mask_;                       ///< Of frames; may be null.
    std::array<ComPtr<IDSImage>, 2> fieldMasks_;  ///< Of top and bottom fields; may be null.
    media::Frame fieldSource_;
    media::Frame fieldResult_;
    // What a comparison shows.
    media::Frame before_;
    media::Frame after_;
    std::optional<media::AreaScaler> scaler_;  ///< Empty where the result is as large as rendered.
    media::Frame unscaled_;
};

}  // namespace ruvex::jobs
