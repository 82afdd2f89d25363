// Which part of a clip is rendered at which rate: what the clip says and what the user says.

#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "jobs/frame_range.h"
#include "jobs/job_error.h"
#include "media/clip_info.h"

namespace ruvex::jobs {

/// The rate of an input that does not say its own.
inline constexpr media::Rational kUsualRate{25, 1};

/// For renders that need to know the whole clip beforehand. Throws JobError for streams.
void checkNoStream(const std::filesystem::path& input);

/// The clip's own rate, else `named`, else kUsualRate. Notes a `named` rate that is ignored, and a
/// clip of variable frame rate with the number of its pictures that are left out.
media::Rational chooseRate(const std::filesystem::path& input, const media::ClipInfo& clip,
                           std::optional<media::Rational> named, std::vector<Note>& notes);

/// The `named` frames, or all. Throws JobError for frames outside the clip and for numbers from
/// kFrameNumberEnd up.
FrameRange chooseFrames(const std::filesystem::path& input, const media::ClipInfo& clip,
                        std::optional<FrameRange> named);

}  // namespace ruvex::jobs
