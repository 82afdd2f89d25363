// A render after a look at its input: nothing is left to choose.

#pragma once

#include "cli/render_job.h"
#include "media/clip_info.h"
#include "media/frame_writer.h"
#include "runtime/project.h"

namespace ruvex::cli {

struct RenderPlan {
    media::FrameSize size;
    media::Depth depth = media::Depth::Bits8;
    media::Rational rate{25, 1};
    FrameRange clip;    ///< The frames that there are.
    FrameRange frames;  ///< Those of them that are rendered.
    /// Whether the render goes on to the end of a stream, which shows when it comes; the frames
    /// then end at a number beyond it.
    bool endless = false;
    runtime::Project project;
    /// Not Progressive where each field is rendered by itself: then which comes first.
    media::FieldOrder fields = media::FieldOrder::Progressive;
    media::WriteOptions output;
};

/// Throws UsageError for what the job asks of this clip in vain: frames or a region outside it,
/// several frames into one file. May add to the job's warnings.
RenderPlan makeRenderPlan(RenderJob& job, const media::ClipInfo& clip);

}  // namespace ruvex::cli
