#include "stages/rgb_noise_proc.h"

#include <algorithm>
#include <cmath>

#include "imaging/noise/noise_gen.h"
#include "imaging/noise/rgba_noise_gen.h"
#include "imaging/noise/soft_noise_rows.h"
#include "stages/kernels/row_kernels.h"
#include "stages/source_runs.h"
#include "stages/stage_pixel.h"

namespace ruvex {
namespace {

constexpr float kLeastAspect = 0.001f;
constexpr std::uint32_t kAlphaOnly = 8;

// Pixels per step: so few that their noise stays in the first-level cache.
constexpr std::int32_t kTile = 64;

// Sparse grain: noise inside the dead band becomes 0, and the rest is stretched to the full range.
void setBand(GrainShape& shape, float sparseness, float reach) {
    shape.banded = sparseness > 0.0f;
    shape.cut = sparseness * reach;
    shape.stretch = reach / (reach - shape.cut);
}

template <class Generator>
void giveRun(Generator& generator, const VxImgProc& from, std::uint32_t seed) {
    generator.interrupt = from.interrupt;
    generator.seed = seed;
    generator.scaleX = std::max(from.scaleX, kLeastAspect);
    generator.scaleY = 1.0f / generator.scaleX;
}

// Calls add(from, done, length, to) for each run of the `count` source pixels (at most kTile) from
// (x, y) on, with the target pixels where they belong; `done` is the number of pixels before it.
template <class P, class Add>
void forEachRun(const VxTexture<P>& source, VxTexture<P>& target, std::int32_t x, std::int32_t y,
                std::int32_t count, Add add) {
    P* const to = target.writeAt(x, y);
    overRuns(source, x, y, count,
             [&](const P* from, std::int32_t step, std::int32_t done, std::int32_t length) {
                 P line[kTile];
                 add(inLine(from, step, length, line), done, length, to + done);
             });
}

// Adds noise to `count` source pixels and stores the sums in the target.
template <class P>
void addNoise(const VxTexture<P>& source, VxTexture<P>& target, std::int32_t x, std::int32_t y,
              std::int32_t count, const float* noise, const GrainShape& shape) {
    forEachRun(source, target, x, y, count,
               [&](const P* from, std::int32_t done, std::int32_t length, P* to) {
                   bestRowKernels<P>().addGrain(from, noise + 4 * done, length, shape, to);
               });
}

// The same with soft noise. From a pixel to the next there are `stride` values.
template <class P>
void addSoftNoise(const VxTexture<P>& source, VxTexture<P>& target, std::int32_t x, std::int32_t y,
                  std::int32_t count, const std::int32_t* noise, std::int64_t stride,
                  const GrainShape& shape) {
    forEachRun(source, target, x, y, count,
               [&](const P* from, std::int32_t done, std::int32_t length, P* to) {
                   bestRowKernels<P>().addSoftGrain(from, noise + done * stride, stride, length,
                                                    shape, to);
               });
}

// Converts blurred noise to floats, four per pixel.
void widenColour(const std::int32_t* noise, std::int32_t count, float* to) {
    for (std::int32_t i = 0; i < 4 * count; ++i) to[i] = static_cast<float>(noise[i]);
}
// From a pixel to the next there are `stride` integers.
void widenGrey(const std::int32_t* noise, std::int64_t stride, std::int32_t count, float* to) {
    for (std::int32_t i = 0; i < count; ++i) {
        const auto value = static_cast<float>(noise[i * stride]);
        for (int k = 0; k < 4; ++k) to[4 * i + k] = value;
    }
}

}  // namespace

template <class P>
void VxRGBNoiseProc<P>::pre() {
    if (sparseness >= 1.0f) return;
    blurring = largestSoftness(softX, alpha) > 0.0f || largestSoftness(softY, alpha) > 0.0f;
    if (!blurring || softensRows()) return;
    if (mode == Mode::Colour) {
        makeColourNoise();
    } else {
        makeGreyNoise();
    }
}

// Whether the noise is blurred along X only, which SoftNoiseRows does without a whole picture.
template <class P>
bool VxRGBNoiseProc<P>::softensRows() const {
    if (!(softX[0] / 3.0f > 0.0f) || this->scaleX != 1.0f || softY[0] != 0.0f) return false;
    if (mode == Mode::Grey) return true;
    for (int k = 1; k < 4; ++k) {
        if (softX[k] != softX[0] || softY[k] != 0.0f) return false;
    }
    return alpha;
}

// The scale of the noise generators (see VxNoiseGen::scale): the range of the noise in raw values.
template <class P>
float VxRGBNoiseProc<P>::scaleOf(int component) const {
    constexpr float kWhite = StagePixel<P>::kWhite;
    if (mode == Mode::Grey) return amountMax[0] * kWhite - amountMin[0] * kWhite;
    return (amountMax[component] - amountMin[component]) * kWhite;
}

template <class P>
void VxRGBNoiseProc<P>::makeColourNoise() {
    std::int32_t left, top, right, bottom;
    this->getWindow(left, top, right, bottom);
    colourNoise.allocateRegion(left, top, right, bottom, Contents::Zero);
    if (!colourNoise.data) return raiseOutOfMemory(this->interrupt);
    VxRGBANoiseGen generator;
    giveRun(generator, *this, seed);
    generator.alpha = alpha;
    for (int k = 0; k < 4; ++k) {
        generator.scale[k] = scaleOf(k);
        generator.blurX[k] = softX[k];
        generator.blurY[k] = softY[k];
    }
    generator.process(colourNoise);
}

template <class P>
void VxRGBNoiseProc<P>::makeGreyNoise() {
    std::int32_t left, top, right, bottom;
    this->getWindow(left, top, right, bottom);
    greyNoise.allocateRegion(left, top, right, bottom, Contents::Zero);
    if (!greyNoise.data) return raiseOutOfMemory(this->interrupt);
    VxNoiseGen generator;
    giveRun(generator, *this, seed);
    generator.scale = scaleOf(0);
    generator.blurX = softX[0];
    generator.blurY = softY[0];
    generator.process(greyNoise);
}

template <class P>
void VxRGBNoiseProc<P>::run() {
    if (sparseness >= 1.0f) return;
    const GrainShape shape = mode == Mode::Grey ? greyShape() : colourShape();
    if (blurring && softensRows()) {
        if (mode == Mode::Grey) {
            runSoftRows<ChannelInt>(shape);
        } else {
            runSoftRows<RgbaInt>(shape);
        }
    } else if (blurring) {
        if (mode == Mode::Grey) {
            runPicture(greyNoise, shape);
        } else {
            runPicture(colourNoise, shape);
        }
    } else {
        runHashes(shape);
    }
}

template <class P>
void VxRGBNoiseProc<P>::post() {
    if (sparseness >= 1.0f) return;
    greyNoise.clear();
    colourNoise.clear();
}

template <class P>
GrainShape VxRGBNoiseProc<P>::greyShape() const {
    const auto [low, high] = greyRange();
    GrainShape shape;
    std::fill(std::begin(shape.low), std::end(shape.low), low);
    setBand(shape, sparseness, std::max(std::fabs(low), std::fabs(high)));
    shape.keep = alpha ? 0 : kAlphaOnly;
    return shape;
}

template <class P>
typename VxRGBNoiseProc<P>::Range VxRGBNoiseProc<P>::greyRange() const {
    constexpr float kWhite = StagePixel<P>::kWhite;
    const auto mean = [](const float(&amounts)[4]) {
        return (amounts[0] * kWhite + amounts[1] * kWhite + amounts[2] * kWhite) / 3.0f;
    };
    return {mean(amountMin), mean(amountMax)};
}

template <class P>
typename VxRGBNoiseProc<P>::Range VxRGBNoiseProc<P>::rangeOf(int component) const {
    constexpr float kWhite = StagePixel<P>::kWhite;
    return {amountMin[component] * kWhite, amountMax[component] * kWhite};
}

template <class P>
GrainShape VxRGBNoiseProc<P>::colourShape() const {
    GrainShape shape;
    float reach = 0.0f;
    for (int k = 0; k < (alpha ? 4 : 3); ++k) {
        const auto [low, high] = rangeOf(k);
        shape.low[k] = low;
        reach = std::max({reach, std::fabs(low), std::fabs(high)});
    }
    setBand(shape, sparseness, reach);
    shape.keep = alpha ? 0 : kAlphaOnly;
    return shape;
}

// Divides a row into tiles, calls noise(x, count, to) for each and adds the noise that it writes.
template <class P>
template <class Noise>
void VxRGBNoiseProc<P>::addToRow(std::int32_t y, const GrainShape& shape, Noise noise) {
    const Span columns = this->columnRange();
    float values[4 * kTile];
    for (std::int32_t x = columns.first; x < columns.end; x += kTile) {
        const std::int32_t count = std::min(kTile, columns.end - x);
        noise(x, count, values);
        addNoise(*this->source, *this->target, x, y, count, values, shape);
    }
}

// Adds noise without a blur.
template <class P>
void VxRGBNoiseProc<P>::runHashes(const GrainShape& shape) {
    float factors[4] = {};
    for (int k = 0; k < (alpha ? 4 : 3); ++k) {
        const auto [low, high] = rangeOf(k);
        factors[k] = (high - low) * kHashStep;
    }
    const auto [low, high] = greyRange();
    const float greyFactor = (high - low) * kHashStep;
    const Span rows = this->rowRange();
    for (std::int32_t y = rows.first; y < rows.end; ++y) {
        if (interruptCheck(this->interrupt)) return;
        addToRow(y, shape, [&](std::int32_t x, std::int32_t count, float* to) {
            if (mode == Mode::Grey) {
                bestRowKernels<P>().hashGrey(pixelNumber(x, y), count, greyFactor, to);
            } else {
                bestRowKernels<P>().hashColour(pixelNumber(x, y), count, factors, to);
            }
        });
    }
}

// Adds noise from a picture that `pre` has blurred.
template <class P>
template <class Noise>
void VxRGBNoiseProc<P>::runPicture(VxTexture<Noise>& picture, const GrainShape& shape) {
    const Span rows = this->rowRange();
    for (std::int32_t y = rows.first; y < rows.end; ++y) {
        if (interruptCheck(this->interrupt)) return;
        addToRow(y, shape, [&](std::int32_t x, std::int32_t count, float* to) {
            const std::int32_t* const noise = picture.writeAt(x, y)->c;
            if constexpr (Noise::kComponents == 4) {
                widenColour(noise, count, to);
            } else {
                widenGrey(noise, 1, count, to);
            }
        });
    }
}

// Adds noise that is blurred along X, a few rows at a time.
template <class P>
template <class Noise>
void VxRGBNoiseProc<P>::runSoftRows(const GrainShape& shape) {
    const Span rows = this->rowRange();
    const Span columns = this->columnRange();
    if (rows.first >= rows.end || columns.first >= columns.end) return;
    typename SoftNoiseRows<Noise>::Noise wanted{.seed = seed, .softness = softX[0]};
    for (int k = 0; k < 4; ++k) wanted.scale[k] = scaleOf(k);
    SoftNoiseRows<Noise> soft(wanted, {columns, {this->y0, this->y1}});
    if (!soft.usable()) return raiseOutOfMemory(this->interrupt);
    for (std::int32_t y = rows.first; y < rows.end; y += soft.kRows) {
        const Span block{y, std::min(y + soft.kRows, rows.end)};
        soft.start(y);
        for (std::int32_t x = columns.first; x < columns.end;) {
            if (interruptCheck(this->interrupt)) return;
            const auto tile = soft.next();
            addTile(tile, x, block, shape);
            x += tile.columns;
        }
    }
}

// Adds the tile of soft noise whose first column is `left`.
template <class P>
template <class Tile>
void VxRGBNoiseProc<P>::addTile(const Tile& tile, std::int32_t left, Span rows,
                                const GrainShape& shape) {
    for (std::int32_t y = rows.first; y < rows.end; ++y) {
        const std::int32_t* noise = tile.row(y - rows.first);
        for (std::int32_t done = 0; done < tile.columns; done += kTile) {
            const std::int32_t count = std::min(kTile, tile.columns - done);
            const std::int32_t* values = noise + std::ptrdiff_t{done} * tile.kStride;
            if (mode == Mode::Colour) {
                addSoftNoise(*this->source, *this->target, left + done, y, count, values,
                             tile.kStride, shape);
            } else {
                float floats[4 * kTile];
                widenGrey(values, tile.kStride, count, floats);
                addNoise(*this->source, *this->target, left + done, y, count, floats, shape);
            }
        }
    }
}

template class VxRGBNoiseProc<Rgba8>;
template class VxRGBNoiseProc<RgbaS214>;

}  // namespace ruvex
