// Reads little-endian numbers from a span of bytes, with bounds checks.

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

namespace ruvex {

/// Reads in sequence from the first byte on. After a read past the end the reader has failed, and
/// every further read gives 0 or an empty span: a caller may read a whole structure and check once.
class ByteReader {
public:
    explicit ByteReader(std::span<const unsigned char> bytes) : bytes_(bytes) {}

    bool failed() const { return failed_; }
    std::size_t position() const { return position_; }
    std::size_t remaining() const { return bytes_.size() - position_; }

    /// The next `count` bytes; empty if there are fewer.
    std::span<const unsigned char> take(std::size_t count) {
        if (failed_ || count > remaining()) {
            failed_ = true;
            return {};
        }
        const auto taken = bytes_.subspan(position_, count);
        position_ += count;
        return taken;
    }

    std::uint16_t u16() {
        const auto b = take(2);
        return b.empty() ? std::uint16_t{0} : static_cast<std::uint16_t>(b[0] | b[1] << 8);
    }

    std::uint32_t u32() {
        const std::uint32_t low = u16();
        const std::uint32_t high = u16();
        return low | high << 16;
    }

    /// Skips to the next offset that is a multiple of 4. The padding after the last structure may
    /// be missing.
    void alignTo4() { position_ = std::min((position_ + 3) & ~std::size_t{3}, bytes_.size()); }

private:
    std::span<const unsigned char> bytes_;
    std::size_t position_ = 0;
    bool failed_ = false;
};

}  // namespace ruvex
