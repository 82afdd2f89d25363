// Images for renders.

#pragma once

#include "runtime/project.h"
#include "sdk/com/com_ptr.h"
#include "sdk/images/memory_image.h"

namespace ruvex::runtime {

/// The world size of an image that fills the project's frame.
DSFloatPair worldSizeOf(const Project& project);

/// Throws Error for an unknown format and for a size below 1.
void checkImage(int width, int height, const GUID& format);

/// Throws OutOfMemory for an image that was not made.
void checkMade(const IDSImage* image, int width, int height);

/// Whether there is an image, and it has this size and format.
bool isOfForm(const CDSPixelImage* image, int width, int height, const GUID& format);

/// Whether there is an image, and somebody holds it beside the caller, who has one reference.
bool isShared(CDSPixelImage* image);

/// A new image, all bytes 0. Throws Error for an unknown format and for a size below 1, OutOfMemory
/// if there is not enough memory.
ComPtr<CDSMemoryImage> makeImage(int width, int height, const GUID& format);

/// The same with the world size of the project frame, which it fills at any number of pixels.
ComPtr<CDSMemoryImage> makeProjectImage(const Project& project, int width, int height,
                                        const GUID& format);

/// A copy: pixels, world size and world origin. Throws as makeImage does, and StatusError for an
/// image that is not ready.
ComPtr<CDSMemoryImage> copyImage(IDSImage& image);

}  // namespace ruvex::runtime
