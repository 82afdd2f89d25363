// Shows a plug-in's overlay over its picture, and uses the pen.
//
//     openfx_overlay BUNDLE [OPTIONS] [NAME=VALUE ...]
//
// Options:
//     --picture FILE           a binary PPM file instead of the test picture of 320x240 pixels
//     --drag X,Y,X2,Y2         presses the pen at a place of the picture and releases it at another
//     --hold X,Y,X2,Y2         the same without the release
//     --output FILE            the view as a PAM file
//     --leave                  exits without destroying the overlay or unloading the plug-in
// Values as in openfx_host. The program prints what the plug-in answers, the crop in the host after
// each drag, and a digest of the view. Its last line begins with "end:".

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "runtime/headless_context.h"
#include "sdk/open_gl/open_gl.h"
#include "tests/frames/frame_list.h"
#include "tests/openfx/host/binary.h"
#include "tests/openfx/host/interact.h"
#include "tests/openfx/picture_file.h"
#include "tests/openfx/test_card.h"
#include "tests/openfx/typed_values.h"

namespace {

using namespace ruvex::ofxhost;
using namespace ruvex::ofxhost::test;
using ruvex::gl;

/// Around the picture, in pixels.
constexpr int kMargin = 12;

struct Drag {
    OfxPointD from{}, to{};
    bool released = true;
};

struct Options {
    std::string bundle;
    std::string picture;
    std::string output;
    bool leaves = false;  ///< Whether the program exits with the overlay alive and all loaded.
    std::vector<Drag> drags;
    std::vector<std::pair<std::string, std::string>> values;
};

Drag dragOf(const std::string& text, bool released) {
    const auto parts = splitAt(text, ',');
    if (parts.size() != 4) throw std::runtime_error("not a drag: " + text);
    return {{numberOf(parts[0]), numberOf(parts[1])},
            {numberOf(parts[2]), numberOf(parts[3])},
            released};
}

Options readOptions(int argc, char** argv) {
    if (argc < 2) throw std::runtime_error("usage: openfx_overlay BUNDLE [OPTIONS]");
    Options options;
    options.bundle = argv[1];
    for (int i = 2; i < argc; ++i) {
        const std::string word = argv[i];
        const auto equals = word.find('=');
        const bool hasNext = i + 1 < argc;
        if (word == "--picture" && hasNext) {
            options.picture = argv[++i];
        } else if (word == "--output" && hasNext) {
            options.output = argv[++i];
        } else if ((word == "--drag" || word == "--hold") && hasNext) {
            options.drags.push_back(dragOf(argv[++i], word == "--drag"));
        } else if (word == "--leave") {
            options.leaves = true;
        } else if (equals != word.npos) {
            options.values.emplace_back(word.substr(0, equals), word.substr(equals + 1));
        } else {
            throw std::runtime_error("not understood: " + word);
        }
    }
    return options;
}

InstanceSetup setupFor(const Options& options) {
    constexpr int kWidth = 320, kHeight = 240;
    const PixelFormat format{kOfxBitDepthByte, kOfxImageComponentRGBA, kOfxImageOpaque};
    InstanceSetup setup;
    setup.source = testCard(kWidth, kHeight, format);
    if (!options.picture.empty()) {
        const Raster still = readPpm(options.picture, kOfxBitDepthByte);
        setup.source = testCard(widthOf(still.bounds), heightOf(still.bounds), format);
        setup.source.picture = [still](double, const OfxPointD&) { return still; };
    }
    const OfxRectD& region = *setup.source.regionOfDefinition;
    setup.project.size = {region.x2, region.y2};
    return setup;
}

/// A viewer with the picture in its middle.
class Viewer {
public:
    Viewer(Instance& instance, const OfxPointD& size)
        : instance_(instance),
          width_(static_cast<int>(size.x) + 2 * kMargin),
          height_(static_cast<int>(size.y) + 2 * kMargin),
          overlay_(instance, {.viewportSize = {double(width_), double(height_)},
                              .corner = {-kMargin, -kMargin}}) {
        if (overlay_.status() != kOfxStatOK) throw std::runtime_error("there is no overlay");
    }

