// SHA-256, by which two files or texts are told apart.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace ruvex::files {

/// The digest of bytes that come in pieces.
class Sha256 {
public:
    void add(std::span<const std::byte> bytes);
    /// 64 lower-case hexadecimal digits. Once only; nothing can be added afterwards.
    std::string finish();

private:
    static constexpr std::size_t kBlock = 64;

    void addBlock(const std::byte* block);

    std::array<std::uint32_t, 8> state_{0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                        0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
    std::array<std::byte, kBlock> pending_{};  ///< What does not fill a block yet.
    std::size_t pendingSize_ = 0;
    std::uint64_t length_ = 0;  ///< Bytes so far.
};

/// The digest of a text.
std::string sha256Of(std::string_view text);

}  // namespace ruvex::files
