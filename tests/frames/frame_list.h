// Frames with names, which every build of the effect has to draw with the same bytes.

#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace ruvex::test {

/// The pixels of a picture: components of a byte each, or of two, the lower one first.
struct FrameBytes {
    std::vector<std::byte> bytes;
    std::size_t pixelSize;

    /// True when every pixel is as the first.
    bool constant() const;
};

struct NamedFrame {
    std::string look;  ///< what it shows, the same for each format and number of workers
    std::string name;  ///< look, format and number of workers
    std::function<FrameBytes()> render;
};

/// Every look in both formats and with each number of workers: the stored pictures' looks, which
/// are those of the television, and what the chain does before and after it.
std::vector<NamedFrame> namedFrames();

/// The 128-bit FNV-1a hash, as 32 hexadecimal digits.
std::string digestOf(std::span<const std::byte> bytes);

}  // namespace ruvex::test
