// Conversion of single components between a host's types and those of images, in both forms of
// alpha. Each codec has the same members:
//   Host, Image    the type of a component on each side;
//   read           an image's component from a host's;
//   readDivided    the same for a colour that is premultiplied with `alpha`, a component too;
//   written        a host's component from an image's;
//   writtenTimes   the same for a colour that becomes premultiplied with `alpha`.

#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "sdk/images/sample_convert.h"

namespace ruvex::adapters {

/// The largest component of S2.14.
inline constexpr int kMostS214 = 32767;
/// The square of S2.14's white is 1 << kSquareBits.
inline constexpr int kSquareBits = 28;

/// colour * alpha of S2.14 components; 0 where it is negative. White is 1 << kSquareBits.
constexpr int productS214(std::int16_t colour, std::int16_t alpha) {
    return std::max(colour * alpha, 0);
}

/// Rounded to the nearest, of two equally near to the even one; `value` lies in the range of S2.14.
/// Numbers as large as the sum have no fraction, so that the addition rounds. This needs no library
/// call, unlike std::lrint.
constexpr std::int16_t nearestS214(float value) {
    constexpr float kWithoutFraction = 0x1.8p23F;
    return static_cast<std::int16_t>((value + kWithoutFraction) - kWithoutFraction);
}
constexpr std::int16_t nearestS214(double value) {
    constexpr double kWithoutFraction = 0x1.8p52;
    return static_cast<std::int16_t>((value + kWithoutFraction) - kWithoutFraction);
}

/// S2.14 from a value whose white is 1, held to the range; 0 for NaN.
template <class Real>
constexpr std::int16_t s214FromUnit(Real value) {
    constexpr Real kLeast = -32768;
    constexpr Real kMost = kMostS214;
    const Real scaled = value * kWhiteS214;
    const Real fromLeast = scaled < kLeast ? kLeast : scaled;
    const Real held = fromLeast > kMost ? kMost : fromLeast;
    const bool isNumber = held == held;
    return nearestS214(isNumber ? held : Real{0});
}

/// 2^32 / alpha, rounded up, for each 8-bit alpha; 0 for 0. A product with it replaces a division.
inline constexpr int kReciprocalBits = 32;
inline constexpr auto kReciprocals = [] {
    constexpr std::uint64_t kOne = std::uint64_t{1} << kReciprocalBits;
    std::array<std::uint64_t, kWhite8 + 1> all{};
    for (std::uint64_t alpha = 1; alpha < all.size(); ++alpha) {
        all[alpha] = (kOne + alpha - 1) / alpha;
    }
    return all;
}();

/// dividend / alpha, rounded down; 0 if alpha is 0. The dividend is below 2^23: then the
/// reciprocal, which is less than 1 too large, changes no result.
constexpr int quotient8(int dividend, std::uint8_t alpha) {
    const auto product = static_cast<std::uint64_t>(dividend) * kReciprocals[alpha];
    return static_cast<int>(product >> kReciprocalBits);
}

/// 8 bits in images of 8 bits. A colour above alpha, which no premultiplied picture should have,
/// becomes white.
struct Bits8Codec {
    using Host = std::uint8_t;
    using Image = std::uint8_t;

    static constexpr Image read(Host value) { return value; }

    static constexpr Image readDivided(Host colour, Host alpha) {
        return static_cast<Image>(
            std::min(quotient8(colour * kWhite8 + alpha / 2, alpha), kWhite8));
    }

    static constexpr Host written(Image value) { return value; }

    static constexpr Host writtenTimes(Image colour, Image alpha) {
        return static_cast<Host>((colour * alpha + kWhite8 / 2) / kWhite8);
    }
};

/// 8 bits in images of S2.14.
struct Bits8DeepCodec {
    using Host = std::uint8_t;
    using Image = std::int16_t;

    static constexpr Image read(Host value) { return s214From8(value); }

    static constexpr Image readDivided(Host colour, Host alpha) {
        // Half of an odd alpha may be cut, since no two results are equally near.
        return static_cast<Image>(
            std::min(quotient8(colour * kWhiteS214 + alpha / 2, alpha), kMostS214));
    }

    static constexpr Host written(Image value) { return u8FromS214(value); }

    static constexpr Host writtenTimes(Image colour, Image alpha) {
        constexpr std::int64_t kHalf = std::int64_t{1} << (kSquareBits - 1);
        const std::int64_t product = std::int64_t{productS214(colour, alpha)} * kWhite8;
        return static_cast<Host>(std::min<std::int64_t>((product + kHalf) >> kSquareBits, kWhite8));
    }
};

struct Bits16Codec {
    using Host = std::uint16_t;
    using Image = std::int16_t;

    static constexpr Image read(Host value) { return s214From16(value); }

    static constexpr Image readDivided(Host colour, Host alpha) {
        const int divisor = s214From16(alpha);
        // Halves are added before the division. The dividend has 29 bits, exact in a double.
        const auto dividend = static_cast<double>(s214From16(colour) * 2 * kWhiteS214 + divisor);
        const double quotient = dividend / static_cast<double>(std::max(2 * divisor, 1));
        const double held = std::min(quotient, static_cast<double>(kMostS214));
        return static_cast<Image>(divisor == 0 ? 0 : static_cast<int>(held));
    }

    static constexpr Host written(Image value) { return u16FromS214(value); }

    static constexpr Host writtenTimes(Image colour, Image alpha) {
        const int product = (productS214(colour, alpha) + kWhiteS214 / 2) / kWhiteS214;
        return static_cast<Host>(scaleFromS214(product, kWhite16));
    }
};

/// Floats with white at 1.
struct FloatCodec {
    using Host = float;
    using Image = std::int16_t;

    static constexpr Image read(Host value) { return s214FromUnit(value); }

    /// An alpha that is infinite or NaN does not divide.
    static Image readDivided(Host colour, Host alpha) {
        const double divisor = alpha != 0 && std::isfinite(alpha) ? alpha : 1.0;
        return s214FromUnit(alpha == 0 ? 0.0 : colour / divisor);
    }

    static constexpr Host written(Image value) {
        return static_cast<float>(value) * (1.0F / kWhiteS214);
    }

    /// The product of two components is exact, and so is a division by a power of 2: only the
    /// conversion to a float rounds.
    static constexpr Host writtenTimes(Image colour, Image alpha) {
        constexpr float kUnit = 1.0F / (1 << kSquareBits);
        return static_cast<float>(colour * alpha) * kUnit;
    }
};

}  // namespace ruvex::adapters
