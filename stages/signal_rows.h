// The signal itself: rows torn sideways, colour lost, guns out of line, brightness and contrast.

#pragma once

#include <cstdint>
#include <memory>

#include "imaging/img_proc.h"
#include "imaging/texture.h"
#include "stages/colour_loss.h"
#include "stages/signal_parameters.h"
#include "stages/tone_tables.h"

namespace ruvex {

/// How far the edges are pulled at this level, in pixels.
float edgeAmount(const SignalParameters& signal);

/// Whether the guns hit the screen in different places.
bool gunsApart(const SignalParameters& signal);

/// Makes rows of the signal, one after the other. One for each worker; what it is given must
/// outlive it.
template <class P>
class SignalRows {
public:
    /// Reads `source` through its edge methods. `longest` is the largest number of columns that
    /// will be asked for.
    SignalRows(const SignalParameters& signal, const ToneTables<P>& tables,
               const VxTexture<P>& source, std::int32_t longest);

    /// False when memory ran out; then nothing else may be called.
    bool usable() const { return usable_; }

    /// Writes the columns of row y, both in image space, to `to`, which must lie elsewhere than
    /// what is read.
    void make(std::int32_t y, Span columns, P* to);

private:
    // What all pixels of a row share.
    struct Row {
        std::int32_t shift;  // columns further right that it reads
        float gain;          // of the interference
    };

    Row rowState(std::int32_t y) const;
    float interferenceGain(float y) const;
    void grey(std::int32_t y, std::int32_t x, std::int32_t count, P* to) const;
    void colour(std::int32_t y, std::int32_t x, std::int32_t count, P* to) const;
    void guns(std::int32_t y, std::int32_t x, std::int32_t count, P* to);
    void readGun(float offsetX, std::int32_t y, std::int32_t x, std::int32_t count, P* to) const;

    const SignalParameters& signal_;
    const ToneTables<P>& tables_;
    const VxTexture<P>& source_;
    float edgeAmount_;
    float phase_;
    float saturation_;
    ColourLoss loss_;
    float height_;  // of the picture
    bool guns_;
    std::int32_t longest_;
    std::unique_ptr<P[]> gunRows_;  // one row for each of the three guns
    bool usable_;
};

extern template class SignalRows<Rgba8>;
extern template class SignalRows<RgbaS214>;

}  // namespace ruvex
