#include "media/digest.h"

#include <array>
#include <cstdint>
#include <new>

namespace ruvex::media {
namespace {

constexpr std::size_t kBytesOfDigest = kDigitsOfDigest / 2;
constexpr int kBitsOfByte = 8;

const std::uint8_t* octets(const std::byte* bytes) {
    return reinterpret_cast<const std::uint8_t*>(bytes);
}

}  // namespace

Digest::Digest() : murmur_(av_murmur3_alloc()) {
    if (!murmur_) throw std::bad_alloc();
    av_murmur3_init(murmur_.get());
}

void Digest::add(std::span<const std::byte> bytes) {
    std::array<std::byte, sizeof(std::uint64_t)> length{};
    for (std::size_t i = 0; i < length.size(); ++i) {
        const std::size_t shift = kBitsOfByte * (length.size() - 1 - i);
        length[i] = static_cast<std::byte>(std::uint64_t{bytes.size()} >> shift);
    }
    av_murmur3_update(murmur_.get(), octets(length.data()), length.size());
    av_murmur3_update(murmur_.get(), octets(bytes.data()), bytes.size());
}

std::string Digest::finish() {
    std::array<std::uint8_t, kBytesOfDigest> digest{};
    av_murmur3_final(murmur_.get(), digest.data());
    std::string text;
    for (const std::uint8_t byte : digest) {
        constexpr const char* kDigits = "0123456789abcdef";
        text.push_back(kDigits[byte >> 4]);
        text.push_back(kDigits[byte & 15]);
    }
    return text;
}

}  // namespace ruvex::media
