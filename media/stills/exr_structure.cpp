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

static_assert(std::endian::native == std::endian::little, "the file's words are read as they lie");

using Bytes = std::span<const std::byte>;

constexpr std::uint32_t kSeveralParts = 0x1000;
constexpr std::size_t kWord = 4;

/// Takes values off the front of the file; once it is used up, all of them are 0.
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

    /// Up to the next zero byte, which is taken too.
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

struct Head {
    std::int32_t window[4] = {};  ///< Left, top, right, bottom, all inclusive.
    std::uint8_t compression = 0;
    std::optional<std::uint32_t> tileWidth;
    std::uint32_t tileHeight = 0;
    std::uint8_t tileMode = 0;
};

void readAttribute(std::string_view name, Bytes value, Head& head) {
    Cursor cursor(value);
    if (name == "dataWindow") {
        for (std::int32_t& side : head.window) {
            side = cursor.take<std::int32_t>();
        }
    } else if (name == "compression") {
        head.compression = cursor.take<std::uint8_t>();
    } else if (name == "tiles") {
        head.tileWidth = cursor.take<std::uint32_t>();
        head.tileHeight = cursor.take<std::uint32_t>();
        head.tileMode = cursor.take<std::uint8_t>();
    }
}

/// Lines that are packed together, by the number of the way of packing.
std::int64_t linesOfBlock(std::uint8_t compression) {
    constexpr std::int64_t kLines[] = {1, 1, 1, 16, 32, 16, 32, 32, 32, 256};
    return compression < std::size(kLines) ? kLines[compression] : 1;
}

std::int64_t parts(std::int64_t whole, std::int64_t part) {
    return part > 0 ? (whole + part - 1) / part : 0;
}

/// The product, held to what the type holds: no file has as many blocks. Both from 0 up.
std::int64_t heldProduct(std::int64_t a, std::int64_t b) {
    constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
    return b > 0 && a > kMost / b ? kMost : a * b;
}

/// How many blocks there are; 0 for a picture without pixels.
std::int64_t blockCount(const Head& head) {
    const std::int64_t width = std::int64_t{head.window[2]} - head.window[0] + 1;
    const std::int64_t height = std::int64_t{head.window[3]} - head.window[1] + 1;
    if (width < 1 || height < 1) {
        return 0;
    }
    if (!head.tileWidth) {
        return parts(height, linesOfBlock(head.compression));
    }
    return heldProduct(parts(width, *head.tileWidth), parts(height, head.tileHeight));
}

/// A block's place, then its size, then as many bytes.
bool blockIsThere(Bytes file, std::uint64_t place, std::size_t words) {
    if (place > file.size()) {
        return false;
    }
    Cursor block(file.subspan(static_cast<std::size_t>(place)));
    block.takeBytes(words * kWord);
    const auto size = block.take<std::uint32_t>();
    block.takeBytes(size);
    return block.good();
}

}  // namespace

bool hasExrBlocks(Bytes file) {
    Cursor cursor(file);
    cursor.take<std::uint32_t>();
    const auto version = cursor.take<std::uint32_t>();
    Head head;
    for (auto name = cursor.takeText(); !name.empty(); name = cursor.takeText()) {
        cursor.takeText();
        readAttribute(name, cursor.takeBytes(cursor.take<std::uint32_t>()), head);
    }
    if ((version & kSeveralParts) != 0 || (head.tileWidth && (head.tileMode & 0xF) != 0)) {
        return cursor.good();
    }
    const std::size_t wordsOfPlace = head.tileWidth ? 4 : 1;
    const std::int64_t count = blockCount(head);
    for (std::int64_t i = 0; i < count && cursor.good(); ++i) {
        if (!blockIsThere(file, cursor.take<std::uint64_t>(), wordsOfPlace)) {
            return false;
        }
    }
    return cursor.good() && count > 0;
}

}  // namespace ruvex::media
