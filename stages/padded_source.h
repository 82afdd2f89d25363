// The source with its margins: the picture as it is sent, blanking interval and all.

#pragma once

#include "imaging/img_proc.h"
#include "imaging/texture.h"
#include "stages/padded_area.h"
#include "stages/signal_parameters.h"

namespace ruvex {

/// Margins of a seventh of the picture's width, corrected by the aspect, and a tenth of its height.
/// `rows` and `columns` are left for the caller.
PaddedArea paddedArea(const SignalParameters& signal, const VxTexIndexer& source, float scaleY);

/// The layout of a picture that covers the area.
VxTexIndexer paddedLayout(const VxTexIndexer& source, const PaddedArea& area);

/// Which rows of the padded source are read for `rows` of the signal, each gun at its own height.
RowsRead rowsRead(const SignalParameters& signal, const PaddedArea& area, Span rows);

/// Makes `padded` of `source`: the picture in the middle, and its border. Only the rows that are
/// read are made. False when memory ran out or the frame was stopped.
template <class P>
bool padSource(const SignalParameters& signal, const PaddedArea& area, const RowsRead& rows,
               VxTexture<P>& source, VxTexture<P>& padded, const VxImgProc& run);

extern template bool padSource(const SignalParameters&, const PaddedArea&, const RowsRead&,
                               VxTexture<Rgba8>&, VxTexture<Rgba8>&, const VxImgProc&);
extern template bool padSource(const SignalParameters&, const PaddedArea&, const RowsRead&,
                               VxTexture<RgbaS214>&, VxTexture<RgbaS214>&, const VxImgProc&);

}  // namespace ruvex
