// The result of a render in a size of its own.

#pragma once

#include <optional>

#include "jobs/render_plan.h"
#include "media/pixels/area_scaler.h"

namespace ruvex::jobs {

/// How the plan's result is scaled; empty where it has the size that is rendered.
std::optional<media::AreaScaling> outputScaling(const RenderPlan& plan);

/// The width of a pixel over its height after scaling, so that a picture keeps its shape. Where the
/// new size has the proportions of the old one but for rounding to whole pixels, it stays as it is.
media::Rational scaledPixelAspect(const media::Rational& aspect, media::FrameSize from,
                                  media::FrameSize to);

}  // namespace ruvex::jobs
