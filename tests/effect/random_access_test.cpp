// A clip with every artefact on and keys on what can be animated: a frame is the same whenever,
// wherever and in whatever order it is asked for.

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <numeric>
#include <thread>

#include "tests/effect/support/broken_signal.h"
#include "tests/effect/support/module_workers.h"
#include "tests/imaging/support/random.h"

namespace ruvex::test {
namespace {

using Id = ParameterId;

constexpr runtime::Project kClip{.width = 56, .height = 40, .pixelAspect = 1.0667};
// Over one and a half seconds, whatever their number.
constexpr int kFrames = cases(36);
constexpr int kStride = 36 / kFrames;

template <class P>
Picture<P> clipFrame(int number) {
    return randomPicture<P>(kClip.width, kClip.height, static_cast<std::uint32_t>(number + 100));
}

/// Serves every frame of the clip, before its beginning too.
template <class P>
class EndlessClip final : public runtime::InputProvider {
public:
    ComPtr<IDSImage> imageAt(double seconds) override {
        return imageOf(kClip,
                       clipFrame<P>(static_cast<int>(std::lround(seconds * kClip.frameRate))));
    }
};

constexpr Setting kSteady[] = {
    {Id::Seed, 77},         {Id::TvContrast, 10},        {Id::TvBrightness, 5},
    {Id::NumGhosts, 3},     {Id::BreakupVariation, 120}, {Id::BreakupSpeed, 200},
    {Id::ScanlineWidth, 3}, {Id::BorderAlpha, 2},        {Id::RepeatFrames, 2},
    {Id::ShashType, 5},     {Id::ShashPeriod, 0.12},     {Id::Filter, 1},
    {Id::FishEyeRadius, 25}};

struct Animation {
    Id id;
    double from, to;  ///< at 0 and at 1.5 seconds
};

constexpr Animation kMoving[] = {
    {Id::MasterBreakup, 40, 90},
    {Id::ColourThreshold, 20, 60},
    {Id::ColourDegradeMax, 60, 90},
    {Id::GhostingThreshold, 30, 10},
    {Id::GhostingDistanceMax, 30, 60},
    {Id::GhostingStrength, 90, 40},
    {Id::GhostingSpeed, 50, 300},
    {Id::EdgeThreshold, 10, 40},
    {Id::EdgeDistortionMax, 40, 90},
    {Id::EdgeJaggedness, 2, 30},
    {Id::EdgeSpeed, 20, 200},
    {Id::SnowThreshold, 0, 30},
    {Id::SnowMax, 60, -60},
    {Id::SnowSoftness, 4, 0},
    {Id::SnowSparseness, 10, 50},
    {Id::LineThreshold, 10, 40},
    {Id::LineAngle, 20, 160},
    {Id::LineSpacing, 6, 12},
    {Id::LineSpeedMax, 200, -100},
    {Id::VertOffsetThreshold, 40, 30},
    {Id::VertOffsetMax, 20, -20},
    {Id::VertRollThreshold, 45, 60},
    {Id::VertRollSpeedMax, 300, 800},
    {Id::ShashThreshold, 30, 60},
    {Id::ShashAmountMax, 80, 50},
    {Id::PlaySpeed, 180, -120},
    {Id::EmInterference, 20, 90},
    {Id::WhiteDot, -3, 5},
    {Id::Resolution, 120, 60},
    {Id::Blur, 0, 4},
    {Id::GunAlignRedX, -3, 6},
    {Id::FishEyePower, -40, 60},
    {Id::TvBrightnessRed, -10, 10},
    {Id::TvColour, 80, 140},
};

template <class P>
struct StormyClip {
    StormyClip() : renderer(kClip, std::make_shared<EndlessClip<P>>()) {
        renderer.set(Id::FishEye, 1);
        for (const Setting& setting : kSteady) renderer.set(setting.id, setting.value);
        for (const Animation& a : kMoving) renderer.animate(a.id, {{0.0, a.from}, {1.5, a.to}});
    }
    Picture<P> frame(int k) { return frameOf(renderer.session(), k); }

