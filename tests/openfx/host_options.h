// The command line of openfx_host.

#pragma once

#include <string>
#include <utility>
#include <vector>

#include "adapters/openfx/ofx_api.h"

namespace ruvex::ofxhost {

/// What openfx_host.cpp describes.
struct HostOptions {
    std::string bundle;
    int width = 0;
    int height = 0;
    std::string picture;
    int first = 0;
    int last = 0;
    std::string depth = kOfxBitDepthByte;
    double scale = 1.0;
    std::string output;
    std::vector<std::pair<std::string, std::string>> values;
};

/// Throws std::runtime_error for words that are not understood.
HostOptions readOptions(int argc, char** argv);

}  // namespace ruvex::ofxhost
