#include "media/pixels/alpha.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ruvex::media {
namespace {

/// Replaces every colour component of pixels whose alpha is not 0 by change(component, alpha).
template <typename T, class Change>
void changeColours(Frame& frame, Change change) {
    auto* pixel = reinterpret_cast<T*>(frame.bytes().data());
    auto* const end = pixel + frame.bytes().size() / sizeof(T);
    for (; pixel != end; pixel += kChannels) {
        for (int channel = 0; pixel[kAlpha] != 0 && channel < kAlpha; ++channel) {
            const double changed =
                change(static_cast<double>(pixel[channel]), static_cast<double>(pixel[kAlpha]));
            pixel[channel] = static_cast<T>(
                std::clamp(std::round(changed), static_cast<double>(std::numeric_limits<T>::min()),
                           static_cast<double>(std::numeric_limits<T>::max())));
        }
    }
}

template <class Change>
void changeFrame(Frame& frame, Change change) {
    if (frame.depth() == Depth::Bits8) {
        changeColours<std::uint8_t>(frame, [change](double colour, double alpha) {
            return change(colour, alpha / kWhite8);
        });
    } else {
        changeColours<std::int16_t>(frame, [change](double colour, double alpha) {
            return change(colour, alpha / kWhiteS214);
        });
    }
}

}  // namespace

void unpremultiply(Frame& frame) {
    changeFrame(frame, [](double colour, double share) { return colour / share; });
}

void premultiply(Frame& frame) {
    changeFrame(frame, [](double colour, double share) { return colour * share; });
}

}  // namespace ruvex::media
