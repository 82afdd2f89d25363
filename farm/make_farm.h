// From renders to a farm job in a folder of its own.

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "farm/array_limits.h"
#include "farm/farm.h"
#include "jobs/render_job.h"

namespace ruvex::farm {

/// Shares of a picture's rows where a job names none: what a machine has must not matter.
inline constexpr int kUsualWorkers = 8;

/// Threads of a video encoder where a job names no number: the bytes of H.264 and H.265
/// depend on it.
inline constexpr int kUsualEncoderThreads = 8;

/// Long enough that the start of a task and the seek to its first frame are a small part of its
/// time, short enough that many machines finish at about the same time.
inline constexpr std::int64_t kUsualChunkFrames = 250;

/// What a farm job is made of.
struct FarmWish {
    std::vector<jobs::RenderJob> jobs;
    std::filesystem::path folder{};  ///< Empty: named after the output of the only job.
    std::int64_t chunkFrames = kUsualChunkFrames;
    bool keepChunks = false;
    SchedulerOptions scheduler{};
    ArrayLimits limits{};
};

/// "out.mov.farm" beside out.mov, "shot.farm" beside shot.%05d.png.
std::filesystem::path usualFolder(const std::filesystem::path& output);

/// Looks at all clips, and makes the folder, whole or not at all: the jobs with absolute names and
/// fixed shares, the list of chunks, and the batch script. Throws FarmError for jobs that cannot be
/// rendered in chunks, for more chunks than the limits allow, and for a folder that exists already,
/// and media::MediaError. What the user should know is added to `notes`, each sentence with the
/// field that it is about.
Farm makeFarm(const FarmWish& wish, std::vector<jobs::Note>& notes);

}  // namespace ruvex::farm
