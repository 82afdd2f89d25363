// The effect at work on pictures: whole frames, or fields of them.

#pragma once

#include <memory>

#include "cli/clip_input.h"
#include "cli/render_plan.h"
#include "runtime/effect_session.h"

namespace ruvex::cli {

/// A picture to be rendered, with what goes with it. Smaller ones than the project's frame stand
/// for all of it.
struct PictureTask {
    std::int64_t frame = 0;  ///< The frame that it is or belongs to, for messages.
    double seconds = 0.0;
    const media::Frame& source;
    ComPtr<IDSImage> mask;         ///< Of the source's size; may be null.
    std::optional<Region> region;  ///< In rows and columns of the source.
};

/// One effect with one choice of parameters. The project is to be open as long as this lives. One
/// thread uses a renderer at a time.
class PictureRenderer {
public:
    /// `input` serves other frames of the clip. Throws UsageError for what the effect does not
    /// take, and runtime::Error.
    PictureRenderer(const RenderJob& job, const runtime::Project& project,
                    std::shared_ptr<ClipInput> input, const ParameterChoice& parameters);

    /// One more, over a clone of the effect as it is now and its own input.
    PictureRenderer clone(std::shared_ptr<ClipInput> input) const;

    /// Renders into `result`, which has the size and depth that are wanted; what lies outside the
    /// region becomes 0. False if it was told to stop; the result is then unfinished. Throws
    /// media::MediaError and runtime::Error, which names the frame.
    bool render(const PictureTask& task, media::Frame& result);

private:
    PictureRenderer(runtime::Project project, std::shared_ptr<ClipInput> input,
                    runtime::EffectSession session);

    runtime::RenderRequest requestFor(const PictureTask& task) const;

    runtime::Project project_;
    std::shared_ptr<ClipInput> input_;
    runtime::EffectSession session_;
};

}  // namespace ruvex::cli
