#include "media/pixels/component_read.h"

#include "media/av_functions.h"
#include "media/pixels/plane_line.h"

namespace ruvex::media {
namespace {

template <typename Word>
void copyValues(const ComponentLine<Word>& line, std::span<std::uint16_t> values) {
    for (std::size_t x = 0; x < values.size(); ++x) {
        values[x] = static_cast<std::uint16_t>(line[static_cast<std::ptrdiff_t>(x)]);
    }
}

/// Of a line without anything between the values or in their words, but for bits above `mask`.
template <typename Word>
void copyWords(const std::uint8_t* line, std::uint16_t mask, std::span<std::uint16_t> values) {
    for (std::size_t x = 0; x < values.size(); ++x) {
        Word word;
        std::memcpy(&word, line + x * sizeof word, sizeof word);
        values[x] = word & mask;
    }
}

template <typename Word>
void readLine(const AVFrame& picture, const AVComponentDescriptor& layout, int y,
              std::span<std::uint16_t> values) {
    if (layout.step == sizeof(Word) && layout.shift == 0 && layout.offset == 0) {
        const auto mask = static_cast<std::uint16_t>((1 << layout.depth) - 1);
        copyWords<Word>(planeLine(picture, layout.plane, y), mask, values);
    } else {
        copyValues(ComponentLine<Word>(picture, layout, y), values);
    }
}

}  // namespace

void readComponent(const AVFrame& picture, const AVPixFmtDescriptor& format, int component, int y,
                   std::span<std::uint16_t> values) {
    const AVComponentDescriptor& layout = format.comp[component];
    if (isByte(format, layout)) {
        readLine<std::uint8_t>(picture, layout, y, values);
    } else if (isInWord(format, layout)) {
        readLine<std::uint16_t>(picture, layout, y, values);
    } else {
        // The libraries' own function reads any format, but more slowly.
        const auto* const* data = const_cast<const std::uint8_t**>(picture.data);
        av_read_image_line2(values.data(), const_cast<const std::uint8_t**>(data), picture.linesize,
                            &format, 0, y, component, static_cast<int>(values.size()), 0,
                            sizeof(std::uint16_t));
    }
}

}  // namespace ruvex::media
