#include "stages/tone_tables.h"

#include <algorithm>
#include <new>

#include "imaging/maths/maths.h"
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

template <class P>
bool buildTable(std::unique_ptr<std::int32_t[]>& table, float brightness, float contrast) {
    table.reset(new (std::nothrow) std::int32_t[ToneTables<P>::kEntries]);
    if (!table) return false;
    for (std::int32_t i = 0; i < ToneTables<P>::kEntries; ++i) {
        table[i] = StagePixel<P>::clamp(
            truncateToInt(tone<P>(i, brightness, contrast) * StagePixel<P>::kWhite));
    }
    return true;
}

// Builds the table of a gun, as a copy of another gun's if both have the same brightness.
template <class P>
bool gunLike(std::unique_ptr<std::int32_t[]>& table, float brightness,
             const std::unique_ptr<std::int32_t[]>& other, float otherBrightness,
             const SignalParameters& signal) {
    if (brightness != otherBrightness) {
        return buildTable<P>(table, brightness + signal.brightness, signal.contrast);
    }
    table.reset(new (std::nothrow) std::int32_t[ToneTables<P>::kEntries]);
    if (table) std::copy_n(other.get(), ToneTables<P>::kEntries, table.get());
    return table != nullptr;
}

template <class P>
bool changesNothing(const std::unique_ptr<std::int32_t[]>& table) {
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
bool buildTint(std::unique_ptr<P[]>& table, const SignalParameters& signal) {
    table.reset(new (std::nothrow) P[ToneTables<P>::kEntries]);
    if (!table) return false;
    for (std::int32_t i = 0; i < ToneTables<P>::kEntries; ++i) {
        table[i] = tinted<P>(tone<P>(i, signal.brightness, signal.contrast), signal.tint);
    }
    return true;
}

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
bool ToneTables<P>::build(const SignalParameters& signal) {
    const auto gun = [&](std::unique_ptr<std::int32_t[]>& table, float brightness) {
        return buildTable<P>(table, brightness, signal.contrast);
    };
    switch (signal.tvType) {
        case TvType::BlackAndWhite:
            return gun(lutMono, signal.brightness);
        case TvType::Tint:
            return buildTint(tintTable, signal);
        default:
            break;
    }
    const bool built = gun(lutRed, signal.gunRed + signal.brightness) &&
                       gunLike<P>(lutGreen, signal.gunGreen, lutRed, signal.gunRed, signal) &&
                       gunLike<P>(lutBlue, signal.gunBlue, lutRed, signal.gunRed, signal);
    identity = built && changesNothing<P>(lutRed) && changesNothing<P>(lutGreen) &&
               changesNothing<P>(lutBlue);
    return built;
}

template <class P>
void ToneTables<P>::clear() {
    *this = {};
}

template struct ToneTables<Rgba8>;
template struct ToneTables<RgbaS214>;

}  // namespace ruvex
