// Whether the files that a clip is rendered from are those of its submission.

#pragma once

#include <filesystem>
#include <optional>

#include "farm/farm_job.h"
#include "jobs/frame_range.h"

namespace ruvex::farm {

/// The stamp of a file; of a numbered sequence the latest time of its pictures, and no bytes. Empty
/// for what is not there.
std::optional<files::FileStamp> stampOfInput(const std::filesystem::path& input);

/// A mask is one file. Empty without a mask.
std::optional<files::FileStamp> stampOfMask(const std::filesystem::path& mask);

/// Throws FarmError if the clip or its mask is not there, or was changed after the submission. Of a
/// sequence it looks at the pictures of `frames` alone: one that is newer than the newest was at
/// the submission has been changed.
void checkInputs(const FarmClip& clip, const jobs::FrameRange& frames);

}  // namespace ruvex::farm
