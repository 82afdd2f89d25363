// Ghosts: weaker copies of the picture beside itself.

#pragma once

#include "imaging/img_proc.h"
#include "imaging/texture.h"
#include "stages/signal_parameters.h"

namespace ruvex {

/// Runs the pass over a worker's rows and columns, from `source`, which wraps, to `target`. Without
/// memory it stops the render.
template <class P>
void runGhostPass(const SignalParameters& signal, const VxTexture<P>& source, VxTexture<P>& target,
                  Span rows, Span columns, InterruptionRecord* interrupt);

extern template void runGhostPass(const SignalParameters&, const VxTexture<Rgba8>&,
                                  VxTexture<Rgba8>&, Span, Span, InterruptionRecord*);
extern template void runGhostPass(const SignalParameters&, const VxTexture<RgbaS214>&,
                                  VxTexture<RgbaS214>&, Span, Span, InterruptionRecord*);

}  // namespace ruvex
