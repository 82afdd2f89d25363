// Rows of the signal with their margins, for stages that read outside the picture's left and right.

#pragma once

#include <memory>
#include <optional>

#include "stages/ghosts.h"
#include "stages/padded_area.h"
#include "stages/signal_rows.h"

namespace ruvex {

/// Computes a whole row and copies the window's pixels from it, with ghosts if there are any. Each
/// worker has its own object. The constructor's arguments must outlive it.
template <class P>
class WideRows {
public:
    WideRows(const SignalParameters& signal, const PaddedArea& area, SignalRows<P>& rows);

    /// False if memory ran out; then nothing else may be called.
    bool usable() const { return row_ && (!ghosts_ || ghosts_->usable()); }

    /// Computes `columns` of row y (image space) into `to`.
    void make(std::int32_t y, Span columns, P* to);

private:
    void makeRow(std::int32_t y);

    const PaddedArea& area_;
    SignalRows<P>& rows_;
    std::optional<Ghosts<P>> ghosts_;
    std::unique_ptr<P[]> row_;  // all columns of a row, twice in succession
};

extern template class WideRows<Rgba8>;
extern template class WideRows<RgbaS214>;

}  // namespace ruvex
