// What the join of a clip does: from chunks to the result.

#pragma once

#include <stop_token>

#include "farm/farm.h"
#include "farm/run_chunk.h"

namespace ruvex::farm {

/// Joins the chunks of a video into its file, with sound, time code and tags, and checks the digest
/// of each chunk, and the number of frames before the file gets its name. Of a sequence, whose
/// pictures are in their places, it checks that all are there with the sizes that their tasks have
/// recorded, and with `verify` the digests too, for which all are read, whether the clip is
/// complete already or not. Chunks that are damaged count as not done from then on. Then the clip
/// is recorded as complete, and the files of its chunks are removed unless the job keeps them. A
/// failure is recorded too. Throws FarmError, naming the chunks that are missing, and as
/// jobs::joinChunks does.
TaskEnd runJoin(const Farm& farm, std::int64_t clip, bool verify, jobs::RenderEvents& events,
                const std::stop_token& stop);

}  // namespace ruvex::farm
