#include "adapters/common/hosted_effect.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <gtest/gtest.h>

#include "adapters/common/parameter_state.h"
#include "looks/presets.h"
#include "looks/ruvex_control.h"
#include "looks/session_look.h"
#include "parameters/presets.h"
#include "runtime/images.h"

namespace ruvex::adapters {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr int kWidth = 72;
constexpr int kHeight = 50;

/// A picture without padding, bottom row first, with alphas from 128 up.
Bytes picture() {
    Bytes bytes(std::size_t{kWidth} * kHeight * kPixelBytes);
    std::uint32_t seed = 7;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        seed = seed * 1664525u + 1013904223u;
        bytes[i] = static_cast<std::uint8_t>(seed >> 24);
        if (i % kPixelBytes == kPixelBytes - 1) bytes[i] |= 0x80;
    }
    return bytes;
}

SourceRows sourceOf(const Bytes& bytes) {
    return {bytes.data(), kWidth * static_cast<std::ptrdiff_t>(kPixelBytes), kWidth, kHeight};
}

TargetRows targetOf(Bytes& bytes) {
    return {bytes.data(), kWidth * static_cast<std::ptrdiff_t>(kPixelBytes), kWidth, kHeight};
}

Bytes rendered(const FrameRequest& request, const Bytes& source) {
    HostedEffect effect;
    Bytes result(source.size());
    EXPECT_TRUE(effect.render(request, sourceOf(source), targetOf(result)));
    return result;
}

/// The same frame by a session, as a render of a clip makes it.
Bytes bySession(std::int64_t frame, double rate, std::span<const looks::ParameterChange> changes) {
    const runtime::Project project{kWidth, kHeight, 1.0, rate};
    runtime::EffectSession session({.module = runtime::Module::loadDefault(), .project = project});
    looks::ruvexControl(session).setWorkerCount(kShares);
    looks::applyChanges(session, changes);
    const Bytes source = picture();
    const auto input = runtime::makeProjectImage(project, kWidth, kHeight, MFIF_RGBA_RAW_32);
    std::memcpy(input->bytes(), source.data(), source.size());
    const auto output = runtime::makeProjectImage(project, kWidth, kHeight, MFIF_RGBA_RAW_32);
    runtime::RenderRequest request;
    request.seconds = runtime::frameTime(frame, rate);
    request.input = input;
    request.output = output;
    session.render(request);
    Bytes result(source.size());
    std::memcpy(result.data(), output->bytes(), result.size());
    return result;
}

TEST(HostedEffect, APresetGivesTheFramesOfARender) {
    for (int preset = 0; preset < kPresetCount; ++preset) {
        const auto changes = looks::presetChanges(preset);
        const FrameRequest request{.frame = 16,
                                   .frameRate = 30.0,
                                   .look = std::string(presetNames()[preset]),
                                   .alpha = PlugInAlpha::Effect};
        EXPECT_EQ(rendered(request, picture()), bySession(16, 30.0, changes)) << request.look;
    }
}

TEST(HostedEffect, ValuesGoOverTheLook) {
    auto changes = looks::presetChanges(1);
    changes.push_back(looks::Setting{ParameterId::SnowMax, 12.5});
    const FrameRequest request{.frame = 3,
                               .look = "Bad Colour TV",
                               .values = {{ParameterId::SnowMax, 12.5}},
                               .alpha = PlugInAlpha::Effect};
    EXPECT_EQ(rendered(request, picture()), bySession(3, 25.0, changes));
}

TEST(HostedEffect, AFrameDoesNotDependOnEarlierOnes) {
    const Bytes source = picture();
    HostedEffect effect;
    Bytes result(source.size());
    const std::vector<FrameRequest> requests = {
        {.frame = 9, .look = "Bad Colour TV"},
        {.frame = 2, .values = {{ParameterId::MasterBreakup, 90.0}}},
        {.frame = 40, .frameRate = 24.0},
        {.frame = 2, .look = "rewind"},
        {.frame = 9, .look = "Bad Colour TV"}};
    for (const FrameRequest& request : requests) {
        EXPECT_TRUE(effect.render(request, sourceOf(source), targetOf(result)));
        EXPECT_EQ(result, rendered(request, source));
    }
}

