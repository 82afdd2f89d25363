#include "farm/run_join.h"

#include <system_error>

#include "farm/farm_error.h"
#include "farm/leftovers.h"
#include "farm/number_list.h"
#include "farm/planned_clip.h"
#include "farm/recorded_failure.h"
#include "files/numbered_path.h"

namespace ruvex::farm {
namespace {

namespace fs = std::filesystem;

/// The chunks of a clip, all of which are done.
struct DoneChunks {
    std::vector<FarmChunk> chunks;
    std::vector<DoneRecord> records;
};

DoneChunks doneChunks(const Farm& farm, const FarmClip& clip) {
    DoneChunks done;
    std::vector<std::int64_t> missing;
    const std::int64_t count = chunksOf(farm.job(), clip);
    for (std::int64_t number = clip.firstChunk; number < clip.firstChunk + count; ++number) {
        const FarmChunk chunk = farm.chunk(number);
        if (auto record = completeChunk(farm, chunk)) {
            done.chunks.push_back(chunk);
            done.records.push_back(*std::move(record));
        } else {
            missing.push_back(number);
        }
    }
    if (missing.empty()) return done;
    throw FarmError(clip.output.string() + " lacks " +
                    (missing.size() == 1 ? "chunk " : "the chunks ") + numberList(missing, ", ") +
                    " of " + std::to_string(count) + ": 'ruvex farm resume " +
                    farm.layout().folder().string() + "' renders what is missing.");
}

void checkPictures(const Farm& farm, const jobs::RenderPlan& plan, const DoneChunks& done) {
    for (std::size_t i = 0; i < done.chunks.size(); ++i) {
        const auto digest = digestOf(plan, farm.inRender(done.chunks[i]));
        if (digest.digits != done.records[i].digest) {
            throw FarmError("The pictures of " + toText(farm, done.chunks[i]) +
                            " are not those that its task has written. Remove them, and resume.");
        }
    }
}

/// Throws FarmError unless the file has the frames that were rendered.
void checkFrameCount(const FarmClip& clip) {
    const media::ClipInfo info = media::openReader(clip.output)->info();
    const std::int64_t count = info.last - info.first + 1;
    if (count == clip.frames.count()) return;
    throw FarmError(clip.output.string() + " has " + std::to_string(count) + " frames instead of " +
                    std::to_string(clip.frames.count()) + ". Remove it, and resume.");
}

jobs::RenderEnd joinVideo(const Farm& farm, const jobs::RenderPlan& plan, const DoneChunks& done,
                          jobs::RenderEvents& events, const std::stop_token& stop) {
    std::vector<jobs::Chunk> chunks;
    std::vector<jobs::ChunkDigest> digests;
    for (std::size_t i = 0; i < done.chunks.size(); ++i) {
        chunks.push_back(farm.inRender(done.chunks[i]));
        digests.push_back({done.records[i].digest, done.chunks[i].frames.count()});
    }
    return joinChunks(plan, chunks, digests, events, stop);
}

void removeChunks(const Farm& farm, const DoneChunks& done) {
    for (const FarmChunk& chunk : done.chunks) {
        std::error_code ignored;
        fs::remove(farm.inRender(chunk).file, ignored);
    }
}

TaskEnd join(const Farm& farm, std::size_t number, bool verify, jobs::RenderEvents& events,
             const std::stop_token& stop) {
    const double start = secondsNow();
    if (completeClip(farm, number)) return TaskEnd::WasDone;
    checkProgram(farm);
    const FarmClip& clip = farm.job().clips[number];
    const DoneChunks done = doneChunks(farm, clip);
    DoneRecord record{.frames = clip.frames, .host = hostName()};
    const jobs::RenderPlan plan = plannedClip(farm, clip);
    if (clip.isJoined()) {
        if (joinVideo(farm, plan, done, events, stop) == jobs::RenderEnd::Stopped) {
            return TaskEnd::Stopped;
        }
        checkFrameCount(clip);
        record.bytes = fs::file_size(files::NumberedPath(clip.output).plain());
    } else {
        if (verify) checkPictures(farm, plan, done);
        for (const DoneRecord& one : done.records) record.bytes += one.bytes;
    }
    record.finished = secondsNow();
    record.seconds = record.finished - start;
    writeDone(farm.layout().joinRecord(number), record);
    if (clip.isJoined() && !farm.job().keepChunks) removeChunks(farm, done);
    removeLeftovers(farm, clip);
    return TaskEnd::Done;
}

}  // namespace

TaskEnd runJoin(const Farm& farm, std::int64_t clip, bool verify, jobs::RenderEvents& events,
                const std::stop_token& stop) {
    static_cast<void>(farm.clip(clip));
    const auto number = static_cast<std::size_t>(clip);
    return withFailureRecorded(farm.layout().joinFailureRecord(number),
                               [&] { return join(farm, number, verify, events, stop); });
}

}  // namespace ruvex::farm
