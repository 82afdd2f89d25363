// The pixel and channel types of all images, and the traits of each type.

#pragma once

#include <cstdint>

#include "imaging/float_arithmetic.h"

namespace ruvex {

/// The parameters of a colour pixel: how a component is stored, its range, the value of white, and
/// whether a store clamps.
template <typename T, std::int64_t Min, std::int64_t Max, std::int64_t White, bool Clamp>
struct VxRGBABase {
    using Component = T;
    static constexpr std::int64_t kMin = Min;
    static constexpr std::int64_t kMax = Max;
    static constexpr std::int64_t kWhite = White;
    static constexpr bool kClamp = Clamp;
};

/// The same parameters for a record of a single component.
template <typename T, std::int64_t Min, std::int64_t Max, std::int64_t White, bool Clamp>
struct VxChannelBase : VxRGBABase<T, Min, Max, White, Clamp> {};

/// A colour: red, green, blue, alpha, adjacent in that order. Index 3 is always alpha.
template <class Base>
struct VxRGBACol {
    using Parameters = Base;
    using Component = typename Base::Component;
    static constexpr int kComponents = 4;

    Component c[4];

    friend bool operator==(const VxRGBACol&, const VxRGBACol&) = default;
};

/// A record of one component.
template <class Base>
struct VxChannel {
    using Parameters = Base;
    using Component = typename Base::Component;
    static constexpr int kComponents = 1;

    Component c[1];

    friend bool operator==(const VxChannel&, const VxChannel&) = default;
};

inline constexpr std::int64_t kInt32Min = INT32_MIN;
inline constexpr std::int64_t kInt32Max = INT32_MAX;

/// 8 bits a component, white is the maximum.
using Rgba8 = VxRGBACol<VxRGBABase<std::uint8_t, 0, 255, 255, true>>;
/// Signed 16 bits with 14 fraction bits: white is 16384, values above white and below 0 are legal.
using RgbaS214 = VxRGBACol<VxRGBABase<std::int16_t, -32768, 32767, 16384, true>>;
/// Signed 32 bits: auxiliary images that never meet the host.
using RgbaInt = VxRGBACol<VxRGBABase<std::int32_t, kInt32Min, kInt32Max, kInt32Max, true>>;
/// Floats. As a companion (see CompanionOf) it holds raw values of the storage pixel, not 0..1.
using RgbaFloat = VxRGBACol<VxRGBABase<float, 0, 1, 1, false>>;

using Channel8 = VxChannel<VxChannelBase<std::uint8_t, 0, 255, 255, true>>;
using ChannelS214 = VxChannel<VxChannelBase<std::int16_t, -32768, 32767, 16384, true>>;
using ChannelInt = VxChannel<VxChannelBase<std::int32_t, kInt32Min, kInt32Max, kInt32Max, true>>;
using ChannelFloat = VxChannel<VxChannelBase<float, 0, 1, 1, false>>;

/// The companion of pixel type P: the type of an interpolated sample of an image of P.
template <class P>
struct CompanionOf {
    using Type = P;
};
template <>
struct CompanionOf<Rgba8> {
    using Type = RgbaFloat;
};
template <>
struct CompanionOf<RgbaS214> {
    using Type = RgbaFloat;
};
template <>
struct CompanionOf<Channel8> {
    using Type = ChannelFloat;
};
template <>
struct CompanionOf<ChannelS214> {
    using Type = ChannelFloat;
};
template <class P>
using Companion = typename CompanionOf<P>::Type;

/// Uniform access to all pixel types, including the plain 32-bit integer of lookup images.
template <class P>
struct PixelTraits {
    using Component = typename P::Component;
    using Parameters = typename P::Parameters;
    static constexpr int kComponents = P::kComponents;
    static constexpr float kWhite = static_cast<float>(Parameters::kWhite);
    /// The largest value that a stage stores: 255 (white) in 8 bits, 32767 in S2.14.
    static constexpr float kTop = static_cast<float>(Parameters::kMax);

    static Component* components(P& pixel) { return pixel.c; }
    static const Component* components(const P& pixel) { return pixel.c; }
};
template <>
struct PixelTraits<std::int32_t> {
    using Component = std::int32_t;
    static constexpr int kComponents = 1;

    static Component* components(std::int32_t& pixel) { return &pixel; }
    static const Component* components(const std::int32_t& pixel) { return &pixel; }
};

static_assert(sizeof(Rgba8) == 4 && sizeof(RgbaS214) == 8);
static_assert(sizeof(RgbaInt) == 16 && sizeof(RgbaFloat) == 16);
static_assert(sizeof(Channel8) == 1 && sizeof(ChannelS214) == 2 && sizeof(ChannelInt) == 4);

}  // namespace ruvex
