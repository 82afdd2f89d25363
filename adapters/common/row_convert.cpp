#include "adapters/common/row_convert.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <type_traits>

#include "adapters/common/sample_codec.h"

namespace ruvex::adapters {
namespace {

template <class Image>
constexpr Image kWhiteOf = std::is_same_v<Image, std::uint8_t> ? kWhite8 : kWhiteS214;

constexpr int kRgbComponents = 3;

/// The host's component number `index` of a row.
template <class Sample>
Sample loaded(const std::byte* row, std::ptrdiff_t index) {
    Sample sample;
    std::memcpy(&sample, row + index * std::ptrdiff_t{sizeof sample}, sizeof sample);
    return sample;
}

template <class Sample>
void store(Sample sample, std::byte* row, std::ptrdiff_t index) {
    std::memcpy(row + index * std::ptrdiff_t{sizeof sample}, &sample, sizeof sample);
}

template <class Codec>
void readComponents(const std::byte* from, int width, typename Codec::Image* to) {
    if constexpr (std::is_same_v<Codec, Bits8Codec>) {
        std::memcpy(to, from, static_cast<std::size_t>(width) * kImageChannels);
    } else {
        for (std::ptrdiff_t i = 0; i < std::ptrdiff_t{width} * kImageChannels; ++i) {
            to[i] = Codec::read(loaded<typename Codec::Host>(from, i));
        }
    }
}

template <class Codec>
void readPremultiplied(const std::byte* from, int width, typename Codec::Image* to) {
    for (std::ptrdiff_t i = 0; i < std::ptrdiff_t{width} * kImageChannels; i += kImageChannels) {
        const auto alpha = loaded<typename Codec::Host>(from, i + kAlphaChannel);
        for (int channel = 0; channel < kAlphaChannel; ++channel) {
            to[i + channel] =
                Codec::readDivided(loaded<typename Codec::Host>(from, i + channel), alpha);
        }
        to[i + kAlphaChannel] = Codec::read(alpha);
    }
}

template <class Codec>
void readRgb(const std::byte* from, int width, typename Codec::Image* to) {
    for (std::ptrdiff_t x = 0; x < width; ++x) {
        for (int channel = 0; channel < kRgbComponents; ++channel) {
            to[x * kImageChannels + channel] =
                Codec::read(loaded<typename Codec::Host>(from, x * kRgbComponents + channel));
        }
        to[x * kImageChannels + kAlphaChannel] = kWhiteOf<typename Codec::Image>;
    }
}

template <class Codec>
void readAlpha(const std::byte* from, int width, typename Codec::Image* to) {
    for (std::ptrdiff_t x = 0; x < width; ++x) {
        const auto value = Codec::read(loaded<typename Codec::Host>(from, x));
        for (int channel = 0; channel < kImageChannels; ++channel) {
            to[x * kImageChannels + channel] = value;
        }
    }
}

template <class Codec>
void readRgba(const std::byte* from, HostAlpha alpha, int width, typename Codec::Image* to) {
    if (alpha == HostAlpha::Premultiplied) return readPremultiplied<Codec>(from, width, to);
    readComponents<Codec>(from, width, to);
    if (alpha == HostAlpha::Opaque) makeOpaque(to, width);
}

template <class Codec>
void readWith(const std::byte* from, PixelForm form, int width, typename Codec::Image* to) {
    switch (form.components) {
        case Components::Rgba:
            return readRgba<Codec>(from, form.alpha, width, to);
        case Components::Rgb:
            return readRgb<Codec>(from, width, to);
        case Components::Alpha:
            return readAlpha<Codec>(from, width, to);
    }
}

template <class Codec>
void writeComponents(const typename Codec::Image* from, int width, std::byte* to) {
    if constexpr (std::is_same_v<Codec, Bits8Codec>) {
        std::memcpy(to, from, static_cast<std::size_t>(width) * kImageChannels);
    } else {
        for (std::ptrdiff_t i = 0; i < std::ptrdiff_t{width} * kImageChannels; ++i) {
            store(Codec::written(from[i]), to, i);
        }
    }
}

template <class Codec>
void writePremultiplied(const typename Codec::Image* from, int width, std::byte* to) {
    for (std::ptrdiff_t i = 0; i < std::ptrdiff_t{width} * kImageChannels; i += kImageChannels) {
        const auto alpha = from[i + kAlphaChannel];
        for (int channel = 0; channel < kAlphaChannel; ++channel) {
            store(Codec::writtenTimes(from[i + channel], alpha), to, i + channel);
        }
        store(Codec::written(alpha), to, i + kAlphaChannel);
    }
}

template <class Codec>
void writeRgb(const typename Codec::Image* from, int width, std::byte* to) {
    for (std::ptrdiff_t x = 0; x < width; ++x) {
        for (int channel = 0; channel < kRgbComponents; ++channel) {
            store(Codec::written(from[x * kImageChannels + channel]), to,
                  x * kRgbComponents + channel);
        }
    }
}

template <class Codec>
void writeAlpha(const typename Codec::Image* from, int width, std::byte* to) {
    for (std::ptrdiff_t x = 0; x < width; ++x) {
        store(Codec::written(from[x * kImageChannels + kAlphaChannel]), to, x);
    }
}

template <class Codec>
void writeWith(const typename Codec::Image* from, PixelForm form, int width, std::byte* to) {
    switch (form.components) {
        case Components::Rgba:
            return form.alpha == HostAlpha::Premultiplied
                       ? writePremultiplied<Codec>(from, width, to)
                       : writeComponents<Codec>(from, width, to);
        case Components::Rgb:
            return writeRgb<Codec>(from, width, to);
        case Components::Alpha:
            return writeAlpha<Codec>(from, width, to);
    }
}

template <class Image>
bool everyAlphaIsWhite(const Image* row, int width) {
    bool all = true;
    for (std::ptrdiff_t x = 0; x < width; ++x) {
        all &= row[x * kImageChannels + kAlphaChannel] >= kWhiteOf<Image>;
    }
    return all;
}

template <class Image>
void fillAlpha(Image* row, int width) {
    for (std::ptrdiff_t x = 0; x < width; ++x)
        row[x * kImageChannels + kAlphaChannel] = kWhiteOf<Image>;
}

/// Other samples into an 8-bit image, by way of S2.14.
void readDeepRow(const std::byte* from, PixelForm form, int width, std::uint8_t* to) {
    constexpr int kPart = 256;  // Pixels at a time.
    std::array<std::int16_t, kPart * kImageChannels> part;
    for (int x = 0; x < width; x += kPart) {
        const int count = std::min(kPart, width - x);
        readRow(from + form.pixelBytes() * static_cast<std::size_t>(x), form, count, part.data());
        std::transform(part.data(), part.data() + count * kImageChannels,
                       to + std::ptrdiff_t{x} * kImageChannels, u8FromS214);
    }
}

}  // namespace

void readRow(const std::byte* from, PixelForm form, int width, std::uint8_t* to) {
    if (form.samples == SampleType::Bits8) return readWith<Bits8Codec>(from, form, width, to);
    readDeepRow(from, form, width, to);
}

void readRow(const std::byte* from, PixelForm form, int width, std::int16_t* to) {
    switch (form.samples) {
        case SampleType::Bits8:
            return readWith<Bits8DeepCodec>(from, form, width, to);
        case SampleType::Bits16:
            return readWith<Bits16Codec>(from, form, width, to);
        case SampleType::Float:
            return readWith<FloatCodec>(from, form, width, to);
    }
}

void writeRow(const std::uint8_t* from, PixelForm form, int width, std::byte* to) {
    writeWith<Bits8Codec>(from, form, width, to);
}

void writeRow(const std::int16_t* from, PixelForm form, int width, std::byte* to) {
    switch (form.samples) {
        case SampleType::Bits8:
            return writeWith<Bits8DeepCodec>(from, form, width, to);
        case SampleType::Bits16:
            return writeWith<Bits16Codec>(from, form, width, to);
        case SampleType::Float:
            return writeWith<FloatCodec>(from, form, width, to);
    }
}

bool isOpaque(const std::uint8_t* row, int width) {
    return everyAlphaIsWhite(row, width);
}
bool isOpaque(const std::int16_t* row, int width) {
    return everyAlphaIsWhite(row, width);
}

void makeOpaque(std::uint8_t* row, int width) {
    fillAlpha(row, width);
}
void makeOpaque(std::int16_t* row, int width) {
    fillAlpha(row, width);
}

}  // namespace ruvex::adapters
