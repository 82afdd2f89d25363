#include "media/pixels/alpha.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "media/pixels/frame_convert.h"

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

/// Changes the frame at the greater of its depth and `depth`, and returns it at `depth`.
template <class Change>
Frame changedAtGreaterDepth(Frame frame, Depth depth, Change change) {
    const bool deep = frame.depth() == Depth::S214 || depth == Depth::S214;
    frame = convertDepth(std::move(frame), deep ? Depth::S214 : Depth::Bits8);
    changeFrame(frame, change);
    return convertDepth(std::move(frame), depth);
}

}  // namespace

Frame unpremultiplied(Frame frame, Depth depth) {
    return changedAtGreaterDepth(std::move(frame), depth,
                                 [](double colour, double share) { return colour / share; });
}

Frame premultiplied(Frame frame, Depth depth) {
    return changedAtGreaterDepth(std::move(frame), depth,
                                 [](double colour, double share) { return colour * share; });
}

}  // namespace ruvex::media
