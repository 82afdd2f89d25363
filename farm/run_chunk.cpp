#include "farm/run_chunk.h"

#include <utility>

#include "farm/farm_error.h"
#include "farm/fresh_folder.h"
#include "farm/leftovers.h"
#include "farm/own_pictures.h"
#include "farm/planned_clip.h"
#include "farm/recorded_failure.h"

namespace ruvex::farm {
namespace {

bool isJoined(const Farm& farm, const FarmChunk& chunk) {
    return farm.clipOf(chunk).isJoined() && completeClip(farm, chunk.clip);
}

TaskEnd renderMissing(const Farm& farm, const FarmChunk& chunk, jobs::RenderEvents& events,
                      const std::stop_token& stop) {
    const double start = secondsNow();
    refreshFolder(farm.layout().done());
    refreshFolder(farm.layout().begun());
    // After a join, the file of the chunk is not needed any more.
    if (isJoined(farm, chunk) || completeChunk(farm, chunk)) return TaskEnd::WasDone;
    checkProgram(farm);
    PlannedClip planned = plannedClip(farm, farm.clipOf(chunk), chunk.frames);
    jobs::RenderPlan& plan = planned.plan;
    plan.keptAfter = ownPicturesAfter(farm, chunk, plan);
    const jobs::Chunk part = farm.inRender(chunk);
    if (renderChunk(plan, std::move(planned.reader), part, events, stop) ==
        jobs::RenderEnd::Stopped) {
        return TaskEnd::Stopped;
    }
    const std::string digest = digestOf(plan, part);
    const auto bytes = bytesOf(farm, chunk);
    if (!bytes) {
        throw FarmError(toText(farm, chunk) +
                        " is not complete although it was rendered. Does "
                        "another program write there?");
    }
    const double now = secondsNow();
    writeDone(farm.layout().doneRecord(chunk.number), {.frames = chunk.frames,
                                                       .digest = digest,
                                                       .bytes = *bytes,
                                                       .seconds = now - start,
                                                       .finished = now,
                                                       .host = hostName()});
    // Another task may have rendered the chunk too, and the join has ended since.
    if (isJoined(farm, chunk)) removeChunks(farm, chunk.clip);
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
