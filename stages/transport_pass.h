// What a video recorder does to the picture when it isn't playing at normal speed.

#pragma once

#include "imaging/img_proc.h"
#include "imaging/texture.h"
#include "stages/signal_parameters.h"

namespace ruvex {

/// Whether the tape runs in a way that shows.
bool transportActs(const SignalParameters& signal);

/// Runs the pass over a worker's rows and columns: reads `source`, and writes into `target`, which
/// holds a copy of it, what winding, slow play and pause change. A DVD and normal play change
/// nothing. The places of later bands can differ by a little from worker to worker.
template <class P>
void runTransportPass(const SignalParameters& signal, float scaleY, const VxTexture<P>& source,
                      VxTexture<P>& target, Span rows, Span columns, InterruptionRecord* interrupt);

extern template void runTransportPass(const SignalParameters&, float, const VxTexture<Rgba8>&,
                                      VxTexture<Rgba8>&, Span, Span, InterruptionRecord*);
extern template void runTransportPass(const SignalParameters&, float, const VxTexture<RgbaS214>&,
                                      VxTexture<RgbaS214>&, Span, Span, InterruptionRecord*);

}  // namespace ruvex
