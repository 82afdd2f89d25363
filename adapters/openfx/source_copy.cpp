#include "adapters/openfx/source_copy.h"

#include <cstring>

#include "adapters/openfx/regions.h"

namespace ruvex::openfx {
namespace {

using adapters::PixelRect;
using adapters::RenderedLines;

bool isRendered(int y, RenderedLines lines) {
    const bool even = y % 2 == 0;
    return lines == RenderedLines::All || even == (lines == RenderedLines::LowerField);
}

/// The bytes from x1 to x2 of a row.
template <class Byte>
Byte* bytesAt(const adapters::HostPicture<Byte>& picture, int x, int y) {
    const auto left = static_cast<std::size_t>(x - picture.bounds.x1);
    return picture.row(y) + left * picture.form.pixelBytes();
}

}  // namespace

bool copySource(const adapters::SourcePicture& source, const adapters::TargetPicture& target,
                const PixelRect& window, RenderedLines lines) {
    const auto& from = source.form;
    const auto& to = target.form;
    if (from.samples != to.samples || from.components != to.components) return false;
    const PixelRect written = intersection(window, target.bounds);
    if (written.empty()) return true;
    const PixelRect both = intersection(written, source.bounds);
    const auto bytesOf = [&](int pixels) {
        return static_cast<std::size_t>(pixels) * to.pixelBytes();
    };
    for (int y = written.y1; y < written.y2; ++y) {
        if (!isRendered(y, lines)) continue;
        std::memset(bytesAt(target, written.x1, y), 0, bytesOf(written.width()));
        if (both.empty() || y < both.y1 || y >= both.y2) continue;
        std::memcpy(bytesAt(target, both.x1, y), bytesAt(source, both.x1, y),
                    bytesOf(both.width()));
    }
    return true;
}

}  // namespace ruvex::openfx