    void draw() {
        const RenderResult frame = instance_.render();
        gl().glViewport(0, 0, width_, height_);
        gl().glClearColor(0.25f, 0.25f, 0.25f, 1.0f);
        gl().glClear(GL_COLOR_BUFFER_BIT);
        loadPlane();
        gl().glRasterPos2f(0.0f, 0.0f);
        gl().glDrawPixels(width_ - 2 * kMargin, height_ - 2 * kMargin, GL_RGBA, GL_UNSIGNED_BYTE,
                          frame.output.bytes.data());
        std::printf("draw: status %d\n", overlay_.draw());
    }

    void drag(const Drag& drag) {
        const int down = overlay_.pen(kOfxInteractActionPenDown, drag.from);
        const int motion = overlay_.pen(kOfxInteractActionPenMotion, drag.to);
        const int up = drag.released ? overlay_.pen(kOfxInteractActionPenUp, drag.to) : -1;
        std::printf("drag: status %d, %d, %d\n", down, motion, up);
        for (const char* name : {"cropLeft", "cropRight", "cropBottom", "cropTop"}) {
            std::printf("  %s %.6g\n", name, instance_.parameters()[name].numbersAt(0).at(0));
        }
    }

    Raster pixels() const {
        Raster view;
        view.bounds = {0, 0, width_, height_};
        view.format = {kOfxBitDepthByte, kOfxImageComponentRGBA, kOfxImageOpaque};
        view.bytes.resize(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_) * 4);
        gl().glReadPixels(0, 0, width_, height_, GL_RGBA, GL_UNSIGNED_BYTE, view.bytes.data());
        return view;
    }

private:
    void loadPlane() const {
        gl().glMatrixMode(GL_PROJECTION);
        gl().glLoadIdentity();
        gl().glOrtho(-kMargin, width_ - kMargin, -kMargin, height_ - kMargin, -1, 1);
        gl().glMatrixMode(GL_MODELVIEW);
        gl().glLoadIdentity();
    }

    Instance& instance_;
    int width_, height_;
    ruvex::runtime::HeadlessContext context_{ruvex::openGl() ? width_ : 0, height_};
    ruvex::runtime::CurrentContext current_{context_};
    Interact overlay_;
};

/// Ends as applications do that unload nothing.
[[noreturn]] void leave(bool good) {
    std::printf("end: left with the overlay shown, status=%s\n", good ? "good" : "bad");
    std::exit(good ? 0 : 1);
}

bool runViewer(const Options& options) {
    Binary binary(options.bundle);
    Host host;
    PlugIn plugIn(host, *binary.plugIn(0), binary.file().string());
    if (plugIn.prepare() != kOfxStatOK) throw std::runtime_error("the plug-in is not described");
    {
        const InstanceSetup setup = setupFor(options);
        Instance instance(plugIn, setup);
        for (const auto& [name, value] : options.values) setValue(instance, name, value);
        Viewer viewer(instance, setup.project.size);
        viewer.draw();
        for (const Drag& drag : options.drags) {
            viewer.drag(drag);
            viewer.draw();
        }
        const Raster view = viewer.pixels();
        std::printf("%s  view\n", ruvex::test::digestOf(view.bytes).c_str());
        if (!options.output.empty()) writePam(options.output, view);
        if (options.leaves) leave(host.faults().empty());
    }
    plugIn.unload();
    for (const std::string& fault : host.faults()) std::printf("fault: %s\n", fault.c_str());
    std::printf("end: openfx_overlay %s\n", host.faults().empty() ? "good" : "bad");
    return host.faults().empty();
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return runViewer(readOptions(argc, argv)) ? 0 : 1;
    } catch (const std::exception& error) {
        std::printf("failed: %s\n", error.what());
        return 1;
    }
}
