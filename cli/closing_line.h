// What a finished render took and made, in words.

#pragma once

#include <cstdint>
#include <string>

#include "jobs/render_plan.h"

namespace ruvex::cli {

/// "bad.mp4: 250 frames in 12.3 s, 20.3 a second; 1920x1080, 45.2 MB." `frames` were written in
/// `seconds`. Without frames, that nothing was left to render. The bytes are those of all files of
/// the result; a stream has none to count.
std::string closingLine(const jobs::RenderPlan& plan, std::int64_t frames, double seconds);

/// "memory for frames: 8 frames, 56.0 MB.": what was held beside the codecs.
std::string memoryLine(const media::HeldMemory& held);

}  // namespace ruvex::cli
