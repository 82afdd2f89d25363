#include "stages/tone_tables.h"

#include <algorithm>
#include <new>

#include "imaging/maths/maths.h"
#include "imaging/threads.h"
#include "stages/stage_pixel.h"

namespace ruvex {
namespace {

// The lower half of the contrast curve, m being 0 to a half; the upper half mirrors it. This one is
// for a contrast below 0, the next for one of 0 and above.
float softened(float m, float contrast) {
    constexpr double kLeast = 1.5259021896696422e-05;  // 1 / 65535, the smallest tone but 0
    if (m < kLeast) m = 1.5259022e-05f;
    return static_cast<float>(maths::pow(m * 2.0, (contrast + 0.5) * 2.0) * 0.5);
}

float hardened(float m, float contrast) {
    constexpr double kStep = 3.4028234663852886e+38;  // the largest float: a hard step
    const auto e = static_cast<float>(contrast >= 0.5 ? kStep : 0.5 / (0.5 - contrast));
    const auto base = static_cast<float>(m * 2.0);
    if (e == 1.0f) return static_cast<float>(base * 0.5);  // pow(base, 1), faster
    return static_cast<float>(static_cast<float>(maths::pow(base, e)) * 0.5);
}

// The tone that is shown in the colour of the tint.
constexpr float kTintMid = 0.5f;

template <class P>
float fractionOfEntry(std::int32_t index) {
    if constexpr (sizeof(P) == sizeof(Rgba8)) {
        return static_cast<float>(index) / 255.0f;
    } else {
        return static_cast<float>(index) * 6.1035156e-05f;  // 1 / 16384
    }
}

float brightened(float v, float brightness) {
    const float w = brightness < 0.0f ? (brightness + 1.0f) * v
                                      : static_cast<float>((1.0 - v) * brightness + v);
    return w > 0.0f ? w : 0.0f;
}

template <class P>
float tone(std::int32_t index, float brightness, float contrast) {
    return contrastCurve(brightened(fractionOfEntry<P>(index), brightness), contrast);
}

using Table = std::unique_ptr<std::int32_t[]>;

template <class P>
void fillTable(Table& table, float brightness, float contrast, Span entries) {
    for (std::int32_t i = entries.first; i < entries.end; ++i) {
        table[i] = StagePixel<P>::clamp(
            truncateToInt(tone<P>(i, brightness, contrast) * StagePixel<P>::kWhite));
    }
}

// Fills the table of a gun, as a copy of another gun's if both have the same brightness.
template <class P>
void fillLike(Table& table, float brightness, const Table& other, float otherBrightness,
              const SignalParameters& signal, Span entries) {
    if (brightness == otherBrightness) {
        std::copy_n(&other[entries.first], entries.end - entries.first, &table[entries.first]);
    } else {
        fillTable<P>(table, brightness + signal.brightness, signal.contrast, entries);
    }
}

template <class P>
bool changesNothing(const Table& table) {
    for (std::int32_t i = 0; i < ToneTables<P>::kEntries; ++i) {
        if (table[i] != i) return false;
    }
    return true;
}

// The colour of tone c: from black at 0 through the tint at kTintMid to white at 1.
template <class P>
P tinted(float c, const float (&tint)[4]) {
    constexpr float kWhite = StagePixel<P>::kWhite;
    static constexpr float kTintBlack[4] = {0.0f, 0.0f, 0.0f, 0.0f};
    static constexpr float kTintWhite[4] = {kWhite, kWhite, kWhite, 0.0f};
    P pixel;
    for (int k = 0; k < 4; ++k) {
        if (c < kTintMid) {
            const float f = c / kTintMid;
            pixel.c[k] = StagePixel<P>::clamp((tint[k] - kTintBlack[k]) * f + kTintBlack[k]);
        } else {
            const auto f =
                static_cast<float>((static_cast<double>(c) - kTintMid) / (1.0 - kTintMid));
            pixel.c[k] = StagePixel<P>::clamp((kTintWhite[k] - tint[k]) * f + tint[k]);
        }
    }
    return pixel;
}

template <class P>
void fillTint(std::unique_ptr<P[]>& table, const SignalParameters& signal, Span entries) {
    for (std::int32_t i = entries.first; i < entries.end; ++i) {
        table[i] = tinted<P>(tone<P>(i, signal.brightness, signal.contrast), signal.tint);
    }
}

template <class T>
bool allocateEntries(std::unique_ptr<T[]>& table, std::int32_t entries) {
    table.reset(new (std::nothrow) T[static_cast<std::size_t>(entries)]);
    return table != nullptr;
}

// With fewer entries than this, starting workers takes longer than computing them.
constexpr std::int32_t kLeastShared = 4096;

}  // namespace

float contrastCurve(float x, float contrast) {
    if (contrast >= 0.0f && x > 1.0f) return x;
    const bool upper = x > 0.5f;
    const float m = upper ? static_cast<float>(1.0 - x) : x;
    float r = contrast < 0.0f ? softened(m, contrast) : hardened(m, contrast);
    if (!(r > 0.0f)) r = 0.0f;
    const float result = upper ? 1.0f - r : r;
    return result > 0.0f ? result : 0.0f;
}

template <class P>
bool ToneTables<P>::allocate(TvType type) {
    switch (type) {
        case TvType::BlackAndWhite:
            return allocateEntries(lutMono, kEntries);
        case TvType::Tint:
            return allocateEntries(tintTable, kEntries);
        default:
            return allocateEntries(lutRed, kEntries) && allocateEntries(lutGreen, kEntries) &&
                   allocateEntries(lutBlue, kEntries);
    }
}

template <class P>
void ToneTables<P>::fill(const SignalParameters& signal, Span entries) {
    if (entries.first >= entries.end) return;
    switch (signal.tvType) {
        case TvType::BlackAndWhite:
            return fillTable<P>(lutMono, signal.brightness, signal.contrast, entries);
        case TvType::Tint:
            return fillTint(tintTable, signal, entries);
        default:
            fillTable<P>(lutRed, signal.gunRed + signal.brightness, signal.contrast, entries);
            fillLike<P>(lutGreen, signal.gunGreen, lutRed, signal.gunRed, signal, entries);
            fillLike<P>(lutBlue, signal.gunBlue, lutRed, signal.gunRed, signal, entries);
    }
}

template <class P>
bool ToneTables<P>::build(const SignalParameters& signal, bool useThreads) {
    *this = {};
    if (!allocate(signal.tvType)) return false;
    if (useThreads && kEntries >= kLeastShared) {
        const auto fillShare = [&] {
            const RowShare share = shareOfRows(kEntries, workerCount(), workerIndex());
            fill(signal, {share.first, share.end});
        };
        runOnAllThreads(fillShare);
    } else {
        fill(signal, {0, kEntries});
    }
    identity = lutRed && changesNothing<P>(lutRed) && changesNothing<P>(lutGreen) &&
               changesNothing<P>(lutBlue);
    return true;
}

template struct ToneTables<Rgba8>;
template struct ToneTables<RgbaS214>;

}  // namespace ruvex
