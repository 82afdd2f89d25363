// A picture in memory, in the layout that the effect works on.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "sdk/images/sample_convert.h"

namespace ruvex::media {

/// How a component is stored: unsigned 8 bits with white 255, or S2.14, signed 16 bits with white
/// 16384.
enum class Depth { Bits8, S214 };

inline constexpr int kChannels = 4;
/// Channel of alpha; red, green and blue are channels 0 to 2.
inline constexpr int kAlpha = 3;
using ruvex::kWhite8;
using ruvex::kWhiteS214;

constexpr std::size_t bytesPerPixel(Depth depth) {
    return depth == Depth::Bits8 ? 4 : 8;
}

/// Width and height of a picture in pixels.
struct FrameSize {
    int width = 0;
    int height = 0;

    friend bool operator==(const FrameSize&, const FrameSize&) = default;
};

/// "720x576".
std::string toText(FrameSize size);

/// Throws MediaError if a side is below 1 or the frame would reach 2 GB, the limit of the effect's
/// 32-bit sizes. The message begins with `what`, the name of the file or option ("clip.mkv",
/// "--size").
void checkFrameSize(FrameSize size, Depth depth, const std::string& what);

/// The chain row that shows a line of a stored picture, and the line that a chain row shows. Lines
/// count from the top, as files of video and stills store them. Chain rows count from the bottom:
/// cropping the bottom takes rows from 0 on. Raw frames are chain rows and need no conversion.
constexpr int chainRowOfLine(int line, int height) {
    return height - 1 - line;
}

/// A picture: components red, green, blue, alpha for each pixel, rows without padding, row 0 at
/// the bottom.
class Frame {
public:
    Frame() = default;
    /// All components are 0. Throws MediaError on a size that checkFrameSize refuses.
    Frame(FrameSize size, Depth depth);

    FrameSize size() const { return size_; }
    int width() const { return size_.width; }
    int height() const { return size_.height; }
    Depth depth() const { return depth_; }
    std::size_t rowBytes() const {
        return static_cast<std::size_t>(width()) * bytesPerPixel(depth_);
    }

    std::vector<std::byte>& bytes() { return bytes_; }
    const std::vector<std::byte>& bytes() const { return bytes_; }

    /// The first byte of a chain row; `row` is 0 to height - 1. The frame owns the memory.
    std::byte* row(int row) { return bytes_.data() + rowBytes() * static_cast<std::size_t>(row); }
    const std::byte* row(int row) const {
        return bytes_.data() + rowBytes() * static_cast<std::size_t>(row);
    }

    /// The components of a chain row; the frame's depth must be Bits8 (row8) or S214 (row16).
    std::uint8_t* row8(int y) { return reinterpret_cast<std::uint8_t*>(row(y)); }
    const std::uint8_t* row8(int y) const { return reinterpret_cast<const std::uint8_t*>(row(y)); }
    std::int16_t* row16(int y) { return reinterpret_cast<std::int16_t*>(row(y)); }
    const std::int16_t* row16(int y) const { return reinterpret_cast<const std::int16_t*>(row(y)); }

    friend bool operator==(const Frame&, const Frame&) = default;

private:
    FrameSize size_;
    Depth depth_ = Depth::Bits8;
    std::vector<std::byte> bytes_;
};

/// Replaces the frame by a new one unless it has this size and depth already; its components are
/// then kept. Throws as the constructor does.
void makeRoom(Frame& frame, FrameSize size, Depth depth);

}  // namespace ruvex::media
