// Draws a frame as the viewer shows it: the picture through the effect, and the crop box over it.
// Around the picture there is a margin, as a viewer has it, so that lines at the border are seen.
//
//   overlay_picture MODULE PICTURE RESULT [--set LABEL=VALUE]... [--pen X Y [--press [--to X Y]]]
//
// PICTURE and RESULT are stills. The pen's place is in percent of the picture, from the left and
// from the bottom. --press: the pen is down; --to: and was moved there.

#include <cstring>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "host/base/class_ids.h"
#include "media/frame_reader.h"
#include "media/frame_writer.h"
#include "parameters/parameter_table.h"
#include "parameters/parameter_text.h"
#include "runtime/editor.h"
#include "runtime/error.h"
#include "runtime/headless_surface.h"
#include "runtime/images.h"
#include "runtime/viewer.h"

namespace ruvex {
namespace {

constexpr int kMargin = 12;
constexpr float kMarginGrey = 0.25f;
constexpr LONG kMainButton = 1;

struct Place {
    double x, y;  // percent
};

struct Arguments {
    std::string module, picture, result;
    std::vector<std::string> settings;
    std::optional<Place> pen, target;
    bool press = false;
};

class UsageError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

Place placeAt(const std::vector<std::string>& words, std::size_t index) {
    if (index + 1 >= words.size()) throw UsageError("a place has two numbers");
    try {
        return {std::stod(words[index]), std::stod(words[index + 1])};
    } catch (const std::exception&) {
        throw UsageError(words[index] + " " + words[index + 1] + " is no place");
    }
}

Arguments parse(const std::vector<std::string>& words) {
    if (words.size() < 3) throw UsageError("MODULE, PICTURE and RESULT are required");
    Arguments arguments{words[0], words[1], words[2], {}, {}, {}};
    for (std::size_t i = 3; i < words.size(); ++i) {
        if (words[i] == "--set" && i + 1 < words.size()) {
            arguments.settings.push_back(words[++i]);
        } else if (words[i] == "--pen") {
            arguments.pen = placeAt(words, i + 1);
            i += 2;
        } else if (words[i] == "--to") {
            arguments.target = placeAt(words, i + 1);
            i += 2;
        } else if (words[i] == "--press") {
            arguments.press = true;
        } else {
            throw UsageError("unknown argument " + words[i]);
        }
    }
    if ((arguments.press || arguments.target) && !arguments.pen)
        throw UsageError("--pen is missing");
    if (arguments.target && !arguments.press) throw UsageError("--to needs --press");
    return arguments;
}

media::Frame readPicture(const std::string& file) {
    media::Frame frame;
    media::openReader(file, {.depth = media::Depth::Bits8})->read(0, frame);
    return frame;
}

void writePicture(const std::string& file, const media::Frame& frame) {
    const auto writer = media::openWriter(file, {.size = frame.size()});
    writer->write(0, frame);
    writer->finish();
}

void set(runtime::EffectSession& session, const std::string& setting) {
    const auto equals = setting.find('=');
    if (equals == std::string::npos) throw UsageError("--set takes LABEL=VALUE, not " + setting);
    const ParameterRow* const row = findParameter(std::string_view(setting).substr(0, equals));
    if (!row) throw UsageError("there is no parameter " + setting.substr(0, equals));
    const ParsedValue value = parseValue(*row, std::string_view(setting).substr(equals + 1));
    if (!value.usable()) throw UsageError(value.message);
    session.setValue(row->identifier, value.value);
}

/// The frame through the effect.
std::vector<std::uint8_t> render(runtime::EffectSession& session, const runtime::Project& project,
                                 const media::Frame& frame) {
    const auto image = [&] {
        return runtime::makeProjectImage(project, frame.width(), frame.height(), MFIF_RGBA_RAW_32);
    };
    runtime::RenderRequest request;
    const auto input = image();
    const auto output = image();
    std::memcpy(input->bytes(), frame.bytes().data(), input->byteCount());
    request.input = input;
    request.output = output;
    session.render(request);
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(output->bytes());
    return {bytes, bytes + output->byteCount()};
}

/// The picture with its margin, opaque.
std::vector<std::uint8_t> withMargin(const std::vector<std::uint8_t>& picture, int width,
                                     int height) {
    const int wide = width + 2 * kMargin;
    const auto grey = static_cast<std::uint8_t>(kMarginGrey * 255);
    std::vector<std::uint8_t> result(static_cast<std::size_t>(4 * wide * (height + 2 * kMargin)),
                                     grey);
    for (int y = 0; y < height; ++y) {
        std::memcpy(&result[static_cast<std::size_t>(4 * ((y + kMargin) * wide + kMargin))],
                    &picture[static_cast<std::size_t>(4 * y * width)],
                    static_cast<std::size_t>(4 * width));
    }
    for (std::size_t alpha = 3; alpha < result.size(); alpha += 4) result[alpha] = 255;
    return result;
}

void usePen(runtime::Viewer& viewer, const Arguments& arguments, const runtime::Project& project) {
    const auto event = [&](const Place& place, LONG button) {
        return tagVWPENEVENT{.button = button,
                             .x = place.x / 100 * project.width,
                             .y = place.y / 100 * project.height};
    };
    if (!arguments.pen) return;
    viewer.penMove(event(*arguments.pen, 0));
    if (arguments.press) viewer.penDown(event(*arguments.pen, kMainButton));
    if (arguments.target) viewer.penMove(event(*arguments.target, kMainButton));
}

void draw(const Arguments& arguments) {
    const media::Frame frame = readPicture(arguments.picture);
    const runtime::Project project{.width = frame.width(), .height = frame.height()};
    runtime::EffectSession session(
        {.module = runtime::Module::load(arguments.module), .project = project});
    for (const std::string& setting : arguments.settings) set(session, setting);

    const LONG width = frame.width() + 2 * kMargin;
    const LONG height = frame.height() + 2 * kMargin;
    const auto surface = runtime::HeadlessSurface::create(width, height);
    surface->setWorld(-kMargin, -kMargin, width, height);
    const auto picture = withMargin(render(session, project, frame), frame.width(), frame.height());

    runtime::Editor editor(session);
    runtime::Viewer viewer(editor);
    const auto page = editor.open(kCropPageId);
    page->show();
    surface->setPixels(picture);
    // The pen's tolerance is that of the last render.
    runtime::require(viewer.render(*surface), "the controls cannot be drawn");
    usePen(viewer, arguments, project);
    surface->setPixels(picture);
    runtime::require(viewer.render(*surface), "the controls cannot be drawn");

    media::Frame result({static_cast<int>(width), static_cast<int>(height)}, media::Depth::Bits8);
    const std::vector<std::uint8_t> pixels = surface->pixels();
    std::memcpy(result.bytes().data(), pixels.data(), pixels.size());
    writePicture(arguments.result, result);
}

}  // namespace
}  // namespace ruvex

int main(int count, char** words) {
    try {
        ruvex::draw(ruvex::parse({words + 1, words + count}));
        return 0;
    } catch (const ruvex::UsageError& error) {
        std::cerr << "overlay_picture: " << error.what()
                  << "\nUsage: overlay_picture MODULE PICTURE "
                     "RESULT [--set LABEL=VALUE]... [--pen X Y [--press [--to X Y]]]\n";
        return 2;
    } catch (const std::exception& error) {
        std::cerr << "overlay_picture: " << error.what() << "\n";
        return 1;
    }
}
