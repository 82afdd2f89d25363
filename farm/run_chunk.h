// What a task does: one chunk, whole or not at all.

#pragma once

#include <stop_token>
#include <string>

#include "farm/farm.h"

namespace ruvex::farm {

enum class TaskEnd {
    Done,
    WasDone,  ///< Before; nothing was rendered.
    Stopped,  ///< On request; nothing is left under a final name but complete pictures.
};

/// Renders a chunk and writes its record, or finds that both are there. Of a sequence, pictures
/// that an earlier task of the chunk has completed are kept. A failure is recorded too. Throws
/// FarmError and as jobs::renderChunk does.
TaskEnd runChunk(const Farm& farm, std::int64_t number, jobs::RenderEvents& events,
                 const std::stop_token& stop);

}  // namespace ruvex::farm
