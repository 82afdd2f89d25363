// A source and a target that share memory give the picture of two that lie apart.

#include <cstdlib>
#include <gtest/gtest.h>

#include "tests/imaging/support/workers.h"
#include "tests/stages/property/placed_case.h"

namespace ruvex::test {
namespace {

template <class P>
class SharedMemory : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(SharedMemory, FramePixels);

// Rows of a canvas as a picture of their own, maybe upside down.
template <class P>
struct Rows {
    Canvas<P>& canvas;
    int first, count;
    bool upsideDown;

    int rowOf(int y) const { return first + (upsideDown ? count - 1 - y : y); }
    void show(VxTexture<P>& texture) const {
        texture.wrap(canvas.width(), count, &canvas.at(0, rowOf(0)));
        texture.stride = upsideDown ? -canvas.texture.stride : canvas.texture.stride;
    }
    void copyTo(Canvas<P>& other) const {
        for (int y = 0; y < count; ++y) {
            for (int x = 0; x < canvas.width(); ++x) other.at(x, y) = canvas.at(x, rowOf(y));
        }
    }
    void copyFrom(Canvas<P>& other) const {
        for (int y = 0; y < count; ++y) {
            for (int x = 0; x < canvas.width(); ++x) canvas.at(x, rowOf(y)) = other.at(x, y);
        }
    }
};

/// Shows the same source on two sets: the second one's pictures lie `distance` rows apart in one
/// memory. Gives where that differs from the first one's.
template <class P>
std::string differenceFromApart(Television<P>& apart, Random& random, int distance) {
    const int width = apart.source.width(), height = apart.source.height();
    Canvas<P> memory(width, height + std::abs(distance), {.upsideDown = random.chance(30)});
    memory.scribble(random);
    const Rows<P> from{memory, std::max(-distance, 0), height, false};
    const Rows<P> to{memory, std::max(distance, 0), height, random.chance(20)};

    Television<P> shared(width, height);
    shared.signal = apart.signal;
    shared.aspect = apart.aspect;
    shared.window = apart.window;
    from.show(shared.source.texture);
    to.show(shared.target.texture);
    shared.inPlace = distance == 0 && !to.upsideDown && random.chance(50);

    from.copyTo(apart.source);
    to.copyTo(apart.target);
    apart.run();
    const std::vector<P> before = memory.memory;
    shared.run();
    const std::vector<P> got = memory.memory;
    memory.memory = before;
    to.copyFrom(apart.target);
    return firstDifference(got, memory.memory);
}

template <class P>
void compareShared(int count, int (*distanceOf)(Random&, int height)) {
    for (int i = 0; i < count; ++i) {
        Random random(static_cast<std::uint32_t>(i) + 1);
        Workers fixed(random.whole(1, 5));
        auto set = randomTelevision<P>(random);
        if (random.chance(70)) chooseFaults<P>(random, set->signal);
        if (random.chance(20)) chooseWindow(random, *set);
        set->keepWindow = false;
        const int distance = distanceOf(random, set->source.height());
        ASSERT_EQ(differenceFromApart(*set, random, distance), "")
            << "case " << i << ", " << distance << " rows apart";
    }
}

TYPED_TEST(SharedMemory, TheSamePicture) {
    compareShared<TypeParam>(cases(150), [](Random&, int) { return 0; });
}

TYPED_TEST(SharedMemory, PicturesThatOverlapBySomeRows) {
    compareShared<TypeParam>(
        cases(150), [](Random& random, int height) { return random.whole(-height, height); });
}

// What keeps the passes from reading what they wrote differs from fault to fault.
TYPED_TEST(SharedMemory, EachFaultAlone) {
    using Choose = void (*)(Random&, SignalParameters&);
    const Choose faults[] = {
        [](Random&, SignalParameters&) {},
        [](Random& random, SignalParameters& signal) { chooseTransport(random, signal); },
        [](Random& random, SignalParameters& signal) { chooseShash(random, signal); },
        [](Random&, SignalParameters& signal) { signal.whiteDot = 0.01f; },
        chooseGuns,
        chooseGhosts,
        chooseRoll,
        chooseSnow,
    };
    for (const Choose& choose : faults) {
        for (int i = 0; i < cases(20); ++i) {
            Random random(static_cast<std::uint32_t>(i) + 1);
            Workers fixed(random.whole(1, 3));
            auto set = randomTelevision<TypeParam>(random);
            choose(random, set->signal);
            const int distance = i % 3 - 1;
            ASSERT_EQ(differenceFromApart(*set, random, distance), "")
                << "fault " << &choose - faults << ", case " << i;
        }
    }
}

}  // namespace
}  // namespace ruvex::test
