#include "stages/shash_proc.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <new>

#include "imaging/frame_generator.h"
#include "imaging/maths/maths.h"
#include "imaging/maths/random.h"
#include "imaging/maths/wrap.h"
#include "stages/angles.h"
#include "stages/kernels/row_kernels.h"
#include "stages/noise_row.h"
#include "stages/rgb_noise_proc.h"
#include "stages/stage_pixel.h"

namespace ruvex {
namespace {

// The distance between the seeds of two frames, and that for grey noise.
constexpr float kShashSeedStep = 100.0f;
constexpr float kSnowSeedStep = 12541.0f;
// The range of a row's random start on the noise curve.
constexpr float kShashNoiseSpread = 100.0f;

// Grain: the longest of its waves, in pixels of the project frame; the last index in the table of
// sines, up to which phases are drawn; and the angle between its entries, in turns.
constexpr float kGrainPeriod = 2000.0f;
constexpr float kLastSine = 1023.0f;
constexpr float kSineStep = 0.0009765625f;  // 1/1024

// Bars: two waves with a random period of 100 to 500 project pixels. Groups of 16 rows have the
// same first wave, and groups of 8 rows, offset by 4 rows, the same second wave. The seeds of two
// groups differ by 11.
constexpr std::int32_t kRowsOfWave1 = 16;
constexpr std::int32_t kRowsOfWave2 = 8;
constexpr std::int32_t kOffsetOfWave2 = 4;
constexpr std::int32_t kWaveSeedStep = 11;
constexpr float kShortestWave = 100.0f;
constexpr float kWaveRange = 400.0f;
constexpr float kWaveLight = 0.2f;  // amplitude of each wave, fraction of white
constexpr float kMostFloor = 0.3f;  // limit of a frame's random base light, fraction of white
constexpr float kBarCell = 50.0f;   // cell of the noise, project pixels
constexpr std::int32_t kBarOctaves = 3;

// Dashes: the cell of their noise in project pixels, and the longest dash in project pixels.
constexpr float kDashCell = 10.0f;
constexpr std::int32_t kDashOctaves = 2;
constexpr float kLengths = 10.0f;
constexpr double kColouredShare = 0.7;  // fraction of coloured dashes; the others are white

// Grey noise: its range in fractions of white, and the softness of streaks in project pixels. Their
// range exceeds white, so that much of it is clamped.
constexpr float kSnowMost = 0.9f;
constexpr float kStreaksMost = 1.32f;
constexpr float kStreaksSoftness = 0.1f;

// A random fraction for a number: the 31-bit hash times 2^-30 is 0 to 2.
float rnd(std::uint32_t n) {
    constexpr float kHashStep30 = 9.313226e-10f;  // 2^-30
    return (1.0f - hashAsFloat(n) * kHashStep30 + 1.0f) * 0.5f;
}

template <class P>
constexpr P allOf(typename P::Component c) {
    return {{c, c, c, c}};
}

template <class P>
constexpr P kShashWhitePixel =
    allOf<P>(static_cast<typename P::Component>(StagePixel<P>::kShashWhite));

// Truncates to a component; values out of range wrap.
template <class P>
typename P::Component wrapped(float value) {
    return static_cast<typename P::Component>(truncateToInt(value));
}

// The two waves of a row of bars, in pixels of the work size.
struct Waves {
    float period1, period2;
    float phase1, phase2;
};

Waves wavesOf(std::int32_t y, std::uint32_t base, float scaleA, float scaleY) {
    const auto h1 = static_cast<std::uint32_t>(y / kRowsOfWave1 * kWaveSeedStep) + base;
    const auto h2 =
        static_cast<std::uint32_t>(wrapAdd(y, kOffsetOfWave2) / kRowsOfWave2 * kWaveSeedStep) +
        base;
    const auto period = [=](std::uint32_t h) {
        return (rnd(h) * kWaveRange + kShortestWave) * scaleA * scaleY;
    };
    const auto phase = [](std::uint32_t h) { return rnd(h + 1) * 2.0f * kHalfTurn; };
    return {period(h1), period(h2), phase(h1), phase(h2)};
}

}  // namespace

template <class P>
VxShashProc<P>::VxShashProc() {
    for (std::size_t k = 0; k < kWaves; ++k) harmonics_[k] = static_cast<float>(1 << k);
    for (int i = 0; i < kSines; ++i) {
        const float angle = static_cast<float>(i) * 2.0f * kHalfTurn * kSineStep;
        sineTable_[static_cast<std::size_t>(i)] = static_cast<float>(maths::sin(angle));
    }
}

template <class P>
std::uint32_t VxShashProc<P>::frameSeed() const {
    return seedFromFloat(static_cast<float>(outputFrame) * kShashSeedStep +
                         static_cast<float>(seed));
}

template <class P>
void VxShashProc<P>::run() {
    const Span rows = this->rowRange();
    const Span columns = this->columnRange();
    if (rows.first >= rows.end || columns.first >= columns.end) return;
    if (type == ShashType::Grain) grain(rows, columns);
    if (type == ShashType::Bars) bars(rows, columns);
    if (type == ShashType::Dashes) dashes(rows, columns);
}

// Sparse points on black.
template <class P>
void VxShashProc<P>::grain(Span rows, Span columns) {
    const float pace = scaleA * kGrainPeriod * this->scaleY;
    const std::int32_t count = columns.end - columns.first;
    const ScratchRow places(columns);
    if (!places) return raiseOutOfMemory(this->interrupt);
    for (std::int32_t i = 0; i < count; ++i) {
        places[i] = static_cast<float>(columns.first + i) / pace;
    }
    std::uint32_t local = frameSeed();
    for (std::int32_t y = rows.first; y < rows.end; ++y) {
        if (interruptCheck(this->interrupt)) return;
        nextRandom(local);
        float phases[kWaves];
        for (std::uint32_t k = 0; k < kWaves; ++k) {
            phases[k] = static_cast<float>(truncateToInt(rnd(local + k) * kLastSine));
        }
        bestRowKernels<P>().points(sineTable_.data(), places.get(), phases, harmonics_.data(),
                                   count, this->target->writeAt(columns.first, y));
    }
}

// The light of a row of bars, raw values: on odd rows the sum of two waves.
template <class P>
class BarLight {
public:
    BarLight(Span columns, float floor)
        : columns_(columns), floor_(floor), angles_(columns), wave_(columns), light_(columns) {}

