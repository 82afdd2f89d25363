#include "adapters/common/picture_rows.h"

#include <cstring>

#include "adapters/common/row_convert.h"

namespace ruvex::adapters {
namespace {

constexpr PixelForm rgba8(HostAlpha alpha) {
    return {SampleType::Bits8, Components::Rgba, alpha};
}

}  // namespace

void readStraight(const SourceRows& source, std::uint8_t* pixels) {
    for (int y = 0; y < source.height; ++y, pixels += source.rowBytes()) {
        readRow(reinterpret_cast<const std::byte*>(source.row(y)), rgba8(source.alpha),
                source.width, pixels);
    }
}

void writeStraight(const std::uint8_t* pixels, const TargetRows& target) {
    for (int y = 0; y < target.height; ++y, pixels += target.rowBytes()) {
        writeRow(pixels, rgba8(target.alpha), target.width,
                 reinterpret_cast<std::byte*>(target.row(y)));
    }
}

void copyPicture(const SourceRows& source, const TargetRows& target) {
    for (int y = 0; y < target.height; ++y) {
        std::memmove(target.row(y), source.row(y), target.rowBytes());
    }
}

void takeAlpha(const SourceRows& source, std::uint8_t* pixels) {
    for (int y = 0; y < source.height; ++y) {
        const std::uint8_t* row = source.row(y);
        for (int x = 0; x < source.width; ++x, row += kPixelBytes, pixels += kPixelBytes) {
            pixels[kAlphaChannel] = row[kAlphaChannel];
        }
    }
}

}  // namespace ruvex::adapters
