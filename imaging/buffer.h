// Allocation of pixel memory. A failed allocation gives a null pointer and throws nothing.

#pragma once

#include <cstddef>
#include <cstdint>

namespace ruvex {

enum class Contents {
    Undefined,  ///< uninitialised: every byte is written before it is read
    Zero,       ///< zeroed: bytes may be read that were never written
};

/// The largest buffer in bytes: sizes are signed 32-bit numbers.
inline constexpr std::int64_t kMaxBufferBytes = INT32_MAX;

/// Bytes of an image of `width` by `height` pixels of `pixelSize` bytes. 0 if a size is below 1 or
/// the result would exceed kMaxBufferBytes.
constexpr std::int32_t imageBytes(std::int32_t width, std::int32_t height, std::int64_t pixelSize) {
    if (width < 1 || height < 1) return 0;
    const std::int64_t row = std::int64_t{width} * pixelSize;
    return row > kMaxBufferBytes / height ? 0 : static_cast<std::int32_t>(row * height);
}

/// Allocates `bytes`, aligned to a cache line. Null when `bytes` is below 1 or memory has run out.
/// The caller owns the buffer and frees it with releaseBuffer.
std::byte* allocateBuffer(std::int32_t bytes, Contents contents) noexcept;

/// Frees a buffer from allocateBuffer; null is allowed.
void releaseBuffer(std::byte* buffer) noexcept;

}  // namespace ruvex
