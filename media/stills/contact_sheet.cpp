#include "media/stills/contact_sheet.h"

#include <algorithm>
#include <cstring>

#include "media/frame.h"
#include "media/stills/text_label.h"

namespace ruvex::media {
namespace {

// Pixels. The longest preset name in the smallest font fits the narrowest cell.
constexpr int kNarrowestCell = 160;
constexpr int kSmallestFont = 14;
constexpr int kSmallestGap = 4;
/// The width of a cell, as a multiple of the font size.
constexpr int kFontsPerCell = 20;
/// The width of a picture, as a multiple of the gap.
constexpr int kGapsPerPicture = 40;
/// Of the sheet, as LabelStyle::ground.
constexpr int kGroundGrey = 0x18;

int fontSizeOf(FrameSize cell) {
    return std::max(kSmallestFont, cell.width / kFontsPerCell);
}

/// Copies the picture so that its top left corner is at (left, top) of the sheet.
void paste(const Frame& picture, int left, int top, Frame& sheet) {
    for (int line = 0; line < picture.height(); ++line) {
        std::byte* to = sheet.row(chainRowOfLine(top + line, sheet.height()));
        std::memcpy(to + static_cast<std::size_t>(left) * bytesPerPixel(Depth::Bits8),
                    picture.row(chainRowOfLine(line, picture.height())), picture.rowBytes());
    }
}

Frame emptySheet(FrameSize size) {
    Frame sheet(size, Depth::Bits8);
    std::ranges::fill(sheet.bytes(), static_cast<std::byte>(kGroundGrey));
    return sheet;
}

void makeOpaque(Frame& sheet) {
    for (std::size_t i = kAlpha; i < sheet.bytes().size(); i += kChannels) {
        sheet.bytes()[i] = std::byte{kWhite8};
    }
}

}  // namespace

SheetLayout::SheetLayout(FrameSize picture, int count, int columnCount)
    : columns(columnCount),
      gap(std::max(kSmallestGap, picture.width / kGapsPerPicture)),
      cell{std::max(picture.width, kNarrowestCell), picture.height},
      labelHeight(2 * fontSizeOf(cell)) {
    cell.height += labelHeight;
    const int rows = (count + columns - 1) / columns;
    sheet = {gap + columns * (cell.width + gap), gap + rows * (cell.height + gap)};
}

int SheetLayout::left(int index, FrameSize picture) const {
    return gap + index % columns * (cell.width + gap) + (cell.width - picture.width) / 2;
}

int SheetLayout::top(int index) const {
    return gap + index / columns * (cell.height + gap);
}

Frame contactSheet(std::span<const LabelledPicture> pictures, int columns) {
    const FrameSize size = pictures.front().picture.size();
    const SheetLayout layout(size, static_cast<int>(pictures.size()), columns);
    Frame sheet = emptySheet(layout.sheet);
    const FrameSize labelSize{layout.cell.width, layout.labelHeight};
    for (int i = 0; i < static_cast<int>(pictures.size()); ++i) {
        const LabelledPicture& one = pictures[static_cast<std::size_t>(i)];
        paste(one.picture, layout.left(i, size), layout.top(i), sheet);
        paste(textLabel(one.label, labelSize, {.fontSize = fontSizeOf(layout.cell)}),
              layout.left(i, labelSize), layout.top(i) + size.height, sheet);
    }
    makeOpaque(sheet);
    return sheet;
}

}  // namespace ruvex::media
