// Copying the source where the effect cannot render.

#pragma once

#include "adapters/common/picture_effect.h"

namespace ruvex::openfx {

/// Copies the lines of the window; pixels that the source lacks become 0. False, with nothing
/// copied, if the pixels of both have not the same depth and components.
bool copySource(const adapters::SourcePicture& source, const adapters::TargetPicture& target,
                const adapters::PixelRect& window, adapters::RenderedLines lines);

}  // namespace ruvex::openfx
