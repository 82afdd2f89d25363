// The picture collapsing to a bright point when the set is switched off.

#pragma once

#include "imaging/img_proc.h"
#include "imaging/texture.h"
#include "stages/signal_parameters.h"

namespace ruvex {

/// Shrinks `picture` into the cleared `target` over a worker's rows and columns. The light of the
/// picture is concentrated: source pixels are summed and not averaged, up to the top of the range.
template <class P>
void shrinkToDot(const SignalParameters& signal, const VxTexture<P>& picture, VxTexture<P>& target,
                 Span rows, Span columns, InterruptionRecord* interrupt);

/// Gives the dot its halo, a blur in place around the shrunken picture. On all threads. `scaleY` is
/// the inverse of the pixel aspect.
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
