#include "stages/shash_proc.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <new>

#include "imaging/frame_generator.h"
#include "imaging/maths/maths.h"
#include "imaging/maths/random.h"
#include "imaging/maths/wrap.h"
#include "stages/kernels/row_kernels.h"
#include "stages/noise_row.h"
#include "stages/rgb_noise_proc.h"
#include "stages/stage_pixel.h"

namespace ruvex {
namespace {

// A fraction from an integer.
float rnd(std::uint32_t n) {
    return (1.0f - hashAsFloat(n) * 9.313226e-10f + 1.0f) * 0.5f;
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

// The two waves of a row of bars, in pixels of the work size.
struct Waves {
    float period1, period2;
    float phase1, phase2;
};

// Rows share their waves in bands of 16 and 8.
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
    for (std::size_t k = 0; k < kWaves; ++k) harmonics_[k] = static_cast<float>(1 << k);
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
    if (type == ShashType::Grain) grain(rows, columns);
    if (type == ShashType::Bars) bars(rows, columns);
    if (type == ShashType::Dashes) dashes(rows, columns);
}

// Sparse points on black.
template <class P>
void VxShashProc<P>::grain(Span rows, Span columns) {
    const float pace = scaleA * 2000.0f * this->scaleY;
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
            phases[k] = static_cast<float>(truncateToInt(rnd(local + k) * 1023.0f));
        }
        bestRowKernels<P>().points(sineTable_.data(), places.get(), phases, harmonics_.data(),
                                   count, this->target->writeAt(columns.first, y));
    }
}

// The light of a row of bars, in raw units: two beating waves on odd rows.
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
            const float raw = (light_[i] + wave_[i]) * 0.2f + floor_;
            light_[i] = (raw > 0.0f ? std::min(raw, 1.0f) : 0.0f) * odd * kWhite;
        }
        return light_.get();
    }

private:
    void addUp(float period, float phase, float* to) {
        const std::int32_t count = columns_.end - columns_.first;
        for (std::int32_t i = 0; i < count; ++i) {
            const auto x = static_cast<float>(columns_.first + i);
            angles_[i] = x * 6.2831855f / period + phase;
        }
        maths::sines(angles_.get(), count, to);
    }

    Span columns_;
    float floor_;
    ScratchRow angles_, wave_, light_;
};

// Grains on black even rows and on odd rows with light.
template <class P>
void VxShashProc<P>::bars(Span rows, Span columns) {
    std::uint32_t base = frameSeed();
    std::uint32_t running = base;
    BarLight<P> light(columns, uniform(base) * 0.3f);
    NoiseRow row(columns);
    if (!row.usable() || !light.usable()) return raiseOutOfMemory(this->interrupt);
    const float cell = scaleA * 50.0f * this->scaleY;
    for (std::int32_t y = rows.first; y < rows.end; ++y) {
        if (interruptCheck(this->interrupt)) return;
        const float rowShift = uniform(running) * 100.0f;
        const float* noise = row.make(*noiseTable, 3, [&](float x) { return x / cell + rowShift; });
        bestRowKernels<P>().bars(noise, light.make(y, wavesOf(y, base, scaleA, this->scaleY)),
                                 columns.end - columns.first,
                                 this->target->writeAt(columns.first, y));
    }
}

// The colours of a row of dashes, in runs of random length. All randomness of a worker's rows is
// one sequence.
template <class P>
class DashColours {
public:
    DashColours(std::uint32_t seed, float scale, float scaleY)
        : seed_(seed), scale_(scale), scaleY_(scaleY) {}

    float drawShift() { return uniform(seed_) * 100.0f; }

    void fill(P* colours, std::int32_t count) {
        P colour{};
        drawColour(colour);
        std::int32_t length = drawLength();
        // Only the first can be empty, where the scale is negative.
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
        constexpr double kWhiteShare = 0.7;
        if (uniform(seed_) * 1.0f > kWhiteShare) {
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
        const auto tenth = static_cast<float>(truncateToInt(uniform(seed_) * 10.0f));
        return truncateToInt(tenth * scale_ * scaleY_);
    }

    std::uint32_t seed_;
    float scale_, scaleY_;
};

template <class P>
void VxShashProc<P>::dashes(Span rows, Span columns) {
    const float cell = scaleA * 10.0f * this->scaleY;
    const std::int32_t count = columns.end - columns.first;
    DashColours<P> dashColours(frameSeed(), scaleA, this->scaleY);
    const std::unique_ptr<P[]> colours(new (std::nothrow) P[static_cast<std::size_t>(count)]);
    NoiseRow row(columns);
    if (!row.usable() || !colours) return raiseOutOfMemory(this->interrupt);
    for (std::int32_t y = rows.first; y < rows.end; ++y) {
        if (interruptCheck(this->interrupt)) return;
        const float rowShift = dashColours.drawShift();
        dashColours.fill(colours.get(), count);
        const float* noise = row.make(*noiseTable, 2, [&](float x) { return x / cell + rowShift; });
        bestRowKernels<P>().dashes(noise, colours.get(), count,
                                   this->target->writeAt(columns.first, y));
    }
}

template <class P>
void VxShashProc<P>::postPass() {
    if (type == ShashType::Snow) snow(0.0f, 0.9f, 0.0f);
    if (type == ShashType::Streaks) snow(-1.32f, 1.32f, scaleA * 0.1f * this->scaleY);
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
    noise.useThreads = this->useThreads;
    noise.interrupt = this->interrupt;
    noise.process(*this->target, *this->target);
}

template class VxShashProc<Rgba8>;
template class VxShashProc<RgbaS214>;

}  // namespace ruvex
