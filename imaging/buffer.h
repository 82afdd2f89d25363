// Pixel memory. Failure is visible as a null pointer and never thrown.

#pragma once

#include <cstddef>
#include <cstdint>

namespace ruvex {

enum class Contents {
    Undefined,  ///< for buffers of which every byte is written before it is read
    Zero,       ///< for buffers whose bytes can reach the output unwritten
};

/// The largest buffer there is: sizes are signed 32-bit.
inline constexpr std::int64_t kMaxBufferBytes = INT32_MAX;

/// Bytes of an image of `width` by `height` pixels, or 0 where a size is below 1 or the product is
/// beyond kMaxBufferBytes.
constexpr std::int32_t imageBytes(std::int32_t width, std::int32_t height, std::int64_t pixelSize) {
    if (width < 1 || height < 1) return 0;
    const std::int64_t row = std::int64_t{width} * pixelSize;
    return row > kMaxBufferBytes / height ? 0 : static_cast<std::int32_t>(row * height);
}

/// Allocates `bytes`, aligned to a cache line. Null when `bytes` is below 1 or memory ran out.
/// The caller releases it with releaseBuffer.
std::byte* allocateBuffer(std::int32_t bytes, Contents contents) noexcept;

/// Releases what allocateBuffer gave; null is allowed.
void releaseBuffer(std::byte* buffer) noexcept;

}  // namespace ruvex
