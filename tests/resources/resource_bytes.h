// Compiled resources as bytes in memory of exactly their size, whole, cut off and damaged.

#pragma once

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <vector>

#include "sdk/resources/resource_file.h"

namespace ruvex::resource_test {

using Bytes = std::vector<unsigned char>;

/// All bytes of a file. Fails the test if it can't be read.
inline Bytes readBytes(const char* path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    Bytes bytes(std::istreambuf_iterator<char>(file), {});
    bytes.shrink_to_fit();
    return bytes;
}

/// Calls `read` with every beginning of `whole`, the empty one and the whole included.
template <class Read>
void forEachCut(const Bytes& whole, const Read& read) {
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        read(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)));
    }
}

/// Calls `read` with every byte of `whole` set to each of five values in turn.
template <class Read>
void forEachDamage(const Bytes& whole, const Read& read) {
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (const unsigned char value : {0x00, 0x01, 0x7F, 0x80, 0xFF}) {
            Bytes damaged = whole;
            damaged[at] = value;
            read(damaged);
        }
    }
}

inline void append16(Bytes& bytes, unsigned value) {
    bytes.push_back(static_cast<unsigned char>(value & 0xFF));
    bytes.push_back(static_cast<unsigned char>(value >> 8 & 0xFF));
}

inline void append32(Bytes& bytes, std::uint32_t value) {
    append16(bytes, value & 0xFFFF);
    append16(bytes, value >> 16);
}

/// A file with one resource.
inline Bytes fileOf(ResourceType type, std::uint16_t number, const Bytes& data) {
    constexpr std::uint32_t kHeaderSize = 32;
    Bytes file;
    append32(file, static_cast<std::uint32_t>(data.size()));
    append32(file, kHeaderSize);
    append16(file, 0xFFFF);
    append16(file, static_cast<unsigned>(type));
    append16(file, 0xFFFF);
    append16(file, number);
    file.resize(kHeaderSize);
    file.insert(file.end(), data.begin(), data.end());
    file.shrink_to_fit();
    return file;
}

/// A text of characters up to U+007F, for comparisons.
inline std::string plain(const ResourceText& text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) result += static_cast<char>(text[i]);
    return result;
}

}  // namespace ruvex::resource_test
