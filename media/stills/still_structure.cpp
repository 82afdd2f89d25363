#include "media/stills/still_structure.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace ruvex::media {
namespace {

using namespace std::string_view_literals;
using Bytes = std::span<const std::byte>;

// Bytes.
constexpr std::size_t kPngSignature = 8;
constexpr std::size_t kPngLengthField = 4;
constexpr std::size_t kPngChunkFields = 12;  ///< Length, type and checksum around a chunk's data.
constexpr std::size_t kDpxLengthOffset = 16;
constexpr std::size_t kTiffDirectoryOffset = 4;  ///< Of the first directory's offset, 4 bytes.
constexpr std::size_t kTiffCount = 2;            ///< The number of entries before the entries.
constexpr std::size_t kTiffEntry = 12;
constexpr std::size_t kTiffNextOffset = 4;  ///< The next directory's offset behind the entries.

bool beginsWith(Bytes file, std::string_view text) {
    return file.size() >= text.size() && std::memcmp(file.data(), text.data(), text.size()) == 0;
}

std::uint32_t bigEndian(Bytes bytes) {
    std::uint32_t value = 0;
    for (const std::byte byte : bytes.first(4)) {
        value = value << 8 | std::to_integer<std::uint32_t>(byte);
    }
    return value;
}

std::uint32_t swapped(std::uint32_t word) {
    return word >> 24 | (word >> 8 & 0xFF00) | (word << 8 & 0xFF0000) | word << 24;
}

/// Whether the chunks behind the signature lead to an end chunk.
bool hasPngEnd(Bytes file) {
    Bytes rest = file.subspan(kPngSignature);
    while (rest.size() >= kPngChunkFields) {
        const std::size_t chunk = kPngChunkFields + bigEndian(rest);
        if (beginsWith(rest.subspan(kPngLengthField), "IEND")) {
            return true;
        }
        rest = rest.subspan(std::min(chunk, rest.size()));
    }
    return false;
}

/// Whether there is an end-of-image marker behind the last start-of-scan marker. Coded data cannot
/// contain one; an earlier one ends a thumbnail in the header. Other data may follow the marker.
bool hasJpegEnd(Bytes file) {
    constexpr std::array kEnd = {std::byte{0xFF}, std::byte{0xD9}};
    constexpr std::array kScan = {std::byte{0xFF}, std::byte{0xDA}};
    const auto scan = std::find_end(file.begin(), file.end(), kScan.begin(), kScan.end());
    return std::search(scan, file.end(), kEnd.begin(), kEnd.end()) != file.end();
}

/// Whether the file is as long as its header says; the signature gives the byte order. Some
/// programs store the length as undefined, which is all ones.
bool hasDpxLength(Bytes file) {
    if (file.size() < kDpxLengthOffset + sizeof(std::uint32_t)) {
        return false;
    }
    const std::uint32_t stored = bigEndian(file.subspan(kDpxLengthOffset));
    const std::uint32_t length = beginsWith(file, "SDPX") ? stored : swapped(stored);
    return length == UINT32_MAX || length <= file.size();
}

struct Signature {
    FileKind kind;
    std::string_view text;  ///< The file's first bytes.
    const char* name;
    bool (*isComplete)(Bytes);
};

/// Whether the first directory lies within the file; it may lie before or behind the picture. The
/// decoder checks the picture's strips.
bool hasTiffDirectory(Bytes file) {
    const bool big = beginsWith(file, "MM");
    const auto number = [&](std::size_t offset, std::size_t count) {
        std::size_t value = 0;
        for (std::size_t i = 0; i < count && offset + count <= file.size(); ++i) {
            const std::size_t next = offset + (big ? i : count - 1 - i);
            value = value << 8 | std::to_integer<std::size_t>(file[next]);
        }
        return value;
    };
    const std::size_t directory = number(kTiffDirectoryOffset, sizeof(std::uint32_t));
    const std::size_t entries = number(directory, kTiffCount);
    return entries > 0 &&
           directory + kTiffCount + entries * kTiffEntry + kTiffNextOffset <= file.size();
}

constexpr Signature kSignatures[] = {
    {FileKind::Png, "\x89PNG\r\n\x1A\n"sv, "PNG", hasPngEnd},
    {FileKind::Tiff, "II\x2A\0"sv, "TIFF", hasTiffDirectory},
    {FileKind::Tiff, "MM\0\x2A"sv, "TIFF", hasTiffDirectory},
    {FileKind::Exr, "\x76\x2F\x31\x01"sv, "EXR", hasExrBlocks},
    {FileKind::Dpx, "SDPX"sv, "DPX", hasDpxLength},
    {FileKind::Dpx, "XPDS"sv, "DPX", hasDpxLength},
    {FileKind::Jpeg, "\xFF\xD8\xFF"sv, "JPEG", hasJpegEnd},
};

const char* nameOf(FileKind kind) {
    const auto* row = std::find_if(std::begin(kSignatures), std::end(kSignatures),
                                   [kind](const Signature& known) { return known.kind == kind; });
    return row == std::end(kSignatures) ? "still picture" : row->name;
}

}  // namespace

std::string stillFault(FileKind kind, Bytes file) {
    const auto* row = std::find_if(
        std::begin(kSignatures), std::end(kSignatures),
        [&](const Signature& known) { return known.kind == kind && beginsWith(file, known.text); });
    if (row == std::end(kSignatures)) {
        return "is not a " + std::string(nameOf(kind)) + " file.";
    }
    return row->isComplete(file) ? "" : "is cut off: its end is missing. Copy or render it again.";
}

}  // namespace ruvex::media
