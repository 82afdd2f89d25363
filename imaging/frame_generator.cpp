#include "imaging/frame_generator.h"

#include <algorithm>
#include <cstring>

namespace ruvex {

template <class P>
void ColouredFrameGenerator<P>::work(VxTexture<P>* target) {
    const RowLoop loop = this->rowLoop();
    const P* pattern = nullptr;
    forEachRow(loop, this->interrupt, [&](std::int32_t y) {
        P* row = target->writeAt(loop.x0, y);
        const std::int32_t width = loop.x1 - loop.x0;
        const auto bytes = static_cast<std::size_t>(width) * sizeof(P);
        if (zero) {
            std::memset(static_cast<void*>(row), 0, bytes);
        } else if (pattern) {
            std::memcpy(row, pattern, bytes);
        } else {
            std::fill_n(row, width, colour);
            pattern = row;
        }
    });
}

template class ColouredFrameGenerator<Rgba8>;
template class ColouredFrameGenerator<RgbaS214>;

}  // namespace ruvex
