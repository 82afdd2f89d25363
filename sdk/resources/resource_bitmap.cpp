#include <cstddef>

#include "sdk/resources/byte_reader.h"
#include "sdk/resources/dialog_template.h"

namespace ruvex {
namespace {

/// Fields of a bitmap's header, in the order of the file.
struct BitmapHeader {
    explicit BitmapHeader(ByteReader& reader)
        : size(reader.u32()),
          width(reader.u32()),
          height(reader.u32()),
          planes(reader.u16()),
          bitsPerPixel(reader.u16()),
          compression(reader.u32()) {
        reader.take(12);  // size of the pixels, and the resolution on both axes
        paletteColours = reader.u32();
        reader.u32();  // the number of colours that matter
    }

    bool isPlain24Bits() const {
        return size == kSize && planes == 1 && bitsPerPixel == 24 && compression == 0 &&
               paletteColours == 0;
    }

    static constexpr std::uint32_t kSize = 40;

    std::uint32_t size;
    std::uint32_t width;
    std::uint32_t height;
    std::uint16_t planes;
    std::uint16_t bitsPerPixel;
    std::uint32_t compression;
    std::uint32_t paletteColours;
};

}  // namespace

std::optional<ResourceBitmap> readBitmap(const ResourceFile& file, std::uint16_t number) {
    const auto record = file.find(ResourceType::Bitmap, number);
    if (!record) return std::nullopt;
    ByteReader reader(record->data);
    const BitmapHeader header(reader);
    if (reader.failed() || !header.isPlain24Bits()) return std::nullopt;

    // A negative height (the top row first) is a very large number here, like a negative width.
    // Comparing with what is left, before multiplying, keeps all products small.
    const std::size_t left = reader.remaining();
    if (header.width == 0 || header.width > left || header.height == 0) return std::nullopt;
    const std::size_t rowBytes = (std::size_t{header.width} * 3 + 3) / 4 * 4;
    if (header.height > left / rowBytes) return std::nullopt;
    return ResourceBitmap{static_cast<int>(header.width), static_cast<int>(header.height),
                          reader.take(rowBytes * header.height)};
}

}  // namespace ruvex
