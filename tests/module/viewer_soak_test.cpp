// Clones render on several threads while the crop box is dragged and pages open and close. For the
// thread sanitizer; without OpenGL.

#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <random>
#include <thread>

#include "host/base/class_ids.h"
#include "runtime/editor.h"
#include "runtime/viewer.h"
#include "sdk/com/ui_queue.h"
#include "tests/effect/render_fixture.h"

namespace ruvex::test {
namespace {

using Clock = std::chrono::steady_clock;

#ifdef RUVEX_SANITIZED
constexpr std::chrono::seconds kDuration{10};
#else
constexpr std::chrono::seconds kDuration{2};
#endif
constexpr runtime::Project kProject{.width = 64, .height = 48};
constexpr int kThreads = 4;

/// Renders clones of an effect, each a few times, until it is stopped. The input's place changes
/// from frame to frame.
class CloneRenderer {
public:
    explicit CloneRenderer(runtime::EffectSession clone)
        : clone_(std::move(clone)), thread_([this](std::stop_token stop) { run(stop); }) {}

    int frames() const { return frames_; }

private:
    void run(std::stop_token stop) {
        while (!stop.stop_requested()) {
            const int place = frames_ % 7;
            runtime::RenderRequest request;
            request.seconds = frames_ / 25.0;
            const auto input = runtime::makeProjectImage(kProject, 16, 12, MFIF_RGBA_RAW_32);
            input->setWorldOrigin({static_cast<float>(place), static_cast<float>(place)});
            request.input = input;
            request.output = runtime::makeProjectImage(kProject, 16, 12, MFIF_RGBA_RAW_32);
            clone_.render(request);
            ++frames_;
        }
    }

    runtime::EffectSession clone_;
    std::atomic<int> frames_ = 0;
    std::jthread thread_;
};

/// What a user does at random: opens, closes and shows pages, and moves and presses the pen.
class RandomUser {
public:
    explicit RandomUser(runtime::Editor& editor)
        : editor_(editor), viewer_(editor, [this](ULONG, const RECT*) { ++redraws; }) {}

    void act() {
        switch (random_() % 8) {
            case 0:
                pages_.push_back(editor_.open(random_() % 2 ? kCropPageId : kGunsPageId));
                pages_.back()->show();
                if (pages_.size() > 4) pages_.clear();
                break;
            case 1:
                if (!pages_.empty()) pages_.erase(pages_.begin());
                break;
            case 2:
                if (!pages_.empty()) pages_.back()->show();
                break;
            case 3:
                viewer_.penDown(event(1));
                break;
            case 4:
                viewer_.penUp(event(1));
                break;
            case 5:
                editor_.setTime(static_cast<double>(random_() % 100) / 25.0);
                break;
            default:
                viewer_.penMove(event(0));
        }
        ++actions;
    }

    int actions = 0;
    int redraws = 0;

private:
    tagVWPENEVENT event(LONG button) {
        return {.button = button,
                .x = static_cast<double>(random_() % 64),
                .y = static_cast<double>(random_() % 48)};
    }

    std::mt19937 random_{1};
    runtime::Editor& editor_;
    runtime::Viewer viewer_;
    std::vector<std::unique_ptr<runtime::OpenPage>> pages_;
};

TEST(ViewerSoak, ClonesRenderWhileTheBoxIsDraggedAndPagesOpenAndClose) {
    std::atomic<int> wakes = 0;
    DSUserInterfaceQueue queue([&] { ++wakes; });
    {
        runtime::EffectSession session({.module = builtModule(), .project = kProject});
        runtime::Editor editor(session);
        RandomUser user(editor);
        std::vector<std::unique_ptr<CloneRenderer>> renderers;
        for (int i = 0; i < kThreads; ++i) {
            renderers.push_back(std::make_unique<CloneRenderer>(session.clone()));
        }
        int arrivals = 0;
        const auto end = Clock::now() + kDuration;
        for (int round = 0; Clock::now() < end; ++round) {
            for (int i = 0; i < 10; ++i) user.act();
            const int before = user.redraws;
            queue.run();
            arrivals += user.redraws - before;
            // Now and then a thread gets a clone of the effect as it is.
            if (round % 50 == 49) {
                auto& renderer = renderers[static_cast<std::size_t>(round / 50 % kThreads)];
                while (renderer->frames() == 0) std::this_thread::yield();
                renderer = std::make_unique<CloneRenderer>(session.clone());
            }
            std::this_thread::yield();
        }
        EXPECT_GT(user.actions, 100);
        EXPECT_GT(editor.undoStack().undoCount(), 0u) << "drags have written";
        EXPECT_GT(wakes, 10);
        EXPECT_GT(arrivals, 10) << "the box has followed the clones' pictures";
    }
    queue.run();
    EXPECT_TRUE(builtModule()->canUnload());
}

}  // namespace
}  // namespace ruvex::test