TEST(HostedEffect, ThePictureMayBeReplacedInItsOwnMemory) {
    const Bytes source = picture();
    Bytes shared = source;
    HostedEffect effect;
    const FrameRequest request{.frame = 5, .look = "Bad Colour TV"};
    EXPECT_TRUE(effect.render(request, sourceOf(shared), targetOf(shared)));
    EXPECT_EQ(shared, rendered(request, source));
    EXPECT_NE(shared, source);
}

TEST(HostedEffect, InputAlphaIsKeptUnlessTheEffectsIsWanted) {
    const Bytes source = picture();
    FrameRequest request{
        .frame = 5,
        .look = "Clean",
        .values = {{ParameterId::VertOffsetMax, 400.0}, {ParameterId::VertOffsetThreshold, 0.0}}};
    const Bytes kept = rendered(request, source);
    request.alpha = PlugInAlpha::Effect;
    const Bytes effects = rendered(request, source);
    bool anyOther = false;
    for (std::size_t i = 0; i < source.size(); ++i) {
        const bool isAlpha = i % kPixelBytes == kPixelBytes - 1;
        ASSERT_EQ(kept[i], isAlpha ? source[i] : effects[i]);
        anyOther = anyOther || effects[i] != kept[i];
    }
    EXPECT_TRUE(anyOther);
}

TEST(HostedEffect, AWoundTapeShowsThePictureAtHand) {
    const Bytes source = picture();
    const FrameRequest request{
        .frame = 7, .look = "Clean", .values = {{ParameterId::RepeatFrames, 4.0}}};
    EXPECT_EQ(rendered(request, source), source);
}

TEST(HostedEffect, ALookThatCannotBeReadLeavesTheParameters) {
    const std::vector<looks::Setting> values = {{ParameterId::MasterBreakup, 80.0}};
    testing::internal::CaptureStderr();
    HostedEffect effect;
    Bytes result(picture().size());
    const Bytes source = picture();
    for (std::int64_t frame : {1, 2}) {
        EXPECT_TRUE(effect.render({.frame = frame, .look = "no such look", .values = values},
                                  sourceOf(source), targetOf(result)));
        EXPECT_EQ(result, rendered({.frame = frame, .values = values}, source));
    }
    const std::string printed = testing::internal::GetCapturedStderr();
    EXPECT_NE(printed.find("V_Ruvex: there is no look 'no such look'"), std::string::npos);
    EXPECT_EQ(std::count(printed.begin(), printed.end(), '\n'), 1) << printed;
}

TEST(HostedEffect, ALookFileIsFoundByItsPath) {
    const std::string file = testing::TempDir() + "plug-in-look.json";
    std::ofstream(file) << R"({"Snow Max": 90})";
    const FrameRequest request{.frame = 5, .look = file};
    EXPECT_EQ(rendered(request, picture()),
              rendered({.frame = 5, .values = {{ParameterId::SnowMax, 90.0}}}, picture()));
}

TEST(HostedEffect, LengthsOfALookAreThoseOfItsProjectFrame) {
    const std::string file = testing::TempDir() + "plug-in-project.json";
    std::ofstream(file) << R"({"projectSize": {"width": 144, "height": 100}, "Blur": 4})";
    const std::string half = testing::TempDir() + "plug-in-half.json";
    std::ofstream(half) << R"({"Blur": 2})";
    EXPECT_EQ(rendered({.frame = 5, .look = file, .values = {{ParameterId::MasterBreakup, 0.0}}},
                       picture()),
              rendered({.frame = 5, .look = half, .values = {{ParameterId::MasterBreakup, 0.0}}},
                       picture()));
}

TEST(HostedEffect, PicturesThatAreTooLargeAreCopied) {
    Bytes source(70000 * kPixelBytes, 77);
    Bytes result(source.size());
    HostedEffect effect;
    const std::ptrdiff_t stride = 70000 * kPixelBytes;
    testing::internal::CaptureStderr();
    EXPECT_FALSE(
        effect.render({}, {source.data(), stride, 70000, 1}, {result.data(), stride, 70000, 1}));
    EXPECT_NE(testing::internal::GetCapturedStderr().find("too large"), std::string::npos);
    EXPECT_EQ(result, source);
    EXPECT_FALSE(effect.render({}, {}, {}));
}

}  // namespace
}  // namespace ruvex::adapters
