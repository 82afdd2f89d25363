// Pictures in memory as hosts lay them out, for tests.

#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "adapters/common/host_picture.h"

namespace ruvex::adapters::test {

/// The order of rows in memory, and bytes between them.
struct Layout {
    bool topFirst = false;
    std::ptrdiff_t padding = 0;
};

/// A picture whose bytes are all `fill`, with guard bytes before, after and between its rows.
class HostMemory {
public:
    HostMemory(PixelRect bounds, PixelForm form, Layout layout = {}, std::byte fill = std::byte{})
        : bounds_(bounds), form_(form) {
        const auto rowBytes = static_cast<std::ptrdiff_t>(rowSize()) + layout.padding;
        step_ = layout.topFirst ? -rowBytes : rowBytes;
        const std::ptrdiff_t last = (bounds.height() - 1) * rowBytes;
        first_ = kMargin + (layout.topFirst ? last : 0);
        memory_.assign(static_cast<std::size_t>(2 * kMargin + last + rowBytes), kGuard);
        for (int y = bounds.y1; y < bounds.y2; ++y) std::memset(row(y), int(fill), rowSize());
    }

    TargetPicture target() { return {memory_.data() + first_, step_, bounds_, form_}; }
    SourcePicture source() const { return {memory_.data() + first_, step_, bounds_, form_}; }

    std::byte* row(int y) { return target().row(y); }
    std::size_t rowSize() const {
        return static_cast<std::size_t>(bounds_.width()) * form_.pixelBytes();
    }

    /// The rows from the bottom, without what lies between them.
    std::vector<std::byte> pixels() const {
        std::vector<std::byte> all;
        for (int y = bounds_.y1; y < bounds_.y2; ++y) {
            const std::byte* const row = source().row(y);
            all.insert(all.end(), row, row + rowSize());
        }
        return all;
    }

    /// The bytes of one pixel.
    std::vector<std::byte> pixel(int x, int y) const {
        const std::byte* const first = source().pixel(x, y);
        return {first, first + form_.pixelBytes()};
    }

    void setPixel(int x, int y, const std::vector<std::byte>& bytes) {
        std::memcpy(target().pixel(x, y), bytes.data(), bytes.size());
    }

    /// Whether the bytes outside the picture are as they were.
    bool guarded() const {
        std::vector<std::byte> outside = memory_;
        for (int y = bounds_.y1; y < bounds_.y2; ++y) {
            const auto at = first_ + (y - bounds_.y1) * step_;
            std::memset(outside.data() + at, int(kGuard), rowSize());
        }
        return outside == std::vector<std::byte>(outside.size(), kGuard);
    }

private:
    static constexpr std::ptrdiff_t kMargin = 61;  ///< Odd, so that pixels are not aligned.
    static constexpr std::byte kGuard{0xA5};

    PixelRect bounds_;
    PixelForm form_;
    std::ptrdiff_t step_ = 0;
    std::ptrdiff_t first_ = 0;  ///< Of the pixel (x1, y1) in memory.
    std::vector<std::byte> memory_;
};

/// A sequence of numbers without a pattern.
class Noise {
public:
    explicit Noise(std::uint32_t seed) : state_(seed) {}

    /// From 0 up to, but without, 1.
    float next() {
        state_ = state_ * 1664525U + 1013904223U;
        return static_cast<float>(state_ >> 8) * 0x1p-24F;
    }

private:
    std::uint32_t state_;
};

/// Stores a value from 0 to 1 as a component of the form.
inline void storeSample(float value, SampleType type, std::byte* at) {
    const auto bits8 = static_cast<std::uint8_t>(value * 255.99F);
    const auto bits16 = static_cast<std::uint16_t>(value * 65535.9F);
    if (type == SampleType::Bits8) std::memcpy(at, &bits8, sizeof bits8);
    if (type == SampleType::Bits16) std::memcpy(at, &bits16, sizeof bits16);
    if (type == SampleType::Float) std::memcpy(at, &value, sizeof value);
}

/// Fills the picture with values from 0 to 1 without a pattern.
inline void fillWithNoise(HostMemory& memory, std::uint32_t seed) {
    const TargetPicture picture = memory.target();
    const std::size_t step = sampleBytes(picture.form.samples);
    Noise noise(seed);
    for (int y = picture.bounds.y1; y < picture.bounds.y2; ++y) {
        for (std::size_t i = 0; i < memory.rowSize(); i += step) {
            storeSample(noise.next(), picture.form.samples, picture.row(y) + i);
        }
    }
}

}  // namespace ruvex::adapters::test
