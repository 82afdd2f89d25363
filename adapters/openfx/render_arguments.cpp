#include "adapters/openfx/render_arguments.h"

#include <cmath>

#include "adapters/openfx/failure.h"

namespace ruvex::openfx {
namespace {

adapters::RenderedLines linesOf(const Properties& in) {
    const std::string field = in.getString(kOfxImageEffectPropFieldToRender);
    if (field == kOfxImageFieldLower) return adapters::RenderedLines::LowerField;
    if (field == kOfxImageFieldUpper) return adapters::RenderedLines::UpperField;
    return adapters::RenderedLines::All;
}

}  // namespace

RenderArguments renderArguments(const Properties& in) {
    const auto time = in.findDouble(kOfxPropTime);
    const auto window = in.findRectI(kOfxImageEffectPropRenderWindow);
    if (!time || !std::isfinite(*time) || !window) {
        throw Failure(kOfxStatErrValue, "the host wants a frame without its time or window");
    }
    RenderArguments arguments{.time = *time,
                              .window = {window->x1, window->y1, window->x2, window->y2},
                              .lines = linesOf(in)};
    if (const auto scale = in.findPointD(kOfxImageEffectPropRenderScale)) arguments.scale = *scale;
    return arguments;
}

}  // namespace ruvex::openfx
