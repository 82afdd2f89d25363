// The command line of openfx_host.

#pragma once

#include <string>
#include <utility>
#include <vector>

#include "adapters/openfx/ofx_api.h"

namespace ruvex::ofxhost {

struct HostOptions {
    std::string bundle;  ///< The folder of a bundle, or an .ofx file.
    int width = 0;       ///< Of the test picture, in pixels, up to 8192; 0 without --size.
    int height = 0;
    std::string picture;  ///< A PPM file; empty for the test picture.
    int first = 0;        ///< Frames, both inclusive.
    int last = 0;
    std::string depth = kOfxBitDepthByte;
    double scale = 1.0;   ///< Render scale, above 0 and at most 1; 1 with a picture.
    std::string output;   ///< The folder for frames; empty for none.
    bool leaves = false;  ///< Whether the program exits with the instance alive and all loaded.
    std::vector<std::pair<std::string, std::string>> values;  ///< Names and values of parameters.
};

/// Throws std::runtime_error for unknown words, values out of range, and options that exclude each
/// other.
HostOptions readOptions(int argc, const char* const* argv);

}  // namespace ruvex::ofxhost
