// An image of the host's own that serves render after render.

#pragma once

#include "runtime/project.h"
#include "sdk/com/com_ptr.h"
#include "sdk/images/memory_image.h"

namespace ruvex::runtime {

/// Keeps an image, so that pictures of one size need no new memory, which takes a system longer to
/// provide than a picture to copy. One thread at a time.
class KeptImage {
public:
    /// An image with the world size of the project frame and with any pixels: the one before, if it
    /// fits and nobody holds it, else a new one. Throws as makeImage does.
    const ComPtr<CDSMemoryImage>& take(const Project& project, int width, int height,
                                       const GUID& format);

private:
    ComPtr<CDSMemoryImage> image_;
};

}  // namespace ruvex::runtime
