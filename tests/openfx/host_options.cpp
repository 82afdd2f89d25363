#include "tests/openfx/host_options.h"

#include <stdexcept>
#include <tuple>

#include "tests/openfx/typed_values.h"

namespace ruvex::ofxhost {
namespace {

using test::numberOf;
using test::splitAt;

std::pair<int, int> pairOf(const std::string& text, char separator) {
    const auto parts = splitAt(text, separator);
    if (parts.empty()) throw std::runtime_error("empty value");
    return {static_cast<int>(numberOf(parts.front())), static_cast<int>(numberOf(parts.back()))};
}

std::string depthNamed(const std::string& name) {
    if (name == "byte") return kOfxBitDepthByte;
    if (name == "short") return kOfxBitDepthShort;
    if (name == "float") return kOfxBitDepthFloat;
    throw std::runtime_error("unknown depth " + name);
}

void readOption(HostOptions& options, const std::string& name, const std::string& value) {
    if (name == "--size") {
        std::tie(options.width, options.height) = pairOf(value, 'x');
    } else if (name == "--frames") {
        std::tie(options.first, options.last) = pairOf(value, '-');
    } else if (name == "--depth") {
        options.depth = depthNamed(value);
    } else if (name == "--scale") {
        options.scale = numberOf(value);
    } else if (name == "--output") {
        options.output = value;
    } else if (name == "--picture") {
        options.picture = value;
    } else {
        throw std::runtime_error("unknown option " + name);
    }
}

}  // namespace

HostOptions readOptions(int argc, char** argv) {
    if (argc < 2) throw std::runtime_error("usage: openfx_host BUNDLE [OPTIONS] [NAME=VALUE ...]");
    HostOptions options;
    options.bundle = argv[1];
    for (int i = 2; i < argc; ++i) {
        const std::string word = argv[i];
        const auto equals = word.find('=');
        if (word == "--leave") {
            options.leaves = true;
        } else if (word.starts_with("--") && i + 1 < argc) {
            readOption(options, word, argv[++i]);
        } else if (equals != word.npos) {
            options.values.emplace_back(word.substr(0, equals), word.substr(equals + 1));
        } else {
            throw std::runtime_error("not understood: " + word);
        }
    }
    return options;
}

}  // namespace ruvex::ofxhost
