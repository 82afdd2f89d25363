#include "media/video/frame_rate.h"

extern "C" {
#include <libavutil/rational.h>
}

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <limits>
#include <numeric>

#include "media/av_functions.h"

namespace ruvex::media {
namespace {

constexpr Rational kFastest{120, 1};
/// Ascending. The rates below kSlowestFilm are those of web cameras and screen recordings; they are
/// used for pictures that fit them, and never as an approximation.
constexpr std::array<Rational, 20> kUsualRates = {
    {{5, 1},  {6, 1},        {8, 1},  {10, 1},  {12, 1},        {25, 2}, {15, 1},
     {20, 1}, {24000, 1001}, {24, 1}, {25, 1},  {30000, 1001},  {30, 1}, {48, 1},
     {50, 1}, {60000, 1001}, {60, 1}, {100, 1}, {120000, 1001}, {120, 1}}};
constexpr Rational kSlowestFilm{24000, 1001};

/// Units. A time that was rounded to the time base is off by at most half a unit in either
/// direction.
constexpr double kRounding = 1.0 + 1e-3;
/// Frames. Time bases that are coarser than this would fit any rate.
constexpr double kCoarsest = 0.3;
/// Frames: how far the deviations from a constant rate may spread for it to be that rate, and for
/// it to need no remark. The alternating two and three fields of film on video spread by a fifth.
constexpr double kSteady = 0.25;
constexpr double kUnnoticed = 0.125;

/// How well times fit a rate.
struct Fit {
    Rational rate;
    bool inOrder = true;   ///< Picture k is frame k.
    bool distinct = true;  ///< No two pictures share a frame.
    double spread = 0;     ///< Units between the earliest and the latest deviation.
    double unitsPerFrame = 1;

