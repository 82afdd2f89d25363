// The channel mask and the paint step against twins that give one pixel.

#include <gtest/gtest.h>

#include "host/base/channel_mask.h"
#include "host/base/paint.h"
#include "tests/host/support/plain_effect.h"
#include "tests/host/twins/finish_twin.h"
#include "tests/imaging/property/imager_case.h"

namespace ruvex::test {
namespace {

template <class P>
class FinishProperty : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(FinishProperty, FramePixels);

// Pictures of any size and place with a random region of work.
template <class P>
struct FinishCase {
    explicit FinishCase(Random& random)
        : input(randomCanvas<P>(random)),
          output(randomCanvas<P>(random)),
          mask(randomCanvas<Channel8>(random)),
          effect(output->width(), output->height()),
          workers(random.whole(1, 9)) {
        // Host images have whole places; the mask covers its own place without edges.
        input->texture.setOrigin(random.whole(-6, 6), random.whole(-6, 6));
        mask->texture.setOrigin(random.whole(-4, 4), random.whole(-4, 4));
        mask->texture.setRange(0, mask->width(), 0, mask->height());
        for (Channel8& m : mask->memory) {
            if (random.chance(50)) m.c[0] = random.chance(50) ? 0 : 255;
        }
        if (random.chance(5)) input->texture.clear();
        if (random.chance(5)) mask->texture.clear();
        if (random.chance(60)) {
            effect.region = {random.whole(-4, 9), random.whole(-2, 19), random.whole(-4, 9),
                             random.whole(-2, 19)};
        }
        effect.alphaMaskable = 1;
        if (random.chance(50)) {
            effect.fieldHandling = FieldHandling::SkipRows;
            effect.fieldSelector = random.whole(0, 2);
        }
    }

    twin::WindowTwin window(const twin::Corners& corners) const {
        const int field =
            effect.fieldHandling == FieldHandling::SkipRows ? effect.fieldSelector : 0;
        return twin::windowTwin(output->texture, corners, field, workers);
    }

    // Runs `step` and compares all memory with pixel(x, y, before) inside the window.
    void check(const twin::WindowTwin& w, const auto& pixel, const auto& step) {
        std::vector<P> wanted = output->memory;
        for (int y = 0; y < output->height(); ++y) {
            for (int x = 0; x < output->width(); ++x) {
                P& to = wanted[output->indexOf(x, y)];
                if (w.writes(x, y)) to = pixel(x, y, to);
            }
        }
        const Workers fixed(workers);
        step();
        ASSERT_EQ(firstDifference(output->memory, wanted), "");
    }

    std::unique_ptr<Canvas<P>> input, output;
    std::unique_ptr<Canvas<Channel8>> mask;
    PlainEffect effect;
    int workers;
};

TYPED_TEST(FinishProperty, TheChannelMaskIsTheTwins) {
    forSeeds(70000, 800, [](Random& random) {
        FinishCase<TypeParam> given(random);
        bool on[4];
        for (bool& channel : on) channel = random.chance(50);
        const PixelRegion& r = given.effect.region;
        const TexAxis &x = given.input->texture.x, &y = given.input->texture.y;
        // The window is what the region, the input and the output share; without such a part there
        // is none.
        const twin::Corners corners{
            std::max({r.x0, x.origin, 0}), std::max({r.y0, y.origin, 0}),
            std::min({r.x1, x.origin + x.size - 1, given.output->width() - 1}),
            std::min({r.y1, y.origin + y.size - 1, given.output->height() - 1})};
        twin::WindowTwin window = given.window(corners);
        if (corners.left > corners.right || corners.top > corners.bottom) window.x1 = window.x0;
        given.check(
            window,
            [&](int px, int py, const TypeParam& before) {
                return twin::maskedTwin(before, twin::wholeImageAt(given.input->texture, px, py),
                                        on);
            },
            [&] {
                fixChannelMask(given.effect, given.output->texture, given.input->texture,
                               {on[0], on[1], on[2], on[3]});
            });
    });
}

TYPED_TEST(FinishProperty, ThePaintTableIsTheTwins) {
    forSeeds(80000, 800, [](Random& random) {
        FinishCase<TypeParam> given(random);
        const PixelRegion& r = given.effect.region;
        given.check(
            given.window({r.x0, r.y0, r.x1, r.y1}),
            [&](int px, int py, const TypeParam& before) {
                return twin::paintedTwin(before, twin::wholeImageAt(given.input->texture, px, py),
                                         twin::wholeImageAt<Channel8>(given.mask->texture, px, py));
            },
            [&] {
                paintThroughMask(given.effect, given.output->texture, given.input->texture,
                                 given.mask->texture);
            });
    });
}

}  // namespace
}  // namespace ruvex::test
