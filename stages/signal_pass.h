// The signal itself: rows torn sideways, colour lost, guns out of line, brightness and contrast.

#pragma once

#include <cstdint>

#include "imaging/img_proc.h"
#include "imaging/texture.h"
#include "stages/signal_parameters.h"
#include "stages/tone_tables.h"

namespace ruvex {

/// How far the colour has degraded: the amount d, and the weight k by which channels are swapped or
/// drained.
struct ColourLoss {
    enum class Stage { None, Swap, Drain, Grey };

    Stage stage = Stage::None;
    float weight = 0.0f;
};
ColourLoss colourLoss(float amount);

/// Runs the pass over a worker's rows and columns, from the padded source to `target`.
template <class P>
void runSignalPass(const SignalParameters& signal, const ToneTables<P>& tables,
                   const VxTexture<P>& source, VxTexture<P>& target, Span rows, Span columns,
                   InterruptionRecord* interrupt);

extern template void runSignalPass(const SignalParameters&, const ToneTables<Rgba8>&,
                                   const VxTexture<Rgba8>&, VxTexture<Rgba8>&, Span, Span,
                                   InterruptionRecord*);
extern template void runSignalPass(const SignalParameters&, const ToneTables<RgbaS214>&,
                                   const VxTexture<RgbaS214>&, VxTexture<RgbaS214>&, Span, Span,
                                   InterruptionRecord*);

}  // namespace ruvex
