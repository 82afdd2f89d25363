#include "media/png_structure.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace ruvex::media {
namespace {

constexpr std::array<unsigned char, 8> kSignature = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
constexpr std::size_t kChunkFrame = 12;  // length, type and check sum around a chunk's data

std::uint32_t bigEndian(std::span<const std::byte> bytes) {
    std::uint32_t value = 0;
    for (const std::byte byte : bytes.first(4)) {
        value = value << 8 | std::to_integer<std::uint32_t>(byte);
    }
    return value;
}

}  // namespace

std::string pngFault(std::span<const std::byte> file) {
    if (file.size() < kSignature.size() ||
        std::memcmp(file.data(), kSignature.data(), kSignature.size()) != 0) {
        return "is not a PNG file.";
    }
    std::span<const std::byte> rest = file.subspan(kSignature.size());
    while (rest.size() >= kChunkFrame) {
        const std::size_t chunk = kChunkFrame + bigEndian(rest);
        if (std::memcmp(rest.data() + 4, "IEND", 4) == 0) {
            return "";
        }
        rest = rest.subspan(std::min(chunk, rest.size()));
    }
    return "is cut off: its last part is missing. Copy or render it again.";
}

}  // namespace ruvex::media
