#include "farm/run_chunk.h"

#include "farm/farm_error.h"
#include "farm/older_pictures.h"
#include "farm/planned_clip.h"
#include "farm/recorded_failure.h"

namespace ruvex::farm {
namespace {

TaskEnd renderMissing(const Farm& farm, const FarmChunk& chunk, jobs::RenderEvents& events,
                      const std::stop_token& stop) {
    const double start = secondsNow();
    // After a join, the file of the chunk is not needed any more.
    const bool joined = farm.clipOf(chunk).isJoined() && completeClip(farm, chunk.clip);
    if (joined || completeChunk(farm, chunk)) return TaskEnd::WasDone;
    checkProgram(farm);
    const jobs::RenderPlan plan = plannedClip(farm, farm.clipOf(chunk));
    removeOlderPictures(farm, chunk, plan);
    const jobs::Chunk part = farm.inRender(chunk);
    if (renderChunk(plan, part, events, stop) == jobs::RenderEnd::Stopped) return TaskEnd::Stopped;
    const jobs::ChunkDigest digest = digestOf(plan, part);
    const auto bytes = bytesOf(farm, chunk);
    if (!bytes || digest.frames != chunk.frames.count()) {
        throw FarmError(toText(farm, chunk) +
                        " is not complete although it was rendered. Does "
                        "another program write there?");
    }
    const double now = secondsNow();
    writeDone(farm.layout().doneRecord(chunk.number), {.frames = chunk.frames,
                                                       .digest = digest.digits,
                                                       .bytes = *bytes,
                                                       .seconds = now - start,
                                                       .finished = now,
                                                       .host = hostName()});
    return TaskEnd::Done;
}

}  // namespace

TaskEnd runChunk(const Farm& farm, std::int64_t number, jobs::RenderEvents& events,
                 const std::stop_token& stop) {
    const FarmChunk chunk = farm.chunk(number);
    return withFailureRecorded(farm.layout().failureRecord(number),
                               [&] { return renderMissing(farm, chunk, events, stop); });
}

}  // namespace ruvex::farm
