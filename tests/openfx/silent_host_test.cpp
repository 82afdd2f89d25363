// Hosts that set values without telling the plug-in (InstanceChanged).

#include "tests/openfx/built_plug_in.h"

namespace ruvex::ofxhost::test {
namespace {

using Bytes = std::vector<std::byte>;

/// An instance whose values are set without a word to the plug-in.
struct SilentInstance : BuiltInstance {
    SilentInstance() : BuiltInstance(noiseClip(96, 80)) {}

    void choose(const std::string& name) {
        const auto labels =
            instance.parameters()["presets"].properties.texts(kOfxParamPropChoiceOption);
        const auto found = std::ranges::find(labels, name);
        ASSERT_NE(found, labels.end()) << name;
        set("presets", static_cast<double>(found - labels.begin()));
    }
    void set(const std::string& name, double value) {
        instance.parameters()[name].setNumbers({value});
    }
    Bytes frame(double time) {
        RenderArgs args;
        args.time = time;
        const RenderResult result = instance.render(args);
        EXPECT_EQ(result.status, kOfxStatOK);
        return result.output.bytes;
    }
};

TEST(SilentHost, AChosenLookActsUnderTheValues) {
    for (const char* name : {"Bad Colour TV", "Switch Off", "Storm"}) {
        SilentInstance told, silent;
        const Bytes plain = silent.frame(7);
        told.choosePreset(name);
        silent.choose(name);
        EXPECT_EQ(silent.frame(7), told.frame(7)) << name;
        EXPECT_NE(silent.frame(7), plain) << name;
    }
}

TEST(SilentHost, AValueOfTheUserOverridesTheLook) {
    SilentInstance told, silent;
    told.choosePreset("Bad Colour TV");
    told.instance.set("snowMax", 130.0);
    silent.choose("Bad Colour TV");
    const Bytes ofLook = silent.frame(3);
    silent.set("snowMax", 130.0);
    EXPECT_EQ(silent.frame(3), told.frame(3));
    EXPECT_NE(silent.frame(3), ofLook);
}

TEST(SilentHost, FramesOfTheLookAreNeeded) {
    SilentInstance told, silent;
    told.choosePreset("Security Camera");
    silent.choose("Security Camera");
    const auto ranges = [](SilentInstance& host) {
        std::vector<double> times;
        for (const OfxRangeD& range : host.instance.framesNeeded(7.0)) times.push_back(range.min);
        return times;
    };
    EXPECT_EQ(ranges(silent), ranges(told));
    EXPECT_GT(ranges(silent).size(), 1u);
}

}  // namespace
}  // namespace ruvex::ofxhost::test
