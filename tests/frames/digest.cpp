#include <cstdint>

#include "tests/frames/frame_list.h"

namespace ruvex::test {

std::string digestOf(std::span<const std::byte> bytes) {
    __extension__ using Wide = unsigned __int128;
    constexpr auto wide = [](std::uint64_t high, std::uint64_t low) {
        return static_cast<Wide>(high) << 64 | low;
    };
    constexpr Wide kPrime = wide(0x0000000001000000u, 0x000000000000013Bu);
    Wide hash = wide(0x6C62272E07BB0142u, 0x62B821756295C58Du);
    for (const std::byte byte : bytes) hash = (hash ^ static_cast<unsigned>(byte)) * kPrime;
    std::string text;
    for (int shift = 124; shift >= 0; shift -= 4) {
        text += "0123456789abcdef"[static_cast<unsigned>(hash >> shift & 15)];
    }
    return text;
}

}  // namespace ruvex::test
