// The plug-in of this build in a host of its own.

#pragma once

#include <gmock/gmock.h>

#include "tests/openfx/host/binary.h"
#include "tests/openfx/host/instance.h"
#include "tests/openfx/noise_clip.h"

namespace ruvex::ofxhost::test {

/// The binary of this build, loaded once.
inline Binary& builtBinary() {
    static Binary binary(RUVEX_OPENFX_FILE);
    return binary;
}

/// A host that has loaded and described the plug-in. At the end the plug-in is unloaded, and the
/// test fails if the host noticed a fault.
struct BuiltPlugIn {
    explicit BuiltPlugIn(HostTraits traits = {})
        : host(std::move(traits)),
          plugIn(host, *builtBinary().plugIn(0), builtBinary().file().string()),
          prepared(plugIn.prepare()) {}
    ~BuiltPlugIn() {
        plugIn.unload();
        EXPECT_THAT(host.faults(), ::testing::IsEmpty());
    }
    BuiltPlugIn(const BuiltPlugIn&) = delete;
    BuiltPlugIn& operator=(const BuiltPlugIn&) = delete;

    Host host;
    PlugIn plugIn;
    OfxStatus prepared;
};

/// The setup of an instance whose project has the size of its source.
inline InstanceSetup setupFor(ClipSetup source) {
    InstanceSetup setup;
    const OfxRectD& region = *source.regionOfDefinition;
    setup.project.size = {region.x2 - region.x1, region.y2 - region.y1};
    setup.project.offset = {region.x1, region.y1};
    setup.project.pixelAspect = source.pixelAspect;
    setup.project.frameRate = source.frameRate;
    setup.source = std::move(source);
    return setup;
}

/// One instance in a host of its own.
struct BuiltInstance : BuiltPlugIn {
    explicit BuiltInstance(InstanceSetup setup, HostTraits traits = {})
        : BuiltPlugIn(std::move(traits)), instance(plugIn, std::move(setup)) {}
    explicit BuiltInstance(ClipSetup source, HostTraits traits = {})
        : BuiltInstance(setupFor(std::move(source)), std::move(traits)) {}

    /// Chooses an entry of the list of presets.
    void choosePreset(const std::string& name) {
        const auto labels =
            instance.parameters()["presets"].properties.texts(kOfxParamPropChoiceOption);
        const auto found = std::ranges::find(labels, name);
        ASSERT_NE(found, labels.end()) << name;
        instance.set("presets", static_cast<double>(found - labels.begin()));
    }

    Instance instance;
};

}  // namespace ruvex::ofxhost::test
