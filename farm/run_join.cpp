#include "farm/run_join.h"

#include <system_error>

#include "farm/farm_error.h"
#include "farm/fresh_folder.h"
#include "farm/leftovers.h"
#include "farm/number_list.h"
#include "farm/planned_clip.h"
#include "farm/recorded_failure.h"
#include "files/numbered_path.h"
#include "media/video/chunk_reader.h"

namespace ruvex::farm {
namespace {

namespace fs = std::filesystem;

std::string resumeText(const Farm& farm) {
    return "'ruvex farm resume " + farm.layout().folder().string() + "'";
}

/// The chunks of a clip, all of which are done.
struct DoneChunks {
    std::vector<FarmChunk> chunks;
    std::vector<DoneRecord> records;
};

DoneChunks doneChunks(const Farm& farm, const FarmClip& clip) {
    refreshFolder(farm.layout().done());
    refreshFolder(clip.isJoined() ? farm.layout().chunks() : clip.output.parent_path());
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
                    " of " + std::to_string(count) + ". " + resumeText(farm) +
                    " renders what is missing.");
}

/// A chunk that is to be rendered anew, whatever of it is there.
void forget(const Farm& farm, const FarmChunk& chunk) {
    std::error_code ignored;
    fs::remove(farm.layout().doneRecord(chunk.number), ignored);
    fs::remove(farm.layout().begunMark(chunk.number), ignored);
}

void checkPictures(const Farm& farm, const jobs::RenderPlan& plan, const DoneChunks& done) {
    for (std::size_t i = 0; i < done.chunks.size(); ++i) {
        if (digestOf(plan, farm.inRender(done.chunks[i])) == done.records[i].digest) continue;
        forget(farm, done.chunks[i]);
        throw FarmError("The pictures of " + toText(farm, done.chunks[i]) +
                        " are not those that its task has written. " + resumeText(farm) +
                        " renders them again.");
    }
}

jobs::RenderEnd joinVideo(const Farm& farm, const jobs::RenderPlan& plan, const DoneChunks& done,
                          jobs::RenderEvents& events, const std::stop_token& stop) {
    std::vector<jobs::Chunk> chunks;
    std::vector<std::string> digests;
    for (std::size_t i = 0; i < done.chunks.size(); ++i) {
        chunks.push_back(farm.inRender(done.chunks[i]));
        digests.push_back(done.records[i].digest);
    }
    try {
        return joinChunks(plan, chunks, digests, events, stop);
    } catch (const media::ChunkError& error) {
        for (const FarmChunk& chunk : done.chunks) {
            if (farm.inRender(chunk).file == error.file()) forget(farm, chunk);
        }
        throw FarmError(std::string(error.what()) + " " + resumeText(farm) + " does.");
    }
}

/// The bytes of the result.
std::uintmax_t bytesOf(const FarmClip& clip, const DoneChunks& done) {
    if (clip.isJoined()) return fs::file_size(files::NumberedPath(clip.output).plain());
    std::uintmax_t bytes = 0;
    for (const DoneRecord& one : done.records) bytes += one.bytes;
    return bytes;
}

TaskEnd join(const Farm& farm, std::size_t number, bool verify, jobs::RenderEvents& events,
             const std::stop_token& stop) {
    const double start = secondsNow();
    const FarmClip& clip = farm.job().clips[number];
    const bool verifies = verify && !clip.isJoined();
    if (completeClip(farm, number) && !verifies) {
        removeChunks(farm, number);
        return TaskEnd::WasDone;
    }
    checkProgram(farm);
    const DoneChunks done = doneChunks(farm, clip);
    const jobs::RenderPlan plan = plannedClip(farm, clip, clip.frames).plan;
    if (verifies) checkPictures(farm, plan, done);
    if (clip.isJoined()) {
        if (joinVideo(farm, plan, done, events, stop) == jobs::RenderEnd::Stopped) {
            return TaskEnd::Stopped;
        }
    }
    const double now = secondsNow();
    writeDone(farm.layout().joinRecord(number), {.frames = clip.frames,
                                                 .bytes = bytesOf(clip, done),
                                                 .seconds = now - start,
                                                 .finished = now,
                                                 .host = hostName()});
    removeChunks(farm, number);
    removeLeftovers(farm, number);
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
