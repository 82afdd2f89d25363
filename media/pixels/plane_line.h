// Lines of one plane of a picture, and the values of one component along such a line.

#pragma once

extern "C" {
#include <libavutil/frame.h>
#include <libavutil/pixdesc.h>
}

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace ruvex::media {

/// The first element of line y of a plane, as type T; y counts from the picture's top. Lines may be
/// padded, or stored bottom up. The memory is the picture's.
template <class T = std::uint8_t>
T* planeLine(const AVFrame& picture, int plane, int y) {
    return reinterpret_cast<T*>(picture.data[plane] + std::ptrdiff_t{y} * picture.linesize[plane]);
}

/// Whether each value of the component is a whole byte.
inline bool isByte(const AVPixFmtDescriptor& format, const AVComponentDescriptor& component) {
    return (format.flags & AV_PIX_FMT_FLAG_BITSTREAM) == 0 && component.depth == 8 &&
           component.shift == 0;
}

/// Whether each value of the component has 9 to 16 bits and lies within one 16-bit word in the
/// processor's byte order.
inline bool isInWord(const AVPixFmtDescriptor& format, const AVComponentDescriptor& component) {
    const bool bigEndian = (format.flags & AV_PIX_FMT_FLAG_BE) != 0;
    return (format.flags & AV_PIX_FMT_FLAG_BITSTREAM) == 0 && component.depth > 8 &&
           component.depth + component.shift <= 16 &&
           bigEndian == (std::endian::native == std::endian::big);
}

/// The values of one component along line `y` (from the top) of a picture, by column. `Word` is
/// std::uint8_t where isByte, std::uint16_t where isInWord; words need no alignment. The picture
/// must outlive it.
template <typename Word>
class ComponentLine {
public:
    ComponentLine(const AVFrame& picture, const AVComponentDescriptor& component, int y)
        : first_(planeLine(picture, component.plane, y) + component.offset),
          step_(component.step),
          shift_(component.shift),
          mask_((1 << component.depth) - 1) {}

    int operator[](std::ptrdiff_t x) const {
        Word word;
        std::memcpy(&word, first_ + x * step_, sizeof word);
        return word >> shift_ & mask_;
    }

private:
    const std::uint8_t* first_;
    std::ptrdiff_t step_;  ///< Bytes from one value to the next.
    int shift_;
    int mask_;
};

}  // namespace ruvex::media
