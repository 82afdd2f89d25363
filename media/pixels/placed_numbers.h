// Components of pictures that can be read where they stand.

#pragma once

extern "C" {
#include <libavutil/frame.h>
#include <libavutil/pixdesc.h>
}

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "media/pixels/plane_line.h"

namespace ruvex::media {

/// Whether each number of the component is a byte of its own.
inline bool isByte(const AVPixFmtDescriptor& format, const AVComponentDescriptor& place) {
    return (format.flags & AV_PIX_FMT_FLAG_BITSTREAM) == 0 && place.depth == 8 && place.shift == 0;
}

/// Whether each number is of 9 bits or more within a word of 16, in the processor's own order.
inline bool isInWord(const AVPixFmtDescriptor& format, const AVComponentDescriptor& place) {
    const bool bigEndian = (format.flags & AV_PIX_FMT_FLAG_BE) != 0;
    return (format.flags & AV_PIX_FMT_FLAG_BITSTREAM) == 0 && place.depth > 8 &&
           place.depth + place.shift <= 16 &&
           bigEndian == (std::endian::native == std::endian::big);
}

/// One component along line `y` (from the top) of a picture, by column: bytes where isByte, 16-bit
/// words, also at odd addresses, where isInWord.
template <typename Word>
class PlacedNumbers {
public:
    PlacedNumbers(const AVFrame& picture, const AVComponentDescriptor& place, int y)
        : first_(planeLine(picture, place.plane, y) + place.offset),
          step_(place.step),
          shift_(place.shift),
          mask_((1 << place.depth) - 1) {}

    int operator[](std::ptrdiff_t x) const {
        Word word;
        std::memcpy(&word, first_ + x * step_, sizeof word);
        return word >> shift_ & mask_;
    }

private:
    const std::uint8_t* first_;
    std::ptrdiff_t step_;
    int shift_;
    int mask_;
};

}  // namespace ruvex::media
