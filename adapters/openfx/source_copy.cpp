#include "adapters/openfx/source_copy.h"

#include <algorithm>
#include <cstring>

namespace ruvex::openfx {
namespace {

using adapters::PixelRect;
using adapters::RenderedLines;
using adapters::SourcePicture;
using adapters::TargetPicture;

bool isRendered(int y, RenderedLines lines) {
    const bool even = y % 2 == 0;
    return lines == RenderedLines::All || even == (lines == RenderedLines::LowerField);
}

std::size_t bytesOf(int pixels, const adapters::PixelForm& form) {
    return static_cast<std::size_t>(pixels) * form.pixelBytes();
}

/// Copies a row from x1 to x2; what the source lacks of it becomes 0. Both may be the same memory.
void copyRow(const SourcePicture& source, const TargetPicture& target, int y, int x1, int x2) {
    const bool exists = y >= source.bounds.y1 && y < source.bounds.y2;
    const int from = std::clamp(exists ? source.bounds.x1 : x2, x1, x2);
    const int to = std::clamp(exists ? source.bounds.x2 : x2, from, x2);
    if (from < to) {
        std::memmove(target.pixel(from, y), source.pixel(from, y), bytesOf(to - from, target.form));
    }
    if (x1 < from) std::memset(target.pixel(x1, y), 0, bytesOf(from - x1, target.form));
    if (to < x2) std::memset(target.pixel(to, y), 0, bytesOf(x2 - to, target.form));
}

}  // namespace

bool copySource(const SourcePicture& source, const TargetPicture& target, const PixelRect& window,
                RenderedLines lines) {
    const auto& from = source.form;
    const auto& to = target.form;
    if (from.samples != to.samples || from.components != to.components) return false;
    const PixelRect written = intersection(window, target.bounds);
    if (written.empty()) return true;
    for (int y = written.y1; y < written.y2; ++y) {
        if (isRendered(y, lines)) copyRow(source, target, y, written.x1, written.x2);
    }
    return true;
}

}  // namespace ruvex::openfx