    bool usable() const { return angles_ && wave_ && light_; }

    const float* make(std::int32_t y, const Waves& waves) {
        constexpr float kWhite = StagePixel<P>::kShashWhite;
        const std::int32_t count = columns_.end - columns_.first;
        const auto odd = static_cast<float>(y % 2);
        if (odd == 0.0f) {
            std::fill_n(light_.get(), count, 0.0f);
            return light_.get();
        }
        addUp(waves.period2, waves.phase2, light_.get());
        addUp(waves.period1, waves.phase1, wave_.get());
        for (std::int32_t i = 0; i < count; ++i) {
            const float raw = (light_[i] + wave_[i]) * kWaveLight + floor_;
            light_[i] = (raw > 0.0f ? std::min(raw, 1.0f) : 0.0f) * odd * kWhite;
        }
        return light_.get();
    }

private:
    void addUp(float period, float phase, float* to) {
        const std::int32_t count = columns_.end - columns_.first;
        for (std::int32_t i = 0; i < count; ++i) {
            const auto x = static_cast<float>(columns_.first + i);
            angles_[i] = x * kWholeTurn / period + phase;
        }
        maths::sines(angles_.get(), count, to);
    }

    Span columns_;
    float floor_;
    ScratchRow angles_, wave_, light_;
};

// Grains: even rows are black below them, odd rows have light.
template <class P>
void VxShashProc<P>::bars(Span rows, Span columns) {
    std::uint32_t base = frameSeed();
    std::uint32_t running = base;
    BarLight<P> light(columns, uniform(base) * kMostFloor);
    NoiseRow row(columns);
    if (!row.usable() || !light.usable()) return raiseOutOfMemory(this->interrupt);
    const float cell = scaleA * kBarCell * this->scaleY;
    for (std::int32_t y = rows.first; y < rows.end; ++y) {
        if (interruptCheck(this->interrupt)) return;
        const float rowShift = uniform(running) * kShashNoiseSpread;
        const float* noise =
            row.make(*noiseTable, kBarOctaves, [&](float x) { return x / cell + rowShift; });
        bestRowKernels<P>().bars(noise, light.make(y, wavesOf(y, base, scaleA, this->scaleY)),
                                 columns.end - columns.first,
                                 this->target->writeAt(columns.first, y));
    }
}

// The colours of a row of dashes, in runs of random length. All rows of a worker use one random
// sequence.
template <class P>
class DashColours {
public:
    DashColours(std::uint32_t seed, float scale, float scaleY)
        : seed_(seed), scale_(scale), scaleY_(scaleY) {}

