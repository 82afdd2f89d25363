// Which noise is softened row by row, without a picture of it, and that it is the same noise.

#include <functional>
#include <gtest/gtest.h>
#include <limits>

#include "stages/rgb_noise_proc.h"
#include "tests/imaging/support/workers.h"
#include "tests/stages/support/television.h"
#include "tests/stages/twins/snow_twin.h"
#include "tests/support/watched_new.h"

namespace ruvex::test {
namespace {

constexpr float kDenormal = std::numeric_limits<float>::denorm_min();
constexpr float kSmallest = std::numeric_limits<float>::min();

struct SoftCase {
    const char* name;
    bool rowsAlone;  ///< no picture of the noise is made
    std::function<void(NoiseTwin&)> change;
};

void soften(NoiseTwin& noise, float softness) {
    for (float& size : noise.softX) size = softness;
}

const SoftCase kCases[] = {
    {"softened along rows", true, [](NoiseTwin&) {}},
    {"grey", true, [](NoiseTwin& n) { n.colour = false; }},
    {"another aspect", false, [](NoiseTwin& n) { n.aspect = 1.0000001f; }},
    {"another aspect, grey", false,
     [](NoiseTwin& n) {
         n.colour = false;
         n.aspect = 0.5f;
     }},
    {"no aspect", false, [](NoiseTwin& n) { n.aspect = -1.0f; }},
    {"green harder", false, [](NoiseTwin& n) { n.softX[1] = 2.0f; }},
    {"blue hard", false, [](NoiseTwin& n) { n.softX[2] = 0.0f; }},
    {"alpha softer", false, [](NoiseTwin& n) { n.softX[3] = 9.0f; }},
    {"red hard", false, [](NoiseTwin& n) { n.softX[0] = 0.0f; }},
    {"grey takes red's", true,
     [](NoiseTwin& n) {
         n.colour = false;
         n.softX[1] = n.softX[3] = 7.0f;
     }},
    {"along columns too", false,
     [](NoiseTwin& n) {
         for (float& size : n.softY) size = 2.0f;
     }},
    {"alpha along columns", false, [](NoiseTwin& n) { n.softY[3] = 2.0f; }},
    {"grey along columns", false,
     [](NoiseTwin& n) {
         n.colour = false;
         n.softY[0] = 2.0f;
     }},
    {"no alpha", false, [](NoiseTwin& n) { n.alpha = false; }},
    {"grey without alpha", true,
     [](NoiseTwin& n) {
         n.colour = false;
         n.alpha = false;
     }},
    {"a third of it is nothing", false, [](NoiseTwin& n) { soften(n, kDenormal); }},
    {"a third of it rounds up", true, [](NoiseTwin& n) { soften(n, 2 * kDenormal); }},
    {"denormal", true, [](NoiseTwin& n) { soften(n, kSmallest / 2); }},
    {"below a pixel", true, [](NoiseTwin& n) { soften(n, 0.3f); }},
    {"wider than the picture", true, [](NoiseTwin& n) { soften(n, 500.0f); }},
    {"far wider", true, [](NoiseTwin& n) { soften(n, 1e9f); }},
};

template <class P>
class SoftRows : public testing::Test {
protected:
    static constexpr int kWidth = 120;
    static constexpr int kHeight = 90;

    static NoiseTwin softNoise() {
        NoiseTwin noise;
        noise.alpha = true;
        noise.seed = 4711;
        noise.sparseness = 0.1f;
        for (int k = 0; k < 4; ++k) {
            noise.low[k] = -0.6f;
            noise.high[k] = 0.6f;
        }
        soften(noise, 4.0f);
        return noise;
    }

    /// Adds the noise to a canvas; gives the bytes that it took.
    static std::uint64_t run(const NoiseTwin& noise, Canvas<P>& canvas) {
        VxRGBNoiseProc<P> processor;
        using Mode = typename VxRGBNoiseProc<P>::Mode;
        processor.mode = noise.colour ? Mode::Colour : Mode::Grey;
        processor.alpha = noise.alpha;
        processor.seed = noise.seed;
        processor.sparseness = noise.sparseness;
        processor.scaleX = noise.aspect;
        for (int k = 0; k < 4; ++k) {
            processor.softX[k] = noise.softX[k];
            processor.softY[k] = noise.softY[k];
            processor.amountMin[k] = noise.low[k];
            processor.amountMax[k] = noise.high[k];
        }
        const std::uint64_t before = allocatedBytes();
        processor.process(canvas.texture, canvas.texture);
        return allocatedBytes() - before;
    }
};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(SoftRows, FramePixels);

TYPED_TEST(SoftRows, AreTheGeneratorsNoise) {
    for (const SoftCase& soft : kCases) {
        SCOPED_TRACE(soft.name);
        Workers one(1);
        NoiseTwin noise = this->softNoise();
        soft.change(noise);
        Canvas<TypeParam> canvas(this->kWidth, this->kHeight);
        Random random(5);
        canvas.scribble(random);
        TwinPicture<TypeParam> wanted(0, 0, canvas.width(), canvas.height());
        wanted.area().forEach([&](int x, int y) { wanted.at(x, y) = canvas.at(x, y); });
        NoiseOver<TypeParam>(noise, wanted, wanted.area()).run();

        const std::uint64_t taken = this->run(noise, canvas);
        const std::size_t pixel = noise.colour ? sizeof(RgbaInt) : sizeof(ChannelInt);
        const std::uint64_t picture = pixel * this->kWidth * this->kHeight;
        EXPECT_EQ(taken < picture, soft.rowsAlone) << taken << " of " << picture << " bytes";
        int different = 0;
        wanted.area().forEach(
            [&](int x, int y) { different += !(canvas.at(x, y) == wanted.at(x, y)); });
        EXPECT_EQ(different, 0);
    }
}

}  // namespace
}  // namespace ruvex::test
