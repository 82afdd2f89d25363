// A small OpenFX host: lists what a plug-in describes, and renders frames with it.
//
//     openfx_host BUNDLE
//     openfx_host BUNDLE --size 320x240 --frames 0-9 [OPTIONS] [NAME=VALUE ...]
//
// BUNDLE is the folder of a bundle or an .ofx file. Options:
//     --size WxH          of the test picture, sides up to 8192; without it nothing is rendered
//     --picture FILE      a binary PPM file instead of the test picture, and its size; at scale 1
//     --frames A-B        first and last frame, or A..B, such as -5..-1, or one; 0 without it
//     --depth D           byte, short or float
//     --scale S           render scale, above 0 and at most 1; 1 without it
//     --output FOLDER     the frames as FOLDER/N.pam
//     --leave             exits after the last frame without destroying the instance or unloading
// A value is a number, the label of a choice, R,G,B of a colour, or keys as FRAME:NUMBER,FRAME:...
// The program prints a digest of each frame's bytes. Its last line begins with "end:"; its status
// is 1 if a call failed or the plug-in did something that it must not do.

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include "tests/frames/frame_list.h"
#include "tests/openfx/host/binary.h"
#include "tests/openfx/host/instance.h"
#include "tests/openfx/host_options.h"
#include "tests/openfx/picture_file.h"
#include "tests/openfx/test_card.h"
#include "tests/openfx/typed_values.h"

namespace {

using namespace ruvex::ofxhost;
using namespace ruvex::ofxhost::test;

std::string listOf(const PropertySet& set, const char* name) {
    std::string list;
    const Property* property = set.find(name);
    if (!property) return list;
    for (const PropertyValue& value : property->values) {
        if (!list.empty()) list.append(", ");
        if (const auto* text = std::get_if<std::string>(&value)) list.append(*text);
        char buffer[40] = "";
        if (const auto* real = std::get_if<double>(&value)) {
            std::snprintf(buffer, sizeof buffer, "%.9g", *real);
        }
        if (const auto* whole = std::get_if<int>(&value)) {
            std::snprintf(buffer, sizeof buffer, "%d", *whole);
        }
        list.append(buffer);
    }
    return list;
}

void printDescription(const OfxPlugin& ofx, const Effect& effect) {
    std::printf("%s %u.%u\n", ofx.pluginIdentifier, ofx.pluginVersionMajor, ofx.pluginVersionMinor);
    for (const auto& [name, property] : effect.properties.all()) {
        // The path depends on the place of the bundle, pointers on that of the code.
        if (name == kOfxPluginPropFilePath || property.type == PropertyType::Pointer) continue;
        std::printf("  %s: %s\n", name.c_str(), listOf(effect.properties, name.c_str()).c_str());
    }
    for (const auto& clip : effect.clips()) {
        std::printf("clip %s: %s\n", clip->name().c_str(),
                    listOf(clip->properties, kOfxImageEffectPropSupportedComponents).c_str());
    }
    for (const auto& parameter : effect.parameters.all()) {
        const PropertySet& set = parameter->properties;
        std::printf("%s %s \"%s\" in %s\n", parameter->type().c_str(), parameter->name().c_str(),
                    set.text(kOfxPropLabel).c_str(), set.text(kOfxParamPropParent).c_str());
        for (const char* name : {kOfxParamPropDefault, kOfxParamPropMin, kOfxParamPropMax,
                                 kOfxParamPropChoiceOption, kOfxParamPropHint}) {
            const std::string list = listOf(set, name);
            if (!list.empty()) std::printf("  %s: %s\n", name, list.c_str());
        }
    }
}

ClipSetup clipFor(HostOptions& options) {
    const PixelFormat format{options.depth, kOfxImageComponentRGBA, kOfxImageUnPreMultiplied};
    if (options.picture.empty()) return testCard(options.width, options.height, format);
    const Raster still = readPpm(options.picture, options.depth);
    options.width = widthOf(still.bounds);
    options.height = heightOf(still.bounds);
    ClipSetup setup = testCard(options.width, options.height, format);
    setup.picture = [still](double, const OfxPointD&) { return still; };
    return setup;
}

InstanceSetup setupFor(HostOptions& options) {
    InstanceSetup setup;
    setup.source = clipFor(options);
    setup.project.size = {double(options.width), double(options.height)};
    return setup;
}

/// Ends as applications do that unload nothing.
[[noreturn]] void leave(bool good) {
    std::printf("end: left with the plug-in loaded, status=%s\n", good ? "good" : "bad");
    std::exit(good ? 0 : 1);
}

bool renderFrames(PlugIn& plugIn, HostOptions& options) {
    Instance instance(plugIn, setupFor(options));
    if (!isDone(instance.status())) throw std::runtime_error("the plug-in makes no instance");
    for (const auto& [name, value] : options.values) setValue(instance, name, value);
    bool good = true;
    for (int frame = options.first; frame <= options.last; ++frame) {
        RenderArgs args;
        args.time = frame;
        args.scale = {options.scale, options.scale};
        const RenderResult result = instance.render(args);
        good &= result.status == kOfxStatOK;
        std::printf("%s  frame %d, status %d\n", ruvex::test::digestOf(result.output.bytes).c_str(),
                    frame, result.status);
        if (options.output.empty()) continue;
        std::filesystem::create_directories(options.output);
        writePam(std::filesystem::path(options.output) / (std::to_string(frame) + ".pam"),
                 result.output);
    }
    if (options.leaves) leave(good);
    return good;
}

bool runHost(HostOptions options) {
    Binary binary(options.bundle);
    Host host;
    bool good = true;
    for (int i = 0; i < binary.count(); ++i) {
        PlugIn plugIn(host, *binary.plugIn(i), binary.file().string());
        if (plugIn.prepare() != kOfxStatOK)
            throw std::runtime_error("the plug-in is not described");
        const bool renders = options.width > 0 || !options.picture.empty();
        if (renders) {
            good &= renderFrames(plugIn, options);
        } else {
            printDescription(plugIn.ofx(), *plugIn.description(kOfxImageEffectContextFilter));
        }
        plugIn.unload();
    }
    for (const Message& message : host.messages())
        std::printf("message: %s\n", message.text.c_str());
    for (const std::string& fault : host.faults()) std::printf("fault: %s\n", fault.c_str());
    good &= host.faults().empty();
    std::printf("end: plug-ins=%d status=%s\n", binary.count(), good ? "good" : "bad");
    return good;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return runHost(readOptions(argc, argv)) ? 0 : 1;
    } catch (const std::exception& error) {
        std::printf("failed: %s\n", error.what());
        return 1;
    }
}
