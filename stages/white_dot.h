// The white dot: the picture shrinks to a bright point when the television is switched off.

#pragma once

#include "imaging/img_proc.h"
#include "imaging/texture.h"
#include "stages/signal_parameters.h"

namespace ruvex {

/// Shrinks `picture` into `target`, which must be cleared, over a worker's rows and columns. Source
/// pixels are summed and not averaged, up to the top of the range, so that the dot is bright.
template <class P>
void shrinkToDot(const SignalParameters& signal, const VxTexture<P>& picture, VxTexture<P>& target,
                 Span rows, Span columns, InterruptionRecord* interrupt);

/// Blurs the shrunken picture in place, which gives the dot a halo. Runs on all worker threads.
/// `scaleY` is 1 / pixel aspect.
template <class P>
void glowAroundDot(const SignalParameters& signal, float scaleY, VxTexture<P>& target,
                   InterruptionRecord* interrupt);

extern template void shrinkToDot(const SignalParameters&, const VxTexture<Rgba8>&,
                                 VxTexture<Rgba8>&, Span, Span, InterruptionRecord*);
extern template void shrinkToDot(const SignalParameters&, const VxTexture<RgbaS214>&,
                                 VxTexture<RgbaS214>&, Span, Span, InterruptionRecord*);
extern template void glowAroundDot(const SignalParameters&, float, VxTexture<Rgba8>&,
                                   InterruptionRecord*);
extern template void glowAroundDot(const SignalParameters&, float, VxTexture<RgbaS214>&,
                                   InterruptionRecord*);

}  // namespace ruvex
