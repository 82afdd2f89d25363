// What the tasks of a farm job leave behind: a record of each chunk that is done, and of each that
// has failed.

#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "farm/farm.h"

namespace ruvex::farm {

/// A chunk that is done, or a clip that is complete. Written when all of its files are there.
struct DoneRecord {
    jobs::FrameRange frames;
    std::string digest{};      ///< Of the chunk; empty for a clip.
    std::uintmax_t bytes = 0;  ///< Of its files.
    double seconds = 0.0;      ///< That the task took.
    double finished = 0.0;     ///< Seconds since 1970.
    std::string host{};
};

struct FailureRecord {
    std::string sentence;
    std::string host;
};

/// Seconds since 1970.
double secondsNow();

/// Throws files::FileError.
void writeDone(const std::filesystem::path& file, const DoneRecord& record);
/// Empty if there is no record, or a damaged one, or one of other frames.
std::optional<DoneRecord> readDone(const std::filesystem::path& file,
                                   const jobs::FrameRange& frames);

/// Does nothing if it cannot be written: the failure is told elsewhere too.
void writeFailure(const std::filesystem::path& file, const FailureRecord& record);
std::optional<FailureRecord> readFailure(const std::filesystem::path& file);

/// The bytes of a chunk's files; empty if one is missing.
std::optional<std::uintmax_t> bytesOf(const Farm& farm, const FarmChunk& chunk);

/// The record of a chunk all of whose files are there with the bytes that it names; empty for any
/// other chunk.
std::optional<DoneRecord> completeChunk(const Farm& farm, const FarmChunk& chunk);

/// The record of a clip whose result is there. The chunks of such a clip are not needed any more.
std::optional<DoneRecord> completeClip(const Farm& farm, std::size_t clip);

}  // namespace ruvex::farm
