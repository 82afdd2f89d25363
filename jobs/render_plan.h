// A render after a look at its input: nothing is left to choose.

#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "jobs/render_job.h"
#include "media/clip_info.h"
#include "media/frame_writer.h"
#include "runtime/project.h"

namespace ruvex::jobs {

/// All that a render needs; the job that it was made from does not have to be kept.
struct RenderPlan {
    std::filesystem::path input;
    media::ReadOptions reading;
    media::FrameSize size;  ///< Of the input's frames.
    media::Depth depth = media::Depth::Bits8;
    media::Rational rate{25, 1};
    FrameRange frames;  ///< The frames to render.
    /// Render to the end of a stream, which is not known beforehand; `frames` then ends beyond it.
    bool endless = false;
    runtime::Project project;
    /// Not Progressive where each field is rendered by itself: which of them comes first.
    media::FieldOrder fields = media::FieldOrder::Progressive;
    std::vector<looks::ParameterChange> parameters;
    std::optional<int> workers;  ///< Shares of a picture's rows; without it the machine's number.
    std::optional<Region> region;
    std::filesystem::path mask;  ///< Empty: no mask.
    ClipEnds ends = ClipEnds::Blank;
    std::optional<Comparison> comparison;
    bool opaque = false;  ///< Set the alpha of the result to full.
    int framesAtOnce = 1;
    bool resume = false;
    /// Of a render that resumes: files that are not later than this are made anew. Without it, all
    /// that are complete are kept.
    std::optional<std::filesystem::file_time_type> keptAfter;
    std::filesystem::path output;
    media::WriteOptions writing;
};

/// The size of what is rendered, both pictures of a comparison included. The result is scaled from
/// it to the size in `plan.writing`.
media::FrameSize renderedSize(const RenderPlan& plan);

/// Checks the job and completes it from what is known of its input. Throws JobError for what
/// this clip cannot give, such as frames or a region outside it, or several frames in one still,
/// and if the render would write a file that it reads. Adds what the user should know to `notes`.
RenderPlan planRender(const RenderJob& job, const media::ClipInfo& clip, std::vector<Note>& notes);

/// As planRender, of a job that was planned before with the same files: it does not look at each
/// file of a sequence for whether it would be written and read.
RenderPlan planAgain(const RenderJob& job, const media::ClipInfo& clip, std::vector<Note>& notes);

}  // namespace ruvex::jobs
