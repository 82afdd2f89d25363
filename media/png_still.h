// PNG pictures of 1 to 16 bits a component.

#pragma once

#include <filesystem>

#include "media/frame.h"
#include "media/rational.h"

namespace ruvex::media {

/// A decoded PNG.
struct PngStill {
    Frame frame;  ///< S2.14 if the file has over 8 bits a component.
    bool hasAlpha = false;
    Rational pixelAspect{1, 1};  ///< Width of a pixel over its height.
};

/// Throws MediaError on a file that is missing, cut off, damaged or not a PNG.
PngStill readPng(const std::filesystem::path& file);

/// Writes 8 or 16 bits a component by the frame's depth, alpha always; complete or not at all.
/// S2.14 is held to black and white. Throws MediaError.
void writePng(const std::filesystem::path& file, const Frame& frame, const Rational& pixelAspect);

}  // namespace ruvex::media
