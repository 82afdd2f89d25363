#include <cmath>
#include <gtest/gtest.h>

#include "tests/adapters/host_side.h"

namespace ruvex::frei0r {
namespace {

using test::HostSide;
using test::noisyPixels;
using test::Pixels;

TEST(PlugIn, DescribesItself) {
    PlugInInfo info{};
    f0r_get_plugin_info(&info);
    EXPECT_STREQ(info.name, "ruvex");
    EXPECT_EQ(info.plugInType, kFilter);
    EXPECT_EQ(info.colourModel, kRgba8888);
    EXPECT_EQ(info.frei0rVersion, 1);
    ParameterInfo first{};
    f0r_get_param_info(&first, 0);
    EXPECT_STREQ(first.name, "look");
    EXPECT_EQ(first.type, static_cast<int>(ParameterType::String));
    ParameterInfo none{"unchanged", 7, nullptr};
    f0r_get_param_info(&none, info.parameterCount);
    f0r_get_param_info(&none, -1);
    EXPECT_STREQ(none.name, "unchanged");
}

TEST(PlugIn, InitialisationIsOfNoConsequence) {
    f0r_deinit();
    const Pixels input = noisyPixels(32, 32, 1);
    HostSide host(32, 32);
    f0r_deinit();
    const Pixels output = host.frame(0.0, input);
    EXPECT_EQ(f0r_init(), 1);
    EXPECT_EQ(host.frame(0.0, input), output);
    EXPECT_NE(output, input);
    f0r_deinit();
}

TEST(PlugIn, NullsAreIgnored) {
    f0r_get_plugin_info(nullptr);
    f0r_get_param_info(nullptr, 0);
    f0r_destruct(nullptr);
    double value = 0.5;
    f0r_set_param_value(nullptr, &value, 1);
    f0r_get_param_value(nullptr, &value, 1);
    Pixels pixels = noisyPixels(4, 4, 1);
    f0r_update(nullptr, 0.0, pixels.data(), pixels.data());
    HostSide host(4, 4);
    const Pixels before = pixels;
    f0r_update(host.handle(), 0.0, pixels.data(), nullptr);
    EXPECT_EQ(pixels, before);
    f0r_update(host.handle(), 0.0, nullptr, pixels.data());
    EXPECT_EQ(pixels, Pixels(pixels.size(), 0)) << "without an input the result is transparent";
}

TEST(PlugIn, SizesWithoutPixelsWriteNothing) {
    std::uint32_t pixel = 5;
    for (const auto& [width, height] :
         {std::pair{0u, 0u}, {0u, 4u}, {4u, 0u}, {0xFFFFFFFFu, 1u}, {1u, 0x80000000u}}) {
        HostSide host(width, height);
        f0r_update(host.handle(), 0.0, &pixel, &pixel);
        EXPECT_EQ(pixel, 5u);
    }
}

TEST(PlugIn, MillisecondsGarbageAndSecondsGiveTheSameFrames) {
    const Pixels input = noisyPixels(40, 30, 3);
    HostSide seconds(40, 30);
    HostSide milliseconds(40, 30);
    HostSide garbage(40, 30);
    for (int frame = 0; frame < 6; ++frame) {
        const Pixels expected = seconds.frame(frame / 25.0, input);
        EXPECT_EQ(milliseconds.frame(frame * 40.0, input), expected) << frame;
        EXPECT_EQ(garbage.frame(-3.7e20, input), expected) << frame;
    }
    EXPECT_NE(seconds.frame(0.0, input), seconds.frame(0.2, input));
}

TEST(PlugIn, ParametersChangeThePictureAndComeBack) {
    const Pixels input = noisyPixels(40, 30, 3);
    HostSide host(40, 30);
    const Pixels before = host.frame(0.2, input);
    host.set("look", "Clean");
    EXPECT_EQ(host.frame(0.2, input), input);
    host.set("blur", 0.5);
    EXPECT_NE(host.frame(0.2, input), input);
    host.set("blur", 0.0);
    host.set("look", "");
    EXPECT_EQ(host.frame(0.2, input), before);
}

}  // namespace
}  // namespace ruvex::frei0r
