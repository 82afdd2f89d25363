// The faults of a video recorder's picture when it isn't playing at normal speed.

#pragma once

#include "imaging/img_proc.h"
#include "imaging/texture.h"
#include "stages/signal_parameters.h"

namespace ruvex {

/// Whether the pass changes anything: a video tape that winds, plays slowly or is paused.
bool transportActs(const SignalParameters& signal);

/// Runs the pass over a worker's rows and columns. Reads `source`; `target` must hold a copy of it,
/// of which only the changed pixels are written. The places of later bands can differ by a little
/// from worker to worker.
template <class P>
void runTransportPass(const SignalParameters& signal, float scaleY, const VxTexture<P>& source,
                      VxTexture<P>& target, Span rows, Span columns, InterruptionRecord* interrupt);

extern template void runTransportPass(const SignalParameters&, float, const VxTexture<Rgba8>&,
                                      VxTexture<Rgba8>&, Span, Span, InterruptionRecord*);
extern template void runTransportPass(const SignalParameters&, float, const VxTexture<RgbaS214>&,
                                      VxTexture<RgbaS214>&, Span, Span, InterruptionRecord*);

}  // namespace ruvex
