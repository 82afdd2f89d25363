// A farm job in its folder.

#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "farm/farm_job.h"
#include "farm/layout.h"
#include "jobs/chunks.h"

namespace ruvex::farm {

/// One chunk of a farm job.
struct FarmChunk {
    std::int64_t number = 0;  ///< Over all clips.
    std::size_t clip = 0;
    jobs::FrameRange frames;
};

/// A job that makeFarm has made, and where its files are. Plain values: what has been rendered is
/// asked of the folder each time (records.h).
class Farm {
public:
    /// Throws FarmError if this machine sees no farm job there.
    explicit Farm(const std::filesystem::path& folder);

    const Layout& layout() const { return layout_; }
    const FarmJob& job() const { return job_; }

    std::int64_t chunks() const { return chunksOf(job_); }
    /// Throws FarmError if the job has no chunk of that number.
    FarmChunk chunk(std::int64_t number) const;
    const FarmClip& clipOf(const FarmChunk& chunk) const { return job_.clips.at(chunk.clip); }
    /// Throws FarmError if the job has no clip of that number.
    const FarmClip& clip(std::int64_t number) const;

    /// What the renderer calls the chunk.
    jobs::Chunk inRender(const FarmChunk& chunk) const;

private:
    Layout layout_;
    FarmJob job_;
};

/// "chunk 17 (frames 400-424 of out.mov)".
std::string toText(const Farm& farm, const FarmChunk& chunk);

/// "the join of out.mov", or of a sequence "the check of shot.%05d.png".
std::string joinText(const FarmClip& clip);

/// Throws FarmError unless `id` is the job's: the folder of that name may be another on this
/// machine, or a newer one.
void checkId(const Farm& farm, const std::string& id);

/// Throws FarmError unless this program is the one that made the job.
void checkProgram(const Farm& farm);

/// By which a job file is known: its media::Digest.
std::string digestOfText(const std::string& text);

/// Throws FarmError if the job file of a clip is not the one that was submitted.
void checkJobFile(const Farm& farm, const FarmClip& clip);

}  // namespace ruvex::farm
