// The faults of a video tape that does not play at normal speed.

#pragma once

#include "imaging/img_proc.h"
#include "imaging/texture.h"
#include "stages/signal_parameters.h"

namespace ruvex {

/// Whether the pass changes anything: for a video tape that winds, plays slowly or is paused.
bool transportActs(const SignalParameters& signal);

/// Runs the pass over a worker's rows and columns. `target` must hold a copy of `source`; only
/// changed pixels are written. The positions of later bands can differ slightly between workers.
template <class P>
void runTransportPass(const SignalParameters& signal, float scaleY, const VxTexture<P>& source,
                      VxTexture<P>& target, Span rows, Span columns, InterruptionRecord* interrupt);

extern template void runTransportPass(const SignalParameters&, float, const VxTexture<Rgba8>&,
                                      VxTexture<Rgba8>&, Span, Span, InterruptionRecord*);
extern template void runTransportPass(const SignalParameters&, float, const VxTexture<RgbaS214>&,
                                      VxTexture<RgbaS214>&, Span, Span, InterruptionRecord*);

}  // namespace ruvex
