#include "farm/run_join.h"

#include <algorithm>
#include <fstream>
#include <system_error>

#include "farm/farm_error.h"
#include "farm/fresh_folder.h"
#include "farm/leftovers.h"
#include "farm/number_list.h"
#include "farm/own_pictures.h"
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

/// "chunk 3", "the chunks 3, 5-7".
std::string chunksText(const std::vector<std::int64_t>& numbers) {
    return (numbers.size() == 1 ? "chunk " : "the chunks ") + numberList(numbers, ", ");
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
    throw FarmError(clip.output.string() + " lacks " + chunksText(missing) + " of " +
                    std::to_string(count) + ". " + resumeText(farm) + " renders what is missing.");
}

/// The chunk is to be rendered anew, whatever of it is there.
void forget(const Farm& farm, const FarmChunk& chunk) {
    disownPictures(farm, chunk);
    std::error_code ignored;
    fs::remove(farm.layout().joinRecord(chunk.clip), ignored);
    fs::remove(farm.layout().doneRecord(chunk.number), ignored);
}

void checkPictures(const Farm& farm, const jobs::RenderPlan& plan, const DoneChunks& done) {
    std::vector<std::int64_t> changed;
    for (std::size_t i = 0; i < done.chunks.size(); ++i) {
        if (digestOf(plan, farm.inRender(done.chunks[i])) == done.records[i].digest) continue;
        forget(farm, done.chunks[i]);
        changed.push_back(done.chunks[i].number);
    }
    if (changed.empty()) return;
    throw FarmError("The pictures of " + chunksText(changed) +
                    " are not those that tasks have written. " + resumeText(farm) +
                    " renders them again.");
}

/// Whether all bytes of the file can be read.
bool canBeRead(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::vector<char> bytes(1 << 20);
    while (stream.read(bytes.data(), std::ssize(bytes))) {
    }
    return stream.eof();
}

/// Looks at the chunk once more: a file that cannot be read for a moment, or on this machine alone,
/// is not damaged.
bool isDamaged(const jobs::RenderPlan& plan, const jobs::Chunk& chunk, const DoneRecord& record) {
    try {
        return digestOf(plan, chunk) != record.digest;
    } catch (const media::ChunkError&) {
        return canBeRead(chunk.file);
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
        const auto at = std::ranges::find(chunks, error.file(), &jobs::Chunk::file);
        const auto i = static_cast<std::size_t>(at - chunks.begin());
        if (at == chunks.end() || !isDamaged(plan, *at, done.records[i])) throw;
        forget(farm, done.chunks[i]);
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
