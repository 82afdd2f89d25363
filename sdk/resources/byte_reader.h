// Little-endian numbers out of a run of bytes, never past its end.

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

namespace ruvex {

/// Reads from the front on. The first read past the end fails the reader: from there on every read
/// gives 0 or nothing, so that a caller may read a whole structure and ask once.
class ByteReader {
public:
    explicit ByteReader(std::span<const unsigned char> bytes) : bytes_(bytes) {}

    bool failed() const { return failed_; }
    std::size_t position() const { return position_; }
    std::size_t remaining() const { return bytes_.size() - position_; }

    /// The next `count` bytes; empty when there are fewer.
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

    /// Goes on to the next multiple of 4 from the front. The padding behind the last structure may
    /// be missing.
    void alignTo4() { position_ = std::min((position_ + 3) & ~std::size_t{3}, bytes_.size()); }

private:
    std::span<const unsigned char> bytes_;
    std::size_t position_ = 0;
    bool failed_ = false;
};

}  // namespace ruvex
