// The folder of a farm job: which file stands where.

#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

namespace ruvex::farm {

/// Names only; nothing has to exist.
class Layout {
public:
    /// `folder` becomes absolute: every machine has to see it under this name.
    explicit Layout(const std::filesystem::path& folder);

    const std::filesystem::path& folder() const { return folder_; }
    /// What the job is; never written again.
    std::filesystem::path farmFile() const { return folder_ / "farm.json"; }
    /// The render of a clip, as 'ruvex render --save-job' writes it.
    std::filesystem::path jobFile(const std::string& clip) const;
    /// Where the frames of a clip's video are, so that a task reads its part alone.
    std::filesystem::path indexFile(const std::string& clip) const;
    std::filesystem::path script() const { return folder_ / "task.sh"; }
    /// Locked while something is submitted.
    std::filesystem::path lock() const { return folder_ / "lock"; }
    std::filesystem::path logs() const { return folder_ / "logs"; }
    /// What a task of a scheduler's array has printed.
    std::filesystem::path log(const std::string& array, std::int64_t index) const;
    std::filesystem::path chunks() const { return folder_ / "chunks"; }
    /// The files of the chunks of a video, as a numbered path.
    std::filesystem::path chunkFiles(std::size_t clip, const std::string& extension) const;
    std::filesystem::path chunkFile(std::size_t clip, std::int64_t chunk,
                                    const std::string& extension) const;
    /// Marks the chunks of a sequence that a task has begun to render.
    std::filesystem::path begun() const { return folder_ / "begun"; }
    std::filesystem::path begunMark(std::int64_t chunk) const;
    /// The records in one of the folders done() and failed(), as a numbered path.
    static std::filesystem::path chunkRecords(const std::filesystem::path& folder);
    static std::filesystem::path joinRecords(const std::filesystem::path& folder);
    std::filesystem::path done() const { return folder_ / "done"; }
    std::filesystem::path doneRecord(std::int64_t chunk) const;
    std::filesystem::path joinRecord(std::size_t clip) const;
    std::filesystem::path failed() const { return folder_ / "failed"; }
    std::filesystem::path failureRecord(std::int64_t chunk) const;
    std::filesystem::path joinFailureRecord(std::size_t clip) const;

private:
    std::filesystem::path folder_;
};

}  // namespace ruvex::farm
