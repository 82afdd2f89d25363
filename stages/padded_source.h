// The source picture with its margins, which are the blanking interval.

#pragma once

#include "imaging/img_proc.h"
#include "imaging/kept_buffer.h"
#include "imaging/texture.h"
#include "stages/padded_area.h"
#include "stages/signal_parameters.h"

namespace ruvex {

/// The area with margins of 1/7 of the picture's width (corrected by the pixel aspect) and 1/10 of
/// its height. The caller sets `rows` and `columns`.
PaddedArea paddedArea(const SignalParameters& signal, const VxTexIndexer& source, float scaleY);

/// The layout of a texture that covers the area.
VxTexIndexer paddedLayout(const VxTexIndexer& source, const PaddedArea& area);

/// The rows of the padded source that the three guns read for `rows` of the signal.
RowsRead rowsRead(const SignalParameters& signal, const PaddedArea& area, Span rows);

/// Fills `padded` with `source` and the border around it; only the rows that are read. Its pixels
/// are in `memory`. False if memory ran out or the frame was stopped.
template <class P>
bool padSource(const SignalParameters& signal, const PaddedArea& area, const RowsRead& rows,
               VxTexture<P>& source, VxTexture<P>& padded, KeptBuffer& memory,
               const VxImgProc& run);

extern template bool padSource(const SignalParameters&, const PaddedArea&, const RowsRead&,
                               VxTexture<Rgba8>&, VxTexture<Rgba8>&, KeptBuffer&, const VxImgProc&);
extern template bool padSource(const SignalParameters&, const PaddedArea&, const RowsRead&,
                               VxTexture<RgbaS214>&, VxTexture<RgbaS214>&, KeptBuffer&,
                               const VxImgProc&);

}  // namespace ruvex
