#include "tests/openfx/host_options.h"

#include <charconv>
#include <stdexcept>

#include "tests/openfx/typed_values.h"

namespace ruvex::ofxhost {
namespace {

/// Pixels of a side of the test picture.
constexpr int kLargestSide = 8192;
/// Frames before and after frame 0.
constexpr int kFarthestFrame = 100'000'000;

[[noreturn]] void refuse(const std::string& option, const std::string& value,
                         const std::string& wanted) {
    throw std::runtime_error(option + " needs " + wanted + ", not \"" + value + "\"");
}

/// Whether all of the text is a whole number.
bool readWhole(std::string_view text, int& number) {
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc{} && result.ptr == end;
}

void readSize(HostOptions& options, const std::string& value) {
    const auto cross = value.find('x');
    const std::string_view text = value;
    const auto isSide = [](int side) { return side >= 1 && side <= kLargestSide; };
    const bool good = cross != value.npos && readWhole(text.substr(0, cross), options.width) &&
                      readWhole(text.substr(cross + 1), options.height) && isSide(options.width) &&
                      isSide(options.height);
    if (good) return;
    refuse("--size", value,
           "WIDTHxHEIGHT, each from 1 to " + std::to_string(kLargestSide) + ", such as 320x240");
}

/// "A-B", "A..B", or one frame; a minus sign may stand before each number.
void readFrames(HostOptions& options, const std::string& value) {
    const auto dots = value.find("..");
    const auto dash = value.find('-', 1);
    const std::string_view text = value;
    bool good = false;
    if (dots != value.npos) {
        good = readWhole(text.substr(0, dots), options.first) &&
               readWhole(text.substr(dots + 2), options.last);
    } else if (dash != value.npos) {
        good = readWhole(text.substr(0, dash), options.first) &&
               readWhole(text.substr(dash + 1), options.last);
    } else {
        good = readWhole(text, options.first);
        options.last = options.first;
    }
    const auto isFrame = [](int frame) {
        return frame >= -kFarthestFrame && frame <= kFarthestFrame;
    };
    good = good && isFrame(options.first) && isFrame(options.last);
    if (!good) refuse("--frames", value, "the first and last frame, such as 0-9 or -5..-1");
    if (options.first > options.last) refuse("--frames", value, "a last frame after the first");
}

std::string depthNamed(const std::string& name) {
    if (name == "byte") return kOfxBitDepthByte;
    if (name == "short") return kOfxBitDepthShort;
    if (name == "float") return kOfxBitDepthFloat;
    refuse("--depth", name, "byte, short or float");
}

double scaleOf(const std::string& value) {
    const double scale = test::numberOf(value);
    if (!(scale > 0.0 && scale <= 1.0)) refuse("--scale", value, "a number above 0, at most 1");
    return scale;
}

void readOption(HostOptions& options, const std::string& name, const std::string& value) {
    if (name == "--size") {
        readSize(options, value);
    } else if (name == "--frames") {
        readFrames(options, value);
    } else if (name == "--depth") {
        options.depth = depthNamed(value);
    } else if (name == "--scale") {
        options.scale = scaleOf(value);
    } else if (name == "--output") {
        options.output = value;
    } else {
        options.picture = value;
    }
}

bool takesValue(const std::string& word) {
    return word == "--size" || word == "--frames" || word == "--depth" || word == "--scale" ||
           word == "--output" || word == "--picture";
}

void checkTogether(const HostOptions& options) {
    const bool hasPicture = !options.picture.empty();
    if (hasPicture && options.scale != 1.0) {
        throw std::runtime_error("--picture is rendered at scale 1 alone; leave out --scale");
    }
    if (options.leaves && options.width == 0 && !hasPicture) {
        throw std::runtime_error("--leave needs a frame to render: --size or --picture");
    }
}

}  // namespace

HostOptions readOptions(int argc, const char* const* argv) {
    if (argc < 2) throw std::runtime_error("usage: openfx_host BUNDLE [OPTIONS] [NAME=VALUE ...]");
    HostOptions options;
    options.bundle = argv[1];
    for (int i = 2; i < argc; ++i) {
        const std::string word = argv[i];
        const auto equals = word.find('=');
        if (word == "--leave") {
            options.leaves = true;
        } else if (takesValue(word)) {
            if (++i == argc) throw std::runtime_error(word + " needs a value");
            readOption(options, word, argv[i]);
        } else if (word.starts_with("--")) {
            throw std::runtime_error("unknown option " + word);
        } else if (equals != word.npos) {
            options.values.emplace_back(word.substr(0, equals), word.substr(equals + 1));
        } else {
            throw std::runtime_error(word + " is neither an option nor NAME=VALUE");
        }
    }
    checkTogether(options);
    return options;
}

}  // namespace ruvex::ofxhost
