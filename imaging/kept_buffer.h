// Pixel memory that is kept for the next use.

#pragma once

#include <cstddef>
#include <cstdint>

#include "imaging/buffer.h"

namespace ruvex {

/// One buffer, kept so that its pages need not be given by the system again for each frame. Not for
/// two threads at once.
class KeptBuffer {
public:
    KeptBuffer() = default;
    ~KeptBuffer() { releaseBuffer(memory_); }
    KeptBuffer(const KeptBuffer&) = delete;
    KeptBuffer& operator=(const KeptBuffer&) = delete;

    /// At least `bytes`, aligned to a cache line, with any contents; what an earlier call gave is
    /// no longer valid. Null when `bytes` is below 1 or memory has run out. The buffer remains this
    /// object's. It is replaced if it is too small, or more than twice as large as needed.
    std::byte* reserve(std::int32_t bytes) {
        if (bytes >= 1 && bytes <= size_ && bytes >= size_ / 2) return memory_;
        releaseBuffer(memory_);
        memory_ = allocateBuffer(bytes, Contents::Undefined);
        size_ = memory_ ? bytes : 0;
        return memory_;
    }

    /// Bytes that are kept now.
    std::int32_t size() const { return size_; }

private:
    std::byte* memory_ = nullptr;
    std::int32_t size_ = 0;
};

}  // namespace ruvex
