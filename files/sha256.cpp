#include "files/sha256.h"

#include <algorithm>
#include <bit>
namespace ruvex::files {
namespace {

/// The first 32 bits of the fractional parts of the cube roots of the first 64 primes.
constexpr std::array<std::uint32_t, 64> kRoundConstants = {
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2};

using Schedule = std::array<std::uint32_t, 64>;

std::uint32_t bigEndian(const std::byte* bytes) {
    return std::to_integer<std::uint32_t>(bytes[0]) << 24 |
           std::to_integer<std::uint32_t>(bytes[1]) << 16 |
           std::to_integer<std::uint32_t>(bytes[2]) << 8 | std::to_integer<std::uint32_t>(bytes[3]);
}

Schedule scheduleOf(const std::byte* block) {
    Schedule words{};
    for (std::size_t i = 0; i < 16; ++i) words[i] = bigEndian(block + 4 * i);
    for (std::size_t i = 16; i < words.size(); ++i) {
        const std::uint32_t a = words[i - 15];
        const std::uint32_t b = words[i - 2];
        words[i] = words[i - 16] + words[i - 7] + (std::rotr(a, 7) ^ std::rotr(a, 18) ^ (a >> 3)) +
                   (std::rotr(b, 17) ^ std::rotr(b, 19) ^ (b >> 10));
    }
    return words;
}

}  // namespace

void Sha256::addBlock(const std::byte* block) {
    const Schedule words = scheduleOf(block);
    auto [a, b, c, d, e, f, g, h] = state_;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::uint32_t first = h + (std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25)) +
                                    ((e & f) ^ (~e & g)) + kRoundConstants[i] + words[i];
        const std::uint32_t second =
            (std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22)) + ((a & b) ^ (a & c) ^ (b & c));
        h = g;
        g = f;
        f = e;
        e = d + first;
        d = c;
        c = b;
        b = a;
        a = first + second;
    }
    const std::array<std::uint32_t, 8> added = {a, b, c, d, e, f, g, h};
    for (std::size_t i = 0; i < state_.size(); ++i) state_[i] += added[i];
}

void Sha256::add(std::span<const std::byte> bytes) {
    length_ += bytes.size();
    if (pendingSize_ > 0) {
        const std::size_t taken = std::min(bytes.size(), kBlock - pendingSize_);
        std::ranges::copy(bytes.first(taken), pending_.begin() + pendingSize_);
        pendingSize_ += taken;
        bytes = bytes.subspan(taken);
        if (pendingSize_ < kBlock) return;
        addBlock(pending_.data());
        pendingSize_ = 0;
    }
    for (; bytes.size() >= kBlock; bytes = bytes.subspan(kBlock)) addBlock(bytes.data());
    std::ranges::copy(bytes, pending_.begin());
    pendingSize_ = bytes.size();
}

std::string Sha256::finish() {
    constexpr std::size_t kLengthBytes = 8;
    constexpr std::string_view kHexDigits = "0123456789abcdef";
    const std::uint64_t bits = length_ * 8;
    // A one bit, zeros up to the place of the length in a block, and the length in bits.
    const std::array<std::byte, 1> one = {std::byte{0x80}};
    const std::array<std::byte, 1> zero = {std::byte{0}};
    add(one);
    while (pendingSize_ != kBlock - kLengthBytes) add(zero);
    std::array<std::byte, kLengthBytes> length{};
    for (std::size_t i = 0; i < length.size(); ++i) {
        length[i] = static_cast<std::byte>(bits >> (8 * (kLengthBytes - 1 - i)));
    }
    add(length);
    std::string text;
    for (const std::uint32_t word : state_) {
        for (int shift = 28; shift >= 0; shift -= 4) text += kHexDigits[word >> shift & 15];
    }
    return text;
}

std::string sha256Of(std::string_view text) {
    Sha256 digest;
    digest.add(std::as_bytes(std::span(text)));
    return digest.finish();
}

}  // namespace ruvex::files
