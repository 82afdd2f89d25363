// Creeping lines: thin dotted diagonal lines that move across the picture.

#pragma once

#include "imaging/img_proc.h"
#include "imaging/texture.h"
#include "stages/signal_parameters.h"

namespace ruvex {

/// Paints the dots of the lines on one worker's rows into `picture`. All shares have the same
/// lines, but the colours of the dots depend on where a share begins. Because of rounding, a dot of
/// a shallow line can be one row outside the share. Therefore one thread has to draw all shares,
/// one after the other, so that the later one overwrites.
///
/// The number of lines depends on their spacing and not on the picture: there may be millions, so
/// `interrupt` (may be null) is checked before each line.
template <class P>
void drawCreepingLines(const SignalParameters& signal, VxTexture<P>& picture, Span rows,
                       InterruptionRecord* interrupt);

extern template void drawCreepingLines(const SignalParameters&, VxTexture<Rgba8>&, Span,
                                       InterruptionRecord*);
extern template void drawCreepingLines(const SignalParameters&, VxTexture<RgbaS214>&, Span,
                                       InterruptionRecord*);

}  // namespace ruvex
