#include "media/pixels/component_read.h"

#include "media/av_functions.h"
#include "media/pixels/plane_line.h"

namespace ruvex::media {
namespace {

template <typename Word>
void copyValues(const ComponentLine<Word>& line, std::span<std::uint16_t> values) {
    if (line.isTight()) {
        // With a known step the compiler vectorises the loop.
        for (std::size_t x = 0; x < values.size(); ++x) {
            values[x] = static_cast<std::uint16_t>(line.tightValue(static_cast<std::ptrdiff_t>(x)));
        }
        return;
    }
    for (std::size_t x = 0; x < values.size(); ++x) {
        values[x] = static_cast<std::uint16_t>(line[static_cast<std::ptrdiff_t>(x)]);
    }
}

}  // namespace

void readComponent(const AVFrame& picture, const AVPixFmtDescriptor& format, int component, int y,
                   std::span<std::uint16_t> values) {
    const AVComponentDescriptor& layout = format.comp[component];
    if (isByte(format, layout)) {
        copyValues(ComponentLine<std::uint8_t>(picture, layout, y), values);
    } else if (isInWord(format, layout)) {
        copyValues(ComponentLine<std::uint16_t>(picture, layout, y), values);
    } else {
        // The libraries' own function reads any format, but more slowly.
        const auto* const* data = const_cast<const std::uint8_t**>(picture.data);
        av_read_image_line2(values.data(), const_cast<const std::uint8_t**>(data), picture.linesize,
                            &format, 0, y, component, static_cast<int>(values.size()), 0,
                            sizeof(std::uint16_t));
    }
}

}  // namespace ruvex::media
