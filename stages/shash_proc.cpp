#include "stages/shash_proc.h"

#include <algorithm>
#include <cmath>

#include "imaging/frame_generator.h"
#include "imaging/maths.h"
#include "imaging/random.h"
#include "imaging/wrap.h"
#include "stages/noise_row.h"
#include "stages/rgb_noise_proc.h"
#include "stages/stage_pixel.h"

namespace ruvex {
namespace {

constexpr std::int32_t kGrain = 0;
constexpr std::int32_t kBars = 1;
constexpr std::int32_t kDashes = 2;
constexpr std::int32_t kSnow = 3;
constexpr std::int32_t kStreaks = 4;

// A fraction from an integer.
float rnd(std::uint32_t n) {
    const auto hash = static_cast<float>(static_cast<std::int32_t>(positionHash(n)));
    return (1.0f - hash * 9.313226e-10f + 1.0f) * 0.5f;
}

template <class P>
constexpr P allOf(typename P::Component c) {
    return {{c, c, c, c}};
}

template <class P>
constexpr P kShashWhitePixel =
    allOf<P>(static_cast<typename P::Component>(StagePixel<P>::kShashWhite));

// A component by truncation, with what wraps.
template <class P>
typename P::Component wrapped(float value) {
    return static_cast<typename P::Component>(truncateToInt(value));
}

// The two waves of a row of bars.
struct Waves {
    float period1, period2;
    float phase1, phase2;

