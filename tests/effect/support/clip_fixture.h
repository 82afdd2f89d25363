// A clip whose frames carry their number, for tests of which frames are shown.

#pragma once

#include <cmath>
#include <map>
#include <mutex>

#include "tests/effect/render_fixture.h"

namespace ruvex::test {

/// The picture of frame `number`: every component says which one it is, 0 being told from black.
template <class P>
Picture<P> numberedPicture(int width, int height, int number) {
    const auto value = static_cast<typename P::Component>(number + 1);
    return {
        width, height,
        std::vector<P>(static_cast<std::size_t>(width) * height, P{{value, value, value, value}})};
}

/// Which frame a picture shows, by its commonest pixel; -1 for transparent black.
template <class P>
int shownNumber(const Picture<P>& picture) {
    std::map<int, int> counts;
    for (const P& pixel : picture.pixels) ++counts[pixel.c[0] - 1];
    return std::max_element(counts.begin(), counts.end(),
                            [](const auto& a, const auto& b) { return a.second < b.second; })
        ->first;
}

/// Serves frames first..last and refuses all others; keeps a list of what it was asked for.
template <class P>
class NumberedClip final : public runtime::InputProvider {
public:
    NumberedClip(runtime::Project project, int last) : project_(project), last_(last) {}

    ComPtr<IDSImage> imageAt(double seconds) override {
        const int number = static_cast<int>(std::lround(seconds * project_.frameRate));
        const std::lock_guard lock(mutex_);
        asked_.push_back(number);
        if (number < 0 || number > last_) return nullptr;
        return imageOf(project_, numberedPicture<P>(project_.width, project_.height, number));
    }

    /// The frames asked for since the last call.
    std::vector<int> takeAsked() {
        const std::lock_guard lock(mutex_);
        return std::exchange(asked_, {});
    }

private:
    runtime::Project project_;
    int last_;
    std::mutex mutex_;
    std::vector<int> asked_;
};

/// A signal without any trouble, on a player that adds none when it winds.
inline void makeClean(Renderer& renderer) {
    renderer.set(ParameterId::MasterBreakup, 0);
    renderer.set(ParameterId::BreakupVariation, 0);
    renderer.set(ParameterId::NumGhosts, 0);
    renderer.set(ParameterId::PlayMode, 1);
}

/// A clip, and a renderer of it.
template <class P>
struct ClipRenderer {
    explicit ClipRenderer(int last = 200, double rate = 25.0)
        : project{.width = 8, .height = 6, .frameRate = rate},
          clip(std::make_shared<NumberedClip<P>>(project, last)),
          renderer(project, clip) {
        makeClean(renderer);
    }

    /// The picture of output frame k.
    Picture<P> frame(int k) {
        return renderer.render(numberedPicture<P>(8, 6, k),
                               runtime::frameTime(k, project.frameRate));
    }

    runtime::Project project;
    std::shared_ptr<NumberedClip<P>> clip;
    Renderer renderer;
};

}  // namespace ruvex::test
