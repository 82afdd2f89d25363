#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>
#include <string_view>

#include "media/stills/still_structure.h"

namespace ruvex::media {
namespace {

static_assert(std::endian::native == std::endian::little, "numbers in EXR files are little-endian");

using Bytes = std::span<const std::byte>;

/// The flag of a multi-part file in the version field.
constexpr std::uint32_t kMultiPart = 0x1000;
/// The bits of the tile mode that say how many resolution levels there are; 0 is one level.
constexpr std::uint8_t kLevelMode = 0xF;
// A block begins with 32-bit words that say where it lies (the line, or tile x, tile y, level x and
// level y), followed by its size in bytes.
constexpr std::size_t kWord = 4;
constexpr std::size_t kLineBlockWords = 1;
constexpr std::size_t kTileWords = 4;

/// Reads values one after the other. Past the end, all values are 0 and `good` is false.
class Cursor {
public:
    explicit Cursor(Bytes rest) : rest_(rest) {}

    bool good() const { return good_; }

    template <class T>
    T take() {
        T value{};
        const Bytes bytes = takeBytes(sizeof(T));
        if (bytes.size() == sizeof(T)) {
            std::memcpy(&value, bytes.data(), sizeof(T));
        }
        return value;
    }

    Bytes takeBytes(std::size_t count) {
        good_ = good_ && count <= rest_.size();
        const Bytes taken = good_ ? rest_.first(count) : Bytes();
        rest_ = rest_.subspan(taken.size());
        return taken;
    }

    /// The text up to the next zero byte, which is skipped.
    std::string_view takeText() {
        const auto end = std::find(rest_.begin(), rest_.end(), std::byte{0});
        const auto length = static_cast<std::size_t>(end - rest_.begin());
        const Bytes text = takeBytes(length + 1).first(good_ ? length : 0);
        return {reinterpret_cast<const char*>(text.data()), text.size()};
    }

private:
    Bytes rest_;
    bool good_ = true;
};

/// The attributes of the header that are needed to count blocks.
struct Header {
    std::int32_t window[4] = {};  ///< Left, top, right and bottom of the data window, inclusive.
    std::uint8_t compression = 0;
    std::optional<std::uint32_t> tileWidth;  ///< Empty for a file of lines.
    std::uint32_t tileHeight = 0;
    std::uint8_t tileMode = 0;
};

void readAttribute(std::string_view name, Bytes value, Header& header) {
    Cursor cursor(value);
    if (name == "dataWindow") {
        for (std::int32_t& side : header.window) {
            side = cursor.take<std::int32_t>();
        }
    } else if (name == "compression") {
        header.compression = cursor.take<std::uint8_t>();
    } else if (name == "tiles") {
        header.tileWidth = cursor.take<std::uint32_t>();
        header.tileHeight = cursor.take<std::uint32_t>();
        header.tileMode = cursor.take<std::uint8_t>();
    }
}

/// Lines of a block, which are compressed together.
std::int64_t linesOfBlock(std::uint8_t compression) {
    // By compression: none, RLE, ZIPS, ZIP, PIZ, PXR24, B44, B44A, DWAA, DWAB.
    constexpr std::int64_t kLines[] = {1, 1, 1, 16, 32, 16, 32, 32, 32, 256};
    return compression < std::size(kLines) ? kLines[compression] : 1;
}

/// How many parts of size `part` cover `whole`; 0 if `part` is 0.
std::int64_t parts(std::int64_t whole, std::int64_t part) {
    return part > 0 ? (whole + part - 1) / part : 0;
}

/// The product of two numbers from 0 up, clamped to the type's largest value.
std::int64_t clampedProduct(std::int64_t a, std::int64_t b) {
    constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
    return b > 0 && a > kMost / b ? kMost : a * b;
}

/// The number of blocks; 0 for an empty data window.
std::int64_t blockCount(const Header& header) {
    const std::int64_t width = std::int64_t{header.window[2]} - header.window[0] + 1;
    const std::int64_t height = std::int64_t{header.window[3]} - header.window[1] + 1;
    if (width < 1 || height < 1) {
        return 0;
    }
    if (!header.tileWidth) {
        return parts(height, linesOfBlock(header.compression));
    }
    return clampedProduct(parts(width, *header.tileWidth), parts(height, header.tileHeight));
}

/// Whether the block at `offset`, which begins with `words` words before its size, lies within the
/// file.
bool isBlockComplete(Bytes file, std::uint64_t offset, std::size_t words) {
    if (offset > file.size()) {
        return false;
    }
    Cursor block(file.subspan(static_cast<std::size_t>(offset)));
    block.takeBytes(words * kWord);
    const auto size = block.take<std::uint32_t>();
    block.takeBytes(size);
    return block.good();
}

}  // namespace

bool hasExrBlocks(Bytes file) {
    Cursor cursor(file);
    cursor.take<std::uint32_t>();  // the signature
    const auto version = cursor.take<std::uint32_t>();
    Header header;
    for (auto name = cursor.takeText(); !name.empty(); name = cursor.takeText()) {
        cursor.takeText();  // the attribute's type
        readAttribute(name, cursor.takeBytes(cursor.take<std::uint32_t>()), header);
    }
    if ((version & kMultiPart) != 0 || (header.tileWidth && (header.tileMode & kLevelMode) != 0)) {
        return cursor.good();
    }
    const std::size_t words = header.tileWidth ? kTileWords : kLineBlockWords;
    const std::int64_t count = blockCount(header);
    for (std::int64_t i = 0; i < count && cursor.good(); ++i) {
        if (!isBlockComplete(file, cursor.take<std::uint64_t>(), words)) {
            return false;
        }
    }
    return cursor.good() && count > 0;
}

}  // namespace ruvex::media