    float at(float x) const {
        const auto wave = [x](float period, float phase) {
            return static_cast<float>(maths::sin(x * 6.2831855f / period + phase));
        };
        return wave(period2, phase2) + wave(period1, phase1);
    }
};

// Rows share their waves in bands of 16 and 8. Periods are in pixels of the work size.
Waves wavesOf(std::int32_t y, std::uint32_t base, float scaleA, float scaleY) {
    const auto h1 = static_cast<std::uint32_t>(y / 16 * 11) + base;
    const auto h2 = static_cast<std::uint32_t>(wrapAdd(y, 4) / 8 * 11) + base;
    const auto period = [=](std::uint32_t h) {
        return (rnd(h) * 400.0f + 100.0f) * scaleA * scaleY;
    };
    const auto phase = [](std::uint32_t h) { return rnd(h + 1) * 2.0f * 3.1415927f; };
    return {period(h1), period(h2), phase(h1), phase(h2)};
}

}  // namespace

template <class P>
VxShashProc<P>::VxShashProc() {
    for (int k = 0; k < kHarmonics; ++k) harmonics_[static_cast<std::size_t>(k)] = 1 << k;
    for (int i = 0; i < kSines; ++i) {
        const float angle = static_cast<float>(i) * 2.0f * 3.1415927f * 0.0009765625f;
        sineTable_[static_cast<std::size_t>(i)] = static_cast<float>(maths::sin(angle));
    }
}

template <class P>
std::uint32_t VxShashProc<P>::frameSeed() const {
    return seedFromFloat(static_cast<float>(outputFrame) * 100.0f + static_cast<float>(seed));
}

template <class P>
void VxShashProc<P>::run() {
    const Span rows = this->rowRange();
    const Span columns = this->columnRange();
    if (rows.first >= rows.end || columns.first >= columns.end) return;
    if (type == kGrain) grain(rows, columns);
    if (type == kBars) bars(rows, columns);
    if (type == kDashes) dashes(rows, columns);
}

template <class P>
float VxShashProc<P>::sumOfSines(float x, int count, std::uint32_t s) const {
    float sum = 0.0f;
    for (int i = 0; i < count; ++i) {
        const std::int32_t phase = truncateToInt(rnd(s + static_cast<std::uint32_t>(i)) * 1023.0f);
        const float place =
            static_cast<float>(phase) +
            static_cast<float>(harmonics_[static_cast<std::size_t>(i)]) * x * 1023.0f;
        const std::int32_t index = truncateToInt(place) % kSines;
        sum += sineTable_[static_cast<std::size_t>(index < 0 ? index + kSines : index)];
    }
    return sum / static_cast<float>(count);
}

// Sparse points on black, with a narrow ramp at their edges.
template <class P>
void VxShashProc<P>::grain(Span rows, Span columns) {
    constexpr float kFull = 0.44f;
    constexpr float kFrom = 0.41799998f;
    constexpr float kRamp = 0.022000015f;
    const float pace = scaleA * 2000.0f * this->scaleY;
    std::uint32_t local = frameSeed();
    for (std::int32_t y = rows.first; y < rows.end; ++y) {
        if (interruptCheck(this->interrupt)) return;
        nextRandom(local);
        P* to = this->target->writeAt(columns.first, y);
        for (std::int32_t x = columns.first; x < columns.end; ++x, ++to) {
            const float v = std::fabs(sumOfSines(static_cast<float>(x) / pace, 4, local));
            if (v > kFull) {
                *to = kShashWhitePixel<P>;
            } else if (v > kFrom) {
                *to = allOf<P>(wrapped<P>((v - kFrom) / kRamp * StagePixel<P>::kShashWhite + 0.0f));
            } else {
                *to = P{};
            }
        }
    }
}

// Grains on black even rows and on odd rows of two beating waves. A grain just above the lower
// limit is a negative value, which eight bits wrap to a bright fringe.
template <class P>
void VxShashProc<P>::bars(Span rows, Span columns) {
    constexpr float kWhite = StagePixel<P>::kShashWhite;
    std::uint32_t base = frameSeed();
    std::uint32_t running = base;
    const float floor = uniform(base) * 0.3f;
    NoiseRow row(columns);
    if (!row.usable()) return raiseOutOfMemory(this->interrupt);
    const float cell = scaleA * 50.0f * this->scaleY;
    for (std::int32_t y = rows.first; y < rows.end; ++y) {
        if (interruptCheck(this->interrupt)) return;
        const float rowShift = uniform(running) * 100.0f;
        const Waves waves = wavesOf(y, base, scaleA, this->scaleY);
        const auto odd = static_cast<float>(y % 2);
        const float* noise = row.make(*noiseTable, 3, [&](float x) { return x / cell + rowShift; });
        P* to = this->target->writeAt(columns.first, y);
        for (std::int32_t x = columns.first; x < columns.end; ++x, ++to) {
            const float f = std::fabs(*noise++);
            if (f > 0.61f) {
                *to = kShashWhitePixel<P>;
                continue;
            }
            P pixel{};
            if (f > 0.305f) pixel = allOf<P>(wrapped<P>((f - 0.488f) / 0.305f * kWhite + 0.0f));
            const float raw = waves.at(static_cast<float>(x)) * 0.2f + floor;
            const float w = (raw > 0.0f ? std::min(raw, 1.0f) : 0.0f) * odd * kWhite;
            for (int k = 0; k < 3; ++k) {
                pixel.c[k] = StagePixel<P>::hold(static_cast<float>(pixel.c[k]) + w);
            }
            *to = pixel;
        }
    }
}

template <class P>
void VxShashProc<P>::dashes(Span rows, Span columns) {
    constexpr float kWhite = StagePixel<P>::kShashWhite;
    constexpr double kWhiteShare = 0.7;
    const float cell = scaleA * 10.0f * this->scaleY;
    std::uint32_t s = frameSeed();
    NoiseRow row(columns);
    if (!row.usable()) return raiseOutOfMemory(this->interrupt);
    const auto drawColour = [&](P& colour) {
        for (int k = 0; k < 3; ++k) colour.c[k] = wrapped<P>(uniform(s) * kWhite);
    };
    const auto drawLength = [&] {
        const auto tenth = static_cast<float>(truncateToInt(uniform(s) * 10.0f));
        return truncateToInt(tenth * scaleA * this->scaleY);
    };
    for (std::int32_t y = rows.first; y < rows.end; ++y) {
        if (interruptCheck(this->interrupt)) return;
        const float rowShift = uniform(s) * 100.0f;
        P colour{};
        drawColour(colour);
        std::int32_t runLength = drawLength();
        std::int32_t count = 0;
        const float* noise = row.make(*noiseTable, 2, [&](float x) { return x / cell + rowShift; });
        P* to = this->target->writeAt(columns.first, y);
        for (std::int32_t x = columns.first; x < columns.end; ++x, ++to) {
            if (count > runLength) {
                if (uniform(s) * 1.0f > kWhiteShare) {
                    colour = kShashWhitePixel<P>;
                } else {
                    drawColour(colour);
                }
                runLength = drawLength();
                count = 0;
            }
            ++count;
            const float f = std::fabs(*noise++);
            if (f > 0.15f) {
                *to = colour;
            } else if (f > 0.120000005f) {
                const float g = (f - 0.120000005f) / 0.030000001f;
                for (int k = 0; k < 3; ++k) {
                    to->c[k] = wrapped<P>(static_cast<float>(colour.c[k]) * g + 0.0f);
                }
            } else {
                *to = P{};
            }
        }
    }
}

template <class P>
void VxShashProc<P>::postPass() {
    if (type == kSnow) snow(0.0f, 0.9f, 0.0f);
    if (type == kStreaks) snow(-1.32f, 1.32f, scaleA * 0.1f * this->scaleY);
}

template <class P>
void VxShashProc<P>::snow(float amountMin, float amountMax, float softness) {
    std::int32_t left, top, right, bottom;
    this->getWindow(left, top, right, bottom);
    ColouredFrameGenerator<P> black;
    black.zero = true;
    black.interrupt = this->interrupt;
    black.process(this->target);

    VxRGBNoiseProc<P> noise;
    noise.mode = VxRGBNoiseProc<P>::Mode::Grey;
    for (int k = 0; k < 4; ++k) {
        noise.amountMin[k] = amountMin;
        noise.amountMax[k] = amountMax;
    }
    for (int k = 0; k < 3; ++k) noise.softX[k] = softness;
    noise.seed = seedFromFloat(std::fabs(static_cast<float>(outputFrame) * 12541.0f)) + 1u;
    noise.setWindow(left, top, right, bottom);
    noise.interrupt = this->interrupt;
    noise.process(*this->target, *this->target);
}

template class VxShashProc<Rgba8>;
template class VxShashProc<RgbaS214>;

}  // namespace ruvex
