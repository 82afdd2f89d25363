// One frame of a clip with each preset, in one picture.

#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <stop_token>

#include "jobs/render_plan.h"
#include "media/frame_reader.h"

namespace ruvex::jobs {

/// The first of the plan's frames as it is and with each preset over the defaults, labelled; 8 bits
/// a channel, pictures of at most 720 pixels a side. The plan's parameters and output do not
/// matter. `drawn` is called after each preset. Empty if a stop was requested. Throws as
/// FrameRenderer does.
std::optional<media::Frame> presetSheet(const RenderPlan& plan,
                                        std::unique_ptr<media::FrameReader> reader,
                                        const std::function<void()>& drawn,
                                        const std::stop_token& stop = {});

}  // namespace ruvex::jobs
