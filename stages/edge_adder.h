// The blanking interval around the active picture, with noise and sync pulses.

#pragma once

#include <cstdint>

#include "imaging/img_proc.h"
#include "imaging/noise/gradient_noise.h"
#include "imaging/texture.h"
#include "stages/padded_area.h"
#include "stages/signal_parameters.h"

namespace ruvex {

/// Paints the margins of a padded picture. Vertical roll and edge distortion move parts of them
/// into view. The noise of a row depends on where the worker's share begins.
template <class P>
class EdgeAdder : public VxImgProc1<VxTexture<P>> {
public:
    void run() override { paint(this->rowRange(), this->columnRange()); }

    /// Paints a worker's rows of `target`.
    void paint(Span rows, Span columns);

    /// The padded rectangle in image space; right and bottom are one past the end. `right` is not
    /// used: the pulses of that side are placed by the window's columns.
    std::int32_t left = 0, right = 0, top = 0, bottom = 0;
    BorderAlpha borderAlpha = BorderAlpha::None;
    std::uint32_t seed = 0;
    std::int32_t sourceFrame = 0;
    const VxGradientNoise* noiseTable = nullptr;  ///< not owned
    /// The rows to paint, as indices from the texture's first row; not owned. For other rows random
    /// numbers are drawn, but nothing is painted. Null: all rows.
    const RowsRead* rowsRead = nullptr;

private:
    void blackRows(Span band, Span columns);
    void noiseRows(Span band, Span columns, std::uint32_t& local);
    P noisePixel(float f) const;
    void syncBars(std::int32_t y, Span columns);
    void fillAcross(std::int32_t y, float from, float to, Span columns, const P& pixel);
    void alphaAcross(std::int32_t y, float from, float to, Span columns,
                     typename P::Component alpha);
    P black() const;
    bool isRead(std::int32_t y) const {
        return !rowsRead || rowsRead->has(y - this->target->y.offset);
    }
};

extern template class EdgeAdder<Rgba8>;
extern template class EdgeAdder<RgbaS214>;

}  // namespace ruvex
