#include "adapters/openfx/effect_time.h"

#include <algorithm>
#include <cmath>

namespace ruvex::openfx {

bool isRate(double framesPerSecond) {
    constexpr double kLeast = 0.01, kGreatest = 100000.0;
    return framesPerSecond >= kLeast && framesPerSecond <= kGreatest;
}

double EffectClock::frameAt(double hostTime) const {
    if (std::isnan(hostTime)) return 0.0;
    return std::clamp(hostTime - firstFrame, static_cast<double>(-kLastFrame),
                      static_cast<double>(kLastFrame));
}

double fieldTime(double hostTime, adapters::RenderedLines lines, FirstField first) {
    constexpr double kHalfFrame = 0.5;
    const bool whole = hostTime == std::floor(hostTime);
    const bool second = first && lines != adapters::RenderedLines::All && lines != *first;
    return whole && second ? hostTime + kHalfFrame : hostTime;
}

}  // namespace ruvex::openfx
