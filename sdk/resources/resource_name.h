// Reads texts and names from the structures of a compiled resource file.

#pragma once

#include <cstddef>
#include <cstdint>

#include "sdk/resources/byte_reader.h"
#include "sdk/resources/resource_file.h"

namespace ruvex {

/// A text up to its zero, which is read too. The reader has failed if there is no zero.
inline ResourceText readText(ByteReader& reader) {
    ByteReader start = reader;
    std::size_t length = 0;
    while (reader.u16() != 0) ++length;
    return ResourceText(start.take(2 * length));
}

/// A number behind the marker 0xFFFF, or a text up to its zero.
inline ResourceName readName(ByteReader& reader) {
    constexpr std::uint16_t kNumberMark = 0xFFFF;
    ByteReader start = reader;
    if (start.u16() != kNumberMark) return {std::nullopt, readText(reader)};
    reader.u16();
    return {reader.u16(), ResourceText()};
}

}  // namespace ruvex
