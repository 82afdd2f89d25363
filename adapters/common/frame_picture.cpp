#include "adapters/common/frame_picture.h"

#include <cstdint>
#include <cstring>
#include <limits>

#include "adapters/common/row_convert.h"

namespace ruvex::adapters {
namespace {

/// The lowest line from `y` on.
int firstLine(int y, RenderedLines lines) {
    if (lines == RenderedLines::All) return y;
    const int parity = lines == RenderedLines::UpperField ? 1 : 0;
    const bool skips = (y & 1) != parity && y != std::numeric_limits<int>::max();
    return skips ? y + 1 : y;
}

int stepOf(RenderedLines lines) {
    return lines == RenderedLines::All ? 1 : 2;
}

/// Calls `use` with the components of an image, at the depth of its format.
template <class Use>
void withComponents(CDSMemoryImage& image, Use use) {
    if (image.format() == MFIF_RGBA_RAW_32) {
        use(reinterpret_cast<std::uint8_t*>(image.bytes()));
    } else {
        use(reinterpret_cast<std::int16_t*>(image.bytes()));
    }
}

/// The position of an image's pixel among its components.
std::ptrdiff_t componentOf(const CDSMemoryImage& image, int x, int row) {
    return (std::ptrdiff_t{row} * image.width() + x) * kImageChannels;
}

/// Sets the pixels from x1 up to x2 of row `y` to 0.
void clearPixels(const TargetPicture& target, int x1, int x2, int y) {
    if (x1 >= x2) return;
    const auto count = static_cast<std::size_t>(std::int64_t{x2} - x1);
    std::memset(target.pixel(x1, y), 0, count * target.form.pixelBytes());
}

/// Calls `use` with the y of each row that is written.
template <class Use>
void forEachRow(const WrittenRows& written, Use use) {
    if (written.area.empty()) return;
    for (std::int64_t y = written.area.y1; y < written.area.y2; y += written.step) {
        use(static_cast<int>(y));
    }
}

/// Reads a row of the image from row `y` of a source, which has the columns of `common`.
template <class Component>
void readColumns(const SourcePicture& source, const PixelRect& common, int y, int frameX1,
                 Component* imageRow) {
    if (y < common.y1 || y >= common.y2) return;
    readRow(source.pixel(common.x1, y), source.form, common.width(),
            imageRow + std::ptrdiff_t{common.x1 - frameX1} * kImageChannels);
}

}  // namespace

FrameRows rowsOf(const PixelRect& frame, RenderedLines lines) {
    const int first = firstLine(frame.y1, lines);
    const int step = stepOf(lines);
    const std::int64_t height = std::int64_t{frame.y2} - first;
    return {frame, first, step, static_cast<int>((height + step - 1) / step)};
}

WrittenRows writtenRows(const PixelRect& window, RenderedLines lines, const PixelRect& bounds) {
    PixelRect area = intersection(window, bounds);
    area.y1 = firstLine(area.y1, lines);
    return {area, stepOf(lines)};
}

bool readPicture(const SourcePicture& source, const FrameRows& rows, CDSMemoryImage& image) {
    const PixelRect common = intersection(source.bounds, rows.frame);
    if (common.empty()) return false;
    bool opaque = true;
    withComponents(image, [&](auto* components) {
        for (int row = 0; row < rows.count; ++row) {
            auto* const imageRow = components + componentOf(image, 0, row);
            readColumns(source, common, rows.yOf(row), rows.frame.x1, imageRow);
            opaque = opaque && isOpaque(imageRow, image.width());
        }
    });
    return opaque;
}

void writePicture(CDSMemoryImage& image, const FrameRows& rows, const WrittenRows& written,
                  bool opaque, const TargetPicture& target) {
    const PixelRect common = intersection(written.area, rows.frame);
    if (common.empty()) return clearPicture(written, target);
    withComponents(image, [&](auto* components) {
        forEachRow(written, [&](int y) {
            const bool inFrame = y >= common.y1 && y < common.y2;
            if (!inFrame) return clearPixels(target, written.area.x1, written.area.x2, y);
            auto* const first = components + componentOf(image, common.x1 - rows.frame.x1,
                                                         (y - rows.first) / rows.step);
            if (opaque) makeOpaque(first, common.width());
            clearPixels(target, written.area.x1, common.x1, y);
            writeRow(first, target.form, common.width(), target.pixel(common.x1, y));
            clearPixels(target, common.x2, written.area.x2, y);
        });
    });
}

void clearPicture(const WrittenRows& written, const TargetPicture& target) {
    forEachRow(written, [&](int y) { clearPixels(target, written.area.x1, written.area.x2, y); });
}

}  // namespace ruvex::adapters
