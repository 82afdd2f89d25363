#include "media/pixels/alpha.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ruvex::media {
namespace {

/// What the component type of a frame's pixels says.
template <typename T>
struct ComponentOf;
template <>
struct ComponentOf<std::uint8_t> {
    static constexpr Depth kDepth = Depth::Bits8;
    static constexpr double kWhite = kWhite8;
};
template <>
struct ComponentOf<std::int16_t> {
    static constexpr Depth kDepth = Depth::S214;
    static constexpr double kWhite = kWhiteS214;
};

/// Rounded to the nearest and clamped to the range of T.
template <typename T>
T nearestOf(double value) {
    return static_cast<T>(std::clamp(std::round(value),
                                     static_cast<double>(std::numeric_limits<T>::min()),
                                     static_cast<double>(std::numeric_limits<T>::max())));
}

/// Stores the frame with components of type To. Of pixels whose alpha is not 0, each colour
/// component is change(component, alpha), with alpha from 0 to 1, and is rounded once.
template <typename From, typename To, class Change>
void changeInto(const Frame& frame, Change change, Frame& changed) {
    constexpr double kScale = ComponentOf<To>::kWhite / ComponentOf<From>::kWhite;
    makeRoom(changed, frame.size(), ComponentOf<To>::kDepth);
    const auto* from = reinterpret_cast<const From*>(frame.bytes().data());
    auto* to = reinterpret_cast<To*>(changed.bytes().data());
    auto* const end = to + changed.bytes().size() / sizeof(To);
    for (; to != end; from += kChannels, to += kChannels) {
        const double alpha = from[kAlpha] / ComponentOf<From>::kWhite;
        for (int channel = 0; channel < kAlpha; ++channel) {
            const double colour = from[channel];
            to[channel] = nearestOf<To>((alpha == 0 ? colour : change(colour, alpha)) * kScale);
        }
        to[kAlpha] = nearestOf<To>(from[kAlpha] * kScale);
    }
}

template <typename From, class Change>
void changeFrom(const Frame& frame, Depth depth, Change change, Frame& changed) {
    if (depth == Depth::Bits8) {
        changeInto<From, std::uint8_t>(frame, change, changed);
    } else {
        changeInto<From, std::int16_t>(frame, change, changed);
    }
}

template <class Change>
void change(const Frame& frame, Depth depth, Change change, Frame& changed) {
    if (frame.depth() == Depth::Bits8) {
        changeFrom<std::uint8_t>(frame, depth, change, changed);
    } else {
        changeFrom<std::int16_t>(frame, depth, change, changed);
    }
}

template <typename T>
void fillAlpha(Frame& frame) {
    auto* component = reinterpret_cast<T*>(frame.bytes().data());
    auto* const end = component + frame.bytes().size() / sizeof(T);
    for (; component != end; component += kChannels) {
        component[kAlpha] = static_cast<T>(ComponentOf<T>::kWhite);
    }
}

}  // namespace

void unpremultiply(const Frame& frame, Depth depth, Frame& straight) {
    change(
        frame, depth, [](double colour, double alpha) { return colour / alpha; }, straight);
}

Frame unpremultiplied(const Frame& frame, Depth depth) {
    Frame straight;
    unpremultiply(frame, depth, straight);
    return straight;
}

void premultiply(const Frame& frame, Depth depth, Frame& product) {
    change(
        frame, depth, [](double colour, double alpha) { return colour * alpha; }, product);
}

Frame premultiplied(const Frame& frame, Depth depth) {
    Frame product;
    premultiply(frame, depth, product);
    return product;
}

void makeOpaque(Frame& frame) {
    if (frame.depth() == Depth::Bits8) {
        fillAlpha<std::uint8_t>(frame);
    } else {
        fillAlpha<std::int16_t>(frame);
    }
}

}  // namespace ruvex::media
