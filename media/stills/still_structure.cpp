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

constexpr std::size_t kPngSignature = 8;
constexpr std::size_t kChunkFrame = 12;  // length, type and check sum around a chunk's data
constexpr std::size_t kDpxSizePlace = 16;

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

/// Walks the chunks from the signature to the end mark.
bool hasPngEnd(Bytes file) {
    Bytes rest = file.subspan(kPngSignature);
    while (rest.size() >= kChunkFrame) {
        const std::size_t chunk = kChunkFrame + bigEndian(rest);
        if (std::memcmp(rest.data() + 4, "IEND", 4) == 0) {
            return true;
        }
        rest = rest.subspan(std::min(chunk, rest.size()));
    }
    return false;
}

/// The last marker; other programs may have put something behind it. Within the coded picture it
/// cannot stand, but it ends a preview picture in the head.
bool hasJpegEnd(Bytes file) {
    constexpr std::array kEnd = {std::byte{0xFF}, std::byte{0xD9}};
    constexpr std::array kScan = {std::byte{0xFF}, std::byte{0xDA}};
    const auto scan = std::find_end(file.begin(), file.end(), kScan.begin(), kScan.end());
    return std::search(scan, file.end(), kEnd.begin(), kEnd.end()) != file.end();
}

/// The head holds the file's length, in the byte order that the head's first word tells. Some
/// programs leave it at all ones.
bool hasDpxLength(Bytes file) {
    if (file.size() < kDpxSizePlace + 4) {
        return false;
    }
    const std::uint32_t stored = bigEndian(file.subspan(kDpxSizePlace));
    const std::uint32_t length = beginsWith(file, "SDPX") ? stored : swapped(stored);
    return length == UINT32_MAX || length <= file.size();
}

struct Signature {
    FileKind kind;
    std::string_view text;
    const char* name;
    bool (*isWhole)(Bytes);
};

/// The directory lies behind the picture as often as before it. Where the picture's strips lie, the
/// decoder checks.
bool hasTiffDirectory(Bytes file) {
    const bool big = beginsWith(file, "MM");
    const auto number = [&](std::size_t place, std::size_t count) {
        std::size_t value = 0;
        for (std::size_t i = 0; i < count && place + count <= file.size(); ++i) {
            const std::size_t next = place + (big ? i : count - 1 - i);
            value = value << 8 | std::to_integer<std::size_t>(file[next]);
        }
        return value;
    };
    const std::size_t directory = number(4, 4);
    const std::size_t entries = number(directory, 2);
    return entries > 0 && directory + 2 + entries * 12 + 4 <= file.size();
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
    return row->isWhole(file) ? ""
                              : "is cut off: its last part is missing. Copy or render it again.";
}

}  // namespace ruvex::media
