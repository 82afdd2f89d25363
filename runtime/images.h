// Making pictures for renders.

#pragma once

#include "runtime/project.h"
#include "sdk/com/com_ptr.h"
#include "sdk/images/memory_image.h"

namespace ruvex::runtime {

/// A new image of zeroes. Throws Error for an unknown format, a size below 1, or when memory is
/// out.
ComPtr<CDSMemoryImage> makeImage(int width, int height, const GUID& format);

/// The same, filling the project's frame: its world size is the project's, whatever its pixels.
ComPtr<CDSMemoryImage> makeProjectImage(const Project& project, int width, int height,
                                        const GUID& format);

/// A new image with the pixels, world size and world origin of another; one of the two may be
/// written into while the other is kept. Throws as makeImage does, and when `image` is not ready.
ComPtr<CDSMemoryImage> copyImage(IDSImage& image);

}  // namespace ruvex::runtime
