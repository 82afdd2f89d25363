// Renders of one process do not know of each other: the bytes of each are those that it gives
// alone.

#include <barrier>
#include <gtest/gtest.h>
#include <thread>

#include "tests/runtime/clip_render.h"

namespace ruvex::test {
namespace {

// Without this the other tests would show nothing.
TEST(RenderIsolation, TheFramesDependOnAllThatBelongsToARender) {
    const auto film = framesAlone<Rgba8>(kFilm);
    EXPECT_EQ(framesAlone<Rgba8>(kFilm), film);
    for (int shashType = 1; shashType <= 3; ++shashType) {
        RenderKind one = kFilm;
        one.shashType = shashType;
        RenderKind other = one;
        other.workers = kTape.workers;
        EXPECT_NE(framesAlone<Rgba8>(one), framesAlone<Rgba8>(other)) << "shash " << shashType;
    }
    const runtime::Project changed[] = {{.width = kTape.project.width, .height = 72},
                                        {.width = 96, .height = kTape.project.height},
                                        {96, 72, kTape.project.pixelAspect, 25.0},
                                        {96, 72, 1.0, kTape.project.frameRate}};
    for (const runtime::Project& project : changed) {
        EXPECT_NE(framesAlone<Rgba8>({project, kFilm.workers, kFilm.shashType}), film)
            << project.width << "x" << project.height;
    }
}

using Together = std::barrier<>;

/// Renders all frames some rounds long, every second frame by a clone, each as soon as the other
/// thread is ready for one.
template <class P>
void expectFrames(const RenderKind& kind, const std::vector<Picture<P>>& wanted,
                  Together& together) {
    ClipRender<P> render(kind);
    for (int i = 0; i < 3 * kFrames; ++i) {
        const int k = i % kFrames;
        together.arrive_and_wait();
        const auto frame = i % 2 ? render.frameOfAClone(k) : render.frame(k);
        EXPECT_EQ(frame, wanted[static_cast<std::size_t>(k)])
            << "round " << i / kFrames << ", " << k;
    }
}

TEST(RenderIsolation, TwoThreadsGiveTheFramesThatEachGivesAlone) {
    const auto film = framesAlone<Rgba8>(kFilm);
    const auto tape = framesAlone<RgbaS214>(kTape);
    Together together(2);
    std::jthread other([&] { expectFrames<RgbaS214>(kTape, tape, together); });
    expectFrames<Rgba8>(kFilm, film, together);
}

TEST(RenderIsolation, SessionsOfOneThreadTakeTurns) {
    const auto film = framesAlone<Rgba8>(kFilm);
    const auto tape = framesAlone<RgbaS214>(kTape);
    ClipRender<Rgba8> filmRender(kFilm);
    ClipRender<RgbaS214> tapeRender(kTape);
    for (std::size_t k = 0; k < kFrames; ++k) {
        const int number = static_cast<int>(k);
        EXPECT_EQ(filmRender.frame(number), film[k]) << k;
        EXPECT_EQ(tapeRender.frame(number), tape[k]) << k;
        EXPECT_EQ(filmRender.frameOfAClone(number), film[k]) << k;
    }
}

/// Renders a frame of another render whenever it is asked for one.
struct RenderingClip final : RandomClip<Rgba8> {
    RenderingClip() : RandomClip(kFilm.project) {}

    ComPtr<IDSImage> imageAt(double seconds) override {
        inner.push_back(render.frame(static_cast<int>(inner.size()) % kFrames));
        return RandomClip::imageAt(seconds);
    }

    ClipRender<RgbaS214> render{kTape};
    std::vector<Picture<RgbaS214>> inner;
};

TEST(RenderIsolation, ARenderWithinACallOfAnotherLeavesItAsItWas) {
    const auto tape = framesAlone<RgbaS214>(kTape);
    const auto clip = std::make_shared<RenderingClip>();
    EXPECT_EQ(ClipRender<Rgba8>(kFilm, {}, clip).allFrames(), framesAlone<Rgba8>(kFilm));
    ASSERT_GT(clip->inner.size(), static_cast<std::size_t>(kFrames))
        << "for repeated frames too, which the effect asks for while it renders";
    for (std::size_t i = 0; i < clip->inner.size(); ++i) {
        EXPECT_EQ(clip->inner[i], tape[i % kFrames]) << i;
    }
}

/// Requests a stop when the effect asks for a frame beyond its first two.
struct StoppingClip final : RandomClip<RgbaS214> {
    StoppingClip() : RandomClip(kTape.project) {}

    ComPtr<IDSImage> imageAt(double seconds) override {
        if (seconds > runtime::frameTime(1, project.frameRate)) stop.request_stop();
        return RandomClip::imageAt(seconds);
    }

    std::stop_source stop;
};

TEST(RenderIsolation, StoppingOneRenderLeavesTheOthersRunning) {
    const auto film = framesAlone<Rgba8>(kFilm);
    const auto tape = framesAlone<RgbaS214>(kTape);
    std::barrier together(2);
    std::jthread other([&] {
        const auto clip = std::make_shared<StoppingClip>();
        ClipRender<RgbaS214> render(kTape, clip->stop.get_token(), clip);
        for (int k = 0; k < kFrames; ++k) {
            together.arrive_and_wait();
            const auto frame = render.frame(k);
            EXPECT_EQ(render.session().interrupted(), k >= 2) << k;
            EXPECT_EQ(frame == tape[static_cast<std::size_t>(k)], k < 2) << k;
        }
    });
    ClipRender<Rgba8> render(kFilm);
    for (int k = 0; k < kFrames; ++k) {
        together.arrive_and_wait();
        EXPECT_EQ(render.frame(k), film[static_cast<std::size_t>(k)]) << k;
        EXPECT_FALSE(render.session().interrupted()) << k;
    }
}

/// How many of the project frame's sizes the calling thread can read.
int readableSizes() {
    int readable = 0;
    for (const wchar_t* name :
         {kDSProjectUserSizeX, kDSProjectUserSizeY, kDSProjectWorldSizeX, kDSProjectWorldSizeY}) {
        VARIANT value{};
        readable += DSContentGetProperty(name, &value) == S_OK;
    }
    return readable;
}

TEST(RenderIsolation, NothingOfARenderOutlivesIt) {
    const RenderKind plain{{.width = 72, .height = 96}, 0, 2};
    const auto wanted = framesAlone<Rgba8>(plain);
    const int processors = controlOf(ClipRender<Rgba8>(plain).session()).workerCount();
    {
        std::stop_source stop;
        ClipRender<RgbaS214> render({kTape.project, processors + 4, 3}, stop.get_token());
        render.frame(1);
        EXPECT_EQ(readableSizes(), 0) << "between the calls of a session";
        {
            const auto scope = render.session().enter();
            EXPECT_EQ(readableSizes(), 4);
        }
        stop.request_stop();
        render.frameOfAClone(2);
    }
    EXPECT_EQ(readableSizes(), 0);
    ClipRender<Rgba8> after(plain);
    EXPECT_EQ(controlOf(after.session()).workerCount(), processors);
    EXPECT_EQ(after.allFrames(), wanted);
    EXPECT_FALSE(after.session().interrupted());
}

}  // namespace
}  // namespace ruvex::test
