// The bytes of a file, read by position.

#pragma once

#include <array>
#include <cstdint>
#include <istream>
#include <string_view>

namespace ruvex::media {

/// Reads a stream in blocks. Bytes beyond its end are 0.
class FileBytes {
public:
    /// `stream` must be able to seek, and outlive this object.
    explicit FileBytes(std::istream& stream);

    std::uint64_t size() const { return size_; }

    std::uint8_t byte(std::uint64_t at);

    /// Unsigned numbers of up to eight bytes.
    std::uint64_t bigEndian(std::uint64_t at, int bytes);
    std::uint64_t littleEndian(std::uint64_t at, int bytes);

    /// Whether the bytes from `at` on are those of `text`.
    bool holds(std::uint64_t at, std::string_view text);

private:
    /// Reads the block that begins at `at`.
    void fill(std::uint64_t at);

    std::istream& stream_;
    std::uint64_t size_ = 0;
    std::array<char, 4096> block_{};
    std::uint64_t begin_ = 0;   ///< Position of the block.
    std::uint64_t filled_ = 0;  ///< Bytes of the block that were read.
};

}  // namespace ruvex::media
