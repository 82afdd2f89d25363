// The thin dotted diagonals of interference that crawl across a bad picture.

#pragma once

#include "imaging/img_proc.h"
#include "imaging/texture.h"
#include "stages/signal_parameters.h"

namespace ruvex {

/// Paints the lines' dots of one worker's rows into `picture`, in place. Every worker works out the
/// same lines; the colours of their dots depend on where its share begins. A shallow line's
/// rounding can put a dot a row beyond the share: the workers' shares are drawn one after the other
/// on one thread, so that the later one wins.
template <class P>
void drawCreepingLines(const SignalParameters& signal, VxTexture<P>& picture, Span rows);

extern template void drawCreepingLines(const SignalParameters&, VxTexture<Rgba8>&, Span);
extern template void drawCreepingLines(const SignalParameters&, VxTexture<RgbaS214>&, Span);

}  // namespace ruvex
