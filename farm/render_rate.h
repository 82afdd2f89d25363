// How fast the chunks of a farm job are rendered.

#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "farm/records.h"

namespace ruvex::farm {

/// Frames a second of all machines together, from the records of chunks that are done, in any
/// order; 0 where it is not known. `running` is how many chunks are rendered now; empty where
/// nobody can tell.
///
/// With that number: what one task rendered in a second, over the 64 chunks that ended last, times
/// the number. Without it: what was rendered between the first and the last end of the chunks that
/// ended within half an hour of the last one, or within four times what that one took. A chunk that
/// began before the first end counts by the part of its time that lies after it, as if its frames
/// were spread evenly: so tasks that begin and end together are counted right, and so is a job that
/// has paused before.
double framesPerSecond(std::vector<const DoneRecord*> records, std::optional<std::int64_t> running);

}  // namespace ruvex::farm
