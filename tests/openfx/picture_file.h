// Pictures in simple files, for programs that have no library for stills.

#pragma once

#include <filesystem>

#include "tests/openfx/host/raster.h"

namespace ruvex::ofxhost::test {

/// Reads a binary PPM file of 8 bits, without comments and with sides of up to 8192 pixels, as
/// opaque RGBA in a depth, from (0, 0). Throws std::runtime_error.
Raster readPpm(const std::filesystem::path& file, const std::string& depth);

/// Writes RGBA or RGB of 8 or 16 bits as PAM; the samples of floats are cut to 0 to 1 and written
/// with 16 bits. Throws std::runtime_error.
void writePam(const std::filesystem::path& file, const Raster& raster);

}  // namespace ruvex::ofxhost::test
