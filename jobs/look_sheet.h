// One frame of a clip with several looks, in one picture.

#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <stop_token>
#include <string>

#include "jobs/render_plan.h"
#include "looks/look.h"
#include "media/frame_reader.h"

namespace ruvex::jobs {

/// One cell of a sheet.
struct SheetLook {
    std::string label;
    std::vector<looks::ParameterChange> changes;      ///< Over the defaults.
    std::optional<looks::ProjectSize> projectSize{};  ///< The plan's project frame without it.
};

/// The first of the plan's frames with each of the looks, labelled, in rows of as many pictures as
/// there are rows; 8 bits a channel. With more than three pictures in a row they have at most 480
/// pixels a side, else at most 720. With `source` the frame as it is comes first. The plan's
/// parameters and output do not matter. `drawn` is called after each look. Empty if a stop was
/// requested. Throws as FrameRenderer does, and media::MediaError if the sheet would be too large.
std::optional<media::Frame> lookSheet(const RenderPlan& plan,
                                      std::unique_ptr<media::FrameReader> reader,
                                      std::span<const SheetLook> looks, bool source,
                                      const std::function<void()>& drawn,
                                      const std::stop_token& stop = {});

}  // namespace ruvex::jobs