    float drawShift() { return uniform(seed_) * kShashNoiseSpread; }

    void fill(P* colours, std::int32_t count) {
        P colour{};
        drawColour(colour);
        std::int32_t length = drawLength();
        // The first dash is empty if a negative scale makes its length negative; no later one is.
        std::int64_t end = std::int64_t{std::max(length, -1)} + 1;
        for (std::int32_t x = 0; x < count;) {
            const auto stop = static_cast<std::int32_t>(std::min<std::int64_t>(end, count));
            for (; x < stop; ++x) colours[x] = colour;
            if (x == count) return;
            change(colour);
            length = drawLength();
            end = x + std::int64_t{std::max(length, 0)} + 1;
        }
    }

private:
    void change(P& colour) {
        if (uniform(seed_) > kColouredShare) {
            colour = kShashWhitePixel<P>;
        } else {
            drawColour(colour);
        }
    }
    void drawColour(P& colour) {
        for (int k = 0; k < 3; ++k) {
            colour.c[k] = wrapped<P>(uniform(seed_) * StagePixel<P>::kShashWhite);
        }
    }
    std::int32_t drawLength() {
        const auto length = static_cast<float>(truncateToInt(uniform(seed_) * kLengths));
        return truncateToInt(length * scale_ * scaleY_);
    }

    std::uint32_t seed_;
    float scale_, scaleY_;
};

template <class P>
void VxShashProc<P>::dashes(Span rows, Span columns) {
    const float cell = scaleA * kDashCell * this->scaleY;
    const std::int32_t count = columns.end - columns.first;
    DashColours<P> dashColours(frameSeed(), scaleA, this->scaleY);
    const std::unique_ptr<P[]> colours(new (std::nothrow) P[static_cast<std::size_t>(count)]);
    NoiseRow row(columns);
    if (!row.usable() || !colours) return raiseOutOfMemory(this->interrupt);
    for (std::int32_t y = rows.first; y < rows.end; ++y) {
        if (interruptCheck(this->interrupt)) return;
        const float rowShift = dashColours.drawShift();
        dashColours.fill(colours.get(), count);
        const float* noise =
            row.make(*noiseTable, kDashOctaves, [&](float x) { return x / cell + rowShift; });
        bestRowKernels<P>().dashes(noise, colours.get(), count,
                                   this->target->writeAt(columns.first, y));
    }
}

template <class P>
void VxShashProc<P>::postPass() {
    if (type == ShashType::Snow) snow(0.0f, kSnowMost, 0.0f);
    if (type == ShashType::Streaks)
        snow(-kStreaksMost, kStreaksMost, scaleA * kStreaksSoftness * this->scaleY);
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
    noise.seed = seedFromFloat(std::fabs(static_cast<float>(outputFrame) * kSnowSeedStep)) + 1u;
    noise.setWindow(left, top, right, bottom);
    noise.useThreads = this->useThreads;
    noise.interrupt = this->interrupt;
    noise.process(*this->target, *this->target);
}

template class VxShashProc<Rgba8>;
template class VxShashProc<RgbaS214>;

}  // namespace ruvex