    static Picture<P> frameOf(runtime::EffectSession& session, int k) {
        runtime::RenderRequest request;
        request.seconds = runtime::frameTime(k * kStride, kClip.frameRate);
        request.input = imageOf(kClip, clipFrame<P>(k * kStride));
        auto output = runtime::makeProjectImage(kClip, kClip.width, kClip.height, formatOf<P>());
        request.output = output;
        session.render(request);
        return pictureOf<P>(*output);
    }
    std::vector<Picture<P>> inOrder() {
        std::vector<Picture<P>> frames;
        for (int k = 0; k < kFrames; ++k) frames.push_back(frame(k));
        return frames;
    }

    Renderer renderer;
};

std::vector<int> shuffled(std::uint32_t seed) {
    std::vector<int> order(static_cast<std::size_t>(kFrames));
    std::iota(order.begin(), order.end(), 0);
    std::shuffle(order.begin(), order.end(), std::mt19937(seed));
    return order;
}

template <class P>
class RandomAccess : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(RandomAccess, FramePixels);

TYPED_TEST(RandomAccess, AnyOrderGivesTheFramesInOrder) {
    StormyClip<TypeParam> clip;
    const auto wanted = clip.inOrder();
    for (const int k : shuffled(1)) {
        EXPECT_EQ(clip.frame(k), wanted[static_cast<std::size_t>(k)]) << k;
    }
}

TYPED_TEST(RandomAccess, CloneAfterCloneGivesTheFramesInOrder) {
    StormyClip<TypeParam> clip;
    const auto wanted = clip.inOrder();
    for (const int k : shuffled(2)) {
        runtime::EffectSession clone = clip.renderer.session().clone();
        EXPECT_EQ(StormyClip<TypeParam>::frameOf(clone, k), wanted[static_cast<std::size_t>(k)])
            << k;
    }
}

TYPED_TEST(RandomAccess, ClonesAtOnceGiveTheFramesInOrder) {
    StormyClip<TypeParam> clip;
    const auto wanted = clip.inOrder();
    std::vector<Picture<TypeParam>> frames(wanted.size());
    constexpr std::size_t kClones = 4;
    {
        std::vector<std::jthread> threads;
        for (std::size_t i = 0; i < kClones; ++i) {
            threads.emplace_back([&, i, clone = clip.renderer.session().clone()]() mutable {
                const auto order = shuffled(3);
                for (std::size_t n = i; n < order.size(); n += kClones) {
                    frames[static_cast<std::size_t>(order[n])] =
                        StormyClip<TypeParam>::frameOf(clone, order[n]);
                }
            });
        }
    }
    EXPECT_EQ(frames, wanted);
}

// Each of them shows: without it some frame is another one.
TEST(RandomAccessClip, EveryArtefactIsOn) {
    StormyClip<Rgba8> clip;
    const ModuleWorkers one(clip.renderer, 1);  // small pictures are soonest done alone
    const auto wanted = clip.inOrder();
    std::vector<Setting> off = noFault();
    const Setting others[] = {
        {Id::EmInterference, 0}, {Id::WhiteDot, 0},      {Id::GunAlignRedX, 0},
        {Id::BorderAlpha, 0},    {Id::PlayMode, 1},      {Id::PlaySpeed, 100},
        {Id::RepeatFrames, 1},   {Id::Resolution, 100},  {Id::Blur, 0},
        {Id::FishEye, 0},        {Id::ScanlineWidth, 0}, {Id::BreakupVariation, 0},
        {Id::LineSpeedMax, 0},   {Id::GhostingSpeed, 0}, {Id::EdgeSpeed, 0},
        {Id::ShashType, 0}};
    off.insert(off.end(), std::begin(others), std::end(others));
    for (const Setting& setting : off) {
        StormyClip<Rgba8> without;
        without.renderer.set(setting.id, setting.value);
        EXPECT_NE(without.inOrder(), wanted) << row(setting.id).label;
    }
}

// What it does at once: winding, slow play and play backwards; a picture, a shrunken one.
TEST(RandomAccessClip, NoTwoFramesAreAlike) {
    StormyClip<Rgba8> clip;
    const auto frames = clip.inOrder();
    for (std::size_t i = 0; i < frames.size(); ++i) {
        for (std::size_t k = 0; k < i; ++k) EXPECT_NE(frames[i], frames[k]) << i << ", " << k;
    }
}

}  // namespace
}  // namespace ruvex::test
