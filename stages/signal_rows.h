// The signal pass: edge distortion, loss of colour, misaligned guns, brightness and contrast.

#pragma once

#include <cstdint>
#include <memory>

#include "imaging/img_proc.h"
#include "imaging/texture.h"
#include "stages/colour_loss.h"
#include "stages/gun_columns.h"
#include "stages/signal_parameters.h"
#include "stages/tone_tables.h"

namespace ruvex {

/// The largest displacement of the edge distortion at the signal's level, in pixels.
float edgeAmount(const SignalParameters& signal);

/// Whether a gun is offset by at least one pixel; only in colour.
bool gunsApart(const SignalParameters& signal);

/// Computes rows of the signal. Each worker has its own object. The constructor's arguments must
/// outlive it.
template <class P>
class SignalRows {
public:
    /// Outside `source` its edge methods apply. `longest` is the largest number of columns in a
    /// call of make.
    SignalRows(const SignalParameters& signal, const ToneTables<P>& tables,
               const VxTexture<P>& source, std::int32_t longest);

    /// False if memory ran out; then nothing else may be called.
    bool usable() const { return usable_; }

    /// Computes `columns` of row y (image space) into `to`, which must not overlap the source.
    void make(std::int32_t y, Span columns, P* to);

private:
    // The values that are the same for all pixels of a row.
    struct Row {
        std::int32_t shift;  // displacement: reads this many columns further right
        float gain;          // factor of the interference
    };

    Row rowState(std::int32_t y) const;
    float interferenceGain(float y) const;
    // Whether the picture is copied and clamped, and nothing else.
    bool copies() const { return tables_.identity && loss_.stage == ColourLoss::Stage::None; }
    void grey(std::int32_t y, std::int32_t x, std::int32_t count, P* to) const;
    void colour(std::int32_t y, std::int32_t x, std::int32_t count, P* to) const;
    void guns(std::int32_t y, std::int32_t x, std::int32_t count, P* to);
    void readGun(int gun, float offsetX, std::int32_t y, std::int32_t x, std::int32_t count, P* to);

    const SignalParameters& signal_;
    const ToneTables<P>& tables_;
    const VxTexture<P>& source_;
    float edgeAmount_;
    float phase_;
    float saturation_;
    ColourLoss loss_;
    float height_;  // height of the picture
    bool guns_;
    std::int32_t longest_;
    std::unique_ptr<P[]> gunRows_;  // one row for each of the three guns
    GunColumns gunColumns_[3];
    bool usable_;
};

extern template class SignalRows<Rgba8>;
extern template class SignalRows<RgbaS214>;

}  // namespace ruvex
