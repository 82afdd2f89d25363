#include "media/sha256.h"

#include <array>
#include <cstdint>
#include <new>

namespace ruvex::media {
namespace {

constexpr int kBitsOfDigest = 256;
constexpr int kBitsOfByte = 8;

const std::uint8_t* octets(const std::byte* bytes) {
    return reinterpret_cast<const std::uint8_t*>(bytes);
}

}  // namespace

Sha256::Sha256() : sha_(av_sha_alloc()) {
    if (!sha_) throw std::bad_alloc();
    av_sha_init(sha_.get(), kBitsOfDigest);
}

void Sha256::add(std::span<const std::byte> bytes) {
    std::array<std::byte, sizeof(std::uint64_t)> length{};
    for (std::size_t i = 0; i < length.size(); ++i) {
        const std::size_t shift = kBitsOfByte * (length.size() - 1 - i);
        length[i] = static_cast<std::byte>(std::uint64_t{bytes.size()} >> shift);
    }
    av_sha_update(sha_.get(), octets(length.data()), length.size());
    av_sha_update(sha_.get(), octets(bytes.data()), bytes.size());
}

std::string Sha256::finish() {
    std::array<std::uint8_t, kBitsOfDigest / kBitsOfByte> digest{};
    av_sha_final(sha_.get(), digest.data());
    std::string text;
    for (const std::uint8_t byte : digest) {
        constexpr const char* kDigits = "0123456789abcdef";
        text.push_back(kDigits[byte >> 4]);
        text.push_back(kDigits[byte & 15]);
    }
    return text;
}

}  // namespace ruvex::media
