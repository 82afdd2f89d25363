#include "media/video/container_end.h"

#include <optional>

#include "media/video/file_bytes.h"

namespace ruvex::media {
namespace {

/// The position after the element at `at`, which may lie beyond the file's end. Empty where the
/// elements end, or if there is none that can be understood.
using Next = std::optional<std::uint64_t> (*)(FileBytes& file, std::uint64_t at);

/// Whether the last of the elements from `at` on reaches beyond the file's end.
bool reachesBeyond(FileBytes& file, std::uint64_t at, Next next) {
    while (at < file.size()) {
        const auto end = next(file, at);
        if (!end || *end <= at) {
            return false;
        }
        at = *end;
    }
    return at > file.size();
}

/// "RIFF", the size of the rest, and the rest. A size of 0 or all ones is unknown.
std::optional<std::uint64_t> afterRiff(FileBytes& file, std::uint64_t at) {
    constexpr std::uint64_t kHeader = 8;
    constexpr std::uint64_t kUnknown = 0xFFFFFFFF;
    const std::uint64_t size = file.littleEndian(at + 4, 4);
    if (!file.holds(at, "RIFF") || size == 0 || size == kUnknown) {
        return std::nullopt;
    }
    // Some programs count the header as part of the size.
    const std::uint64_t end = at + kHeader + size;
    return end > file.size() && end - kHeader <= file.size() ? file.size() : end;
}

/// A box begins with its size and its name. Size 0 reaches to the end of the file, and 1 stands for
/// a size of 64 bits after the name.
std::optional<std::uint64_t> afterBox(FileBytes& file, std::uint64_t at) {
    constexpr std::uint64_t kHeader = 8;
    std::uint64_t size = file.bigEndian(at, 4);
    if (size == 1) {
        size = file.bigEndian(at + kHeader, 8);
    }
    const bool whole = at + kHeader <= file.size() && size >= kHeader && size <= INT64_MAX - at;
    return whole ? std::optional(at + size) : std::nullopt;
}

/// The number of bytes of an EBML number: one more than the leading zero bits of its first byte.
int ebmlLength(std::uint8_t first) {
    int length = 1;
    for (int bit = 0x80; bit > 0 && (first & bit) == 0; bit >>= 1) {
        ++length;
    }
    return length;
}

/// An element begins with its identifier and its size. Of segments and clusters without a size the
/// elements inside follow.
std::optional<std::uint64_t> afterEbml(FileBytes& file, std::uint64_t at) {
    constexpr std::uint64_t kSegment = 0x18538067;
    constexpr std::uint64_t kCluster = 0x1F43B675;
    constexpr int kLongestId = 4;
    constexpr int kLongestSize = 8;
    const int idLength = ebmlLength(file.byte(at));
    const std::uint64_t sizeAt = at + static_cast<std::uint64_t>(idLength);
    const int sizeLength = ebmlLength(file.byte(sizeAt));
    if (idLength > kLongestId || sizeLength > kLongestSize || sizeAt >= file.size()) {
        return std::nullopt;
    }
    const std::uint64_t id = file.bigEndian(at, idLength);
    const std::uint64_t mask = (std::uint64_t{1} << (7 * sizeLength)) - 1;
    const std::uint64_t size = file.bigEndian(sizeAt, sizeLength) & mask;
    const std::uint64_t begin = sizeAt + static_cast<std::uint64_t>(sizeLength);
    if (size != mask) {
        return begin + size;
    }
    return id == kSegment || id == kCluster ? std::optional(begin) : std::nullopt;
}

/// A tag: its type, the size of its data in three bytes, seven more bytes, the data, and the size
/// of the tag. The last size may be missing.
std::optional<std::uint64_t> afterFlashTag(FileBytes& file, std::uint64_t at) {
    constexpr std::uint64_t kHeader = 11;
    constexpr std::uint64_t kTrailer = 4;
    const std::uint64_t end = at + kHeader + file.bigEndian(at + 1, 3);
    return at + kHeader <= file.size() && end == file.size() ? end : end + kTrailer;
}

/// An object begins with an identifier of 16 bytes and its size. A data object of the size of its
/// header alone has an unknown one.
std::optional<std::uint64_t> afterAsfObject(FileBytes& file, std::uint64_t at) {
    constexpr std::uint64_t kIdentifier = 16;
    constexpr std::uint64_t kHeader = 24;
    constexpr std::uint64_t kDataHeader = 50;
    const std::uint64_t size = file.littleEndian(at + kIdentifier, 8);
    const bool unknown = file.holds(at, "\x36\x26\xb2\x75") && size <= kDataHeader;
    const bool possible = size >= kHeader && size <= INT64_MAX - at;
    return possible && !unknown ? std::optional(at + size) : std::nullopt;
}

/// A page: a header of 27 bytes, the last of which counts the segments, their sizes in a byte each,
/// and the segments.
std::optional<std::uint64_t> afterOggPage(FileBytes& file, std::uint64_t at) {
    constexpr std::uint64_t kHeader = 27;
    if (!file.holds(at, "OggS")) {
        return std::nullopt;
    }
    const std::uint64_t segments = file.byte(at + kHeader - 1);
    std::uint64_t end = at + kHeader + segments;
    for (std::uint64_t i = 0; i < segments; ++i) {
        end += file.byte(at + kHeader + i);
    }
    return end;
}

/// A key of 16 bytes, the size as BER (below 128 in one byte, else in as many as the lower bits of
/// the first byte say), and the value.
std::optional<std::uint64_t> afterMxfValue(FileBytes& file, std::uint64_t at) {
    constexpr std::uint64_t kKey = 16;
    constexpr int kLong = 0x80;
    const int first = file.byte(at + kKey);
    const std::uint64_t sizeAt = at + kKey + 1;
    if (!file.holds(at, "\x06\x0e\x2b\x34")) {
        return std::nullopt;
    }
    if (first < kLong) {
        return sizeAt + static_cast<std::uint64_t>(first);
    }
    const int bytes = first - kLong;
    return bytes <= 8 ? std::optional(sizeAt + static_cast<std::uint64_t>(bytes) +
                                      file.bigEndian(sizeAt, bytes))
                      : std::nullopt;
}

/// The position after blocks of up to 255 bytes, each of which begins with its size; a block of
/// size 0 is the last.
std::uint64_t afterGifData(FileBytes& file, std::uint64_t at) {
    while (at < file.size() && file.byte(at) != 0) {
        at += 1 + file.byte(at);
    }
    return at + 1;
}

/// Bytes of the colour table that a packed byte describes.
std::uint64_t gifColours(std::uint8_t packed) {
    return (packed & 0x80) != 0 ? std::uint64_t{3} << ((packed & 7) + 1) : 0;
}

/// Extensions and pictures, up to the trailer. Without a trailer the file is cut off.
bool isGifCutOff(FileBytes& file) {
    constexpr std::uint64_t kHeader = 13;
    constexpr std::uint64_t kPictureHeader = 10;
    std::uint64_t at = kHeader + gifColours(file.byte(10));
    while (at < file.size() && file.byte(at) != ';') {
        if (file.byte(at) == '!') {
            at = afterGifData(file, at + 2);
        } else if (file.byte(at) == ',') {
            const std::uint64_t colours = gifColours(file.byte(at + kPictureHeader - 1));
            at = afterGifData(file, at + kPictureHeader + colours + 1);
        } else {
            return false;
        }
    }
    return at >= file.size();
}

/// A line, then frames that are each a line and `frameBytes` of samples.
bool isY4mCutOff(FileBytes& file, std::uint64_t frameBytes) {
    constexpr std::uint64_t kLongestLine = 1024;
    const auto afterLine = [&file](std::uint64_t at) {
        const std::uint64_t limit = at + kLongestLine;
        while (at < file.size() && at < limit && file.byte(at) != '\n') {
            ++at;
        }
        return at + 1;
    };
    std::uint64_t at = afterLine(0);
    while (at < file.size()) {
        at = afterLine(at) + frameBytes;
    }
    return at > file.size();
}

struct Container {
    std::string_view format;
    Next next;
    std::uint64_t header = 0;  ///< Position of the first element.
};

constexpr Container kContainers[] = {
    {"avi", afterRiff},           {"mov,mp4,m4a,3gp,3g2,mj2", afterBox},
    {"matroska,webm", afterEbml}, {"flv", afterFlashTag, 13},
    {"asf", afterAsfObject},      {"ogg", afterOggPage},
    {"mxf", afterMxfValue},
};

}  // namespace

bool isCutOff(std::istream& stream, std::string_view format, std::uint64_t frameBytes) {
    FileBytes file(stream);
    if (format == "gif") {
        return isGifCutOff(file);
    }
    if (format == "yuv4mpegpipe") {
        return frameBytes > 0 && isY4mCutOff(file, frameBytes);
    }
    if (format == "dv") {
        return frameBytes > 0 && file.size() % frameBytes != 0;
    }
    for (const Container& container : kContainers) {
        if (format == container.format) {
            return reachesBeyond(file, container.header, container.next);
        }
    }
    return false;
}

}  // namespace ruvex::media
