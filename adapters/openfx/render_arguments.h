// What the host wants rendered.

#pragma once

#include "adapters/common/picture_effect.h"
#include "adapters/openfx/properties.h"

namespace ruvex::openfx {

struct RenderArguments {
    double time = 0.0;
    adapters::PixelRect window{};  ///< May be anything.
    OfxPointD scale{1.0, 1.0};
    adapters::RenderedLines lines = adapters::RenderedLines::All;
};

/// Throws Failure with kOfxStatErrValue if the time or the window is missing, or the time is not
/// finite.
RenderArguments renderArguments(const Properties& in);

}  // namespace ruvex::openfx