    double spreadInFrames() const { return spread / unitsPerFrame; }
    /// Whether the deviations come from rounding to the time base alone.
    bool rounded(double units = kRounding) const {
        return spread <= units && spreadInFrames() <= kCoarsest;
    }
};

double unitsPerFrame(const PictureTimes& pictures, const Rational& rate) {
    return 1.0 / (rate.value() * pictures.unit.value());
}

Fit fitTo(const PictureTimes& pictures, const Rational& rate) {
    Fit fit{.rate = rate, .unitsPerFrame = unitsPerFrame(pictures, rate)};
    double earliest = 0;
    double latest = 0;
    std::int64_t before = -1;
    for (std::size_t i = 0; i < pictures.times.size(); ++i) {
        const auto units = static_cast<double>(pictures.times[i] - pictures.times[0]);
        const std::int64_t place = std::llround(units / fit.unitsPerFrame);
        const double off = units - static_cast<double>(place) * fit.unitsPerFrame;
        earliest = std::min(earliest, off);
        latest = std::max(latest, off);
        fit.inOrder = fit.inOrder && place == static_cast<std::int64_t>(i);
        fit.distinct = fit.distinct && place > before;
        before = place;
    }
    fit.spread = latest - earliest;
    return fit;
}

const Fit* leastSpread(const std::vector<Fit>& fits) {
    const auto found = std::min_element(
        fits.begin(), fits.end(), [](const Fit& a, const Fit& b) { return a.spread < b.spread; });
    return found == fits.end() ? nullptr : &*found;
}

/// The usual rates at which picture k is frame k.
std::vector<Fit> usualInOrder(const PictureTimes& pictures) {
    std::vector<Fit> fits;
    for (const Rational& rate : kUsualRates) {
        if (const Fit fit = fitTo(pictures, rate); fit.inOrder) {
            fits.push_back(fit);
        }
    }
    return fits;
}

/// Pictures a second from the first to the last.
Rational meanRate(const PictureTimes& pictures) {
    AVRational rate{};
    const std::int64_t units = pictures.times.back() - pictures.times.front();
    const auto steps = static_cast<std::int64_t>(pictures.times.size() - 1);
    av_reduce(&rate.num, &rate.den, steps * pictures.unit.den, units * pictures.unit.num,
              std::numeric_limits<std::int32_t>::max());
    return {rate.num, rate.den};
}

/// A constant rate that the times follow as far as the time base can express it.
std::optional<FrameRate> constantRate(const PictureTimes& pictures,
                                      const std::vector<Rational>& declared) {
    for (const Rational& rate : declared) {
        if (const Fit fit = fitTo(pictures, rate); fit.inOrder && fit.rounded()) {
            return FrameRate{rate};
        }
    }
    return std::nullopt;
}

std::optional<FrameRate> steadyUsualRate(const PictureTimes& pictures) {
    const std::vector<Fit> fits = usualInOrder(pictures);
    const Fit* best = leastSpread(fits);
    if (best == nullptr || best->spreadInFrames() > kSteady) {
        return std::nullopt;
    }
    return FrameRate{best->rate, !best->rounded() && best->spreadInFrames() > kUnnoticed};
}

/// The mean rate, for a video of a constant rate that the container does not name. Both the first
/// and the last time are rounded, so that it fits to two units only.
std::optional<FrameRate> unnamedRate(const PictureTimes& pictures) {
    const Rational mean = meanRate(pictures);
    const Rational whole{std::max<std::int64_t>(std::llround(mean.value()), 1), 1};
    for (const Rational& rate : {whole, mean}) {
        if (const Fit fit = fitTo(pictures, rate); fit.inOrder && fit.rounded(2 * kRounding)) {
            return FrameRate{rate};
        }
    }
    return std::nullopt;
}

/// The largest common divisor of all intervals.
std::int64_t commonInterval(const PictureTimes& pictures) {
    std::int64_t common = 0;
    for (const std::int64_t time : pictures.times) {
        common = std::gcd(common, time - pictures.times[0]);
    }
    return common;
}

/// The grid whose lines are `units` apart, unless it is faster than kFastest.
std::optional<FrameRate> gridOf(const PictureTimes& pictures, std::int64_t units) {
    const Rational rate = makeRational(pictures.unit.den, pictures.unit.num * units);
    const bool storable = rate.den <= std::numeric_limits<std::int32_t>::max();
    return storable && rate.value() <= kFastest.value() ? std::optional(FrameRate{rate, true})
                                                        : std::nullopt;
}

/// The usual rates, and those of `declared` that are whole numbers or 1000/1001 of one; ascending.
std::vector<Rational> plainRates(const std::vector<Rational>& declared) {
    std::vector<Rational> rates(kUsualRates.begin(), kUsualRates.end());
    std::copy_if(declared.begin(), declared.end(), std::back_inserter(rates),
                 [](const Rational& rate) {
                     return (rate.den == 1 || rate.den == 1001) && rate.value() <= kFastest.value();
                 });
    std::sort(rates.begin(), rates.end(),
              [](const Rational& a, const Rational& b) { return a.value() < b.value(); });
    return rates;
}

/// The slowest of `rates` whose grid, rounded to the time base, holds all times. Of two that differ
/// by a thousandth, as 30000/1001 and 30, it is the one that fits better.
std::optional<FrameRate> roundedGrid(const PictureTimes& pictures,
                                     const std::vector<Rational>& rates) {
    constexpr double kThousandth = 1.0015;
    std::vector<Fit> fits;
    for (const Rational& rate : rates) {
        const Fit fit = fitTo(pictures, rate);
        const bool near = fits.empty() || rate.value() / fits.front().rate.value() < kThousandth;
        if (near && fit.distinct && fit.rounded() && kRounding / fit.unitsPerFrame <= kCoarsest) {
            fits.push_back(fit);
        }
    }
    const Fit* best = leastSpread(fits);
    return best == nullptr ? std::nullopt : std::optional(FrameRate{best->rate, true});
}

/// The grid of the times. A divisor of one unit is the time base itself, which says nothing where
/// times are rounded to it.
std::optional<FrameRate> gridRate(const PictureTimes& pictures,
                                  const std::vector<Rational>& declared) {
    const std::int64_t units = commonInterval(pictures);
    if (const auto grid = gridOf(pictures, units); grid && units > 1) {
        return grid;
    }
    if (const auto grid = roundedGrid(pictures, plainRates(declared))) {
        return grid;
    }
    return gridOf(pictures, units);
}

/// The usual rate of a camera whose clock drifts, so that now and then a frame has to be repeated.
std::optional<FrameRate> driftingRate(const PictureTimes& pictures) {
    constexpr double kMostDrift = 0.002;
    const double mean = meanRate(pictures).value();
    for (const Rational& rate : kUsualRates) {
        if (std::abs(rate.value() / mean - 1) > kMostDrift) {
            continue;
        }
        const std::vector<std::int64_t> places = placesOf(pictures, rate);
        if (std::adjacent_find(places.begin(), places.end()) == places.end()) {
            return FrameRate{rate, true};
        }
    }
    return std::nullopt;
}

/// A usual rate for pictures that lie on no grid.
FrameRate approximateRate(const PictureTimes& pictures) {
    const std::vector<Fit> fits = usualInOrder(pictures);
    if (const Fit* best = leastSpread(fits)) {
        return {best->rate, true};
    }
    if (const auto drifting = driftingRate(pictures)) {
        return *drifting;
    }
    for (const Rational& rate : kUsualRates) {
        if (rate.value() >= kSlowestFilm.value() && fitTo(pictures, rate).distinct) {
            return {rate, true};
        }
    }
    return {kFastest, true};
}

}  // namespace

std::vector<std::int64_t> placesOf(const PictureTimes& pictures, const Rational& rate) {
    constexpr double kFurthest = 0.75;  // Frames.
    const double units = unitsPerFrame(pictures, rate);
    std::vector<std::int64_t> places;
    places.reserve(pictures.times.size());
    std::int64_t next = 0;
    for (const std::int64_t time : pictures.times) {
        const double exact = static_cast<double>(time - pictures.times[0]) / units;
        std::int64_t place = std::llround(exact);
        if (place < next) {
            place = static_cast<double>(next) - exact <= kFurthest ? next : next - 1;
        }
        places.push_back(place);
        next = place + 1;
    }
    return places;
}

FrameRate chooseFrameRate(const PictureTimes& pictures, const std::vector<Rational>& declared) {
    constexpr Rational kOfOnePicture{25, 1};
    if (pictures.times.size() == 1) {
        const auto slow = std::find_if(declared.begin(), declared.end(), [](const Rational& rate) {
            return rate.value() <= kFastest.value();
        });
        return {slow == declared.end() ? kOfOnePicture : *slow};
    }
    if (const auto rate = constantRate(pictures, declared)) {
        return *rate;
    }
    if (const auto rate = steadyUsualRate(pictures)) {
        return *rate;
    }
    if (const auto rate = unnamedRate(pictures)) {
        return *rate;
    }
    if (const auto rate = gridRate(pictures, declared)) {
        return *rate;
    }
    return approximateRate(pictures);
}

}  // namespace ruvex::media
