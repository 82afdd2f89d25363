// A farm job as a value: renders that are cut into chunks.

#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "farm/program_identity.h"
#include "files/file_stamp.h"
#include "jobs/frame_range.h"

namespace ruvex::farm {

/// One render of a farm job.
struct FarmClip {
    std::string name;       ///< Of its job file in the folder jobs/, without ".json".
    std::string jobDigest;  ///< Of the text of the job file; see digestOfText.
    std::filesystem::path input;
    std::optional<files::FileStamp> inputStamp{};
    std::filesystem::path mask{};  ///< Empty without one.
    std::optional<files::FileStamp> maskStamp{};
    std::filesystem::path output;
    jobs::FrameRange frames;     ///< All that are rendered.
    std::string chunkExtension;  ///< Of chunks that are files to be joined; empty for a sequence.
    std::int64_t firstChunk = 0;

    bool isJoined() const { return !chunkExtension.empty(); }
    friend bool operator==(const FarmClip&, const FarmClip&) = default;
};

/// How the scheduler is asked; empty where it decides by itself.
struct SchedulerOptions {
    std::string partition{};
    std::string account{};
    std::string time{};                ///< Limit of a chunk, in the scheduler's words: "1:00:00".
    std::string joinTime{};            ///< Limit of a join; that of a chunk without it.
    std::optional<int> maxTasks{};     ///< Chunks that are rendered at a time.
    std::vector<std::string> extra{};  ///< Further options of sbatch.

    friend bool operator==(const SchedulerOptions&, const SchedulerOptions&) = default;
};

struct FarmJob {
    std::string id;  ///< 16 hexadecimal digits that no other farm job has.
    ProgramIdentity program;
    std::int64_t chunkFrames = 1;  ///< Of a chunk; the last one of a clip may have fewer.
    bool keepChunks = false;       ///< Do not remove the files of chunks after the join.
    std::int64_t arrayLength = 1;  ///< Chunks or clips in an array of the scheduler.
    SchedulerOptions scheduler;
    std::vector<FarmClip> clips;

    friend bool operator==(const FarmJob&, const FarmJob&) = default;
};

/// How many chunks a clip has.
inline std::int64_t chunksOf(const FarmJob& job, const FarmClip& clip) {
    return (clip.frames.count() + job.chunkFrames - 1) / job.chunkFrames;
}

/// How many chunks the job has. They are numbered from 0 on, over all clips.
inline std::int64_t chunksOf(const FarmJob& job) {
    return job.clips.empty() ? 0 : job.clips.back().firstChunk + chunksOf(job, job.clips.back());
}

}  // namespace ruvex::farm
