// Whole frames with parameters, times and places far beyond what anyone would set: every picture is
// defined, and the same each time.

#include <gtest/gtest.h>

#include "parameters/ruvex_interface.h"
#include "tests/effect/support/clip_fixture.h"
#include "tests/imaging/support/random.h"

namespace ruvex::test {
namespace {

using Id = ParameterId;

constexpr std::array kExtremes{1e300, -1e300, 1e39, -1e39, 1e10, -1e10, 2147483648.0, -1e-300, 0.0};
constexpr std::array kRates{1.0, 23.976, 25.0, 60000.0 / 1001, 120.0, 1000.0};
constexpr std::array kFamilies{DSFAMILY_Filter, DSFAMILY_WithoutInput, DSFAMILY_Paint};
constexpr std::array kPlaces{0.0f, 1.0f, -3.0f, 7.5f, 1e6f, -2147483648.0f, 2147483520.0f, 1e30f};

double extreme(Random& random) {
    return random.chance(60) ? random.oneOf(kExtremes) : random.real(-1e4f, 1e4f);
}

// One parameter, within its range, at its ends or far outside. Sizes of work stay small: what a
// frame may cost is not the question here.
void shake(Random& random, Renderer& renderer, const ParameterRow& r) {
    if (!isReal(r.kind)) {
        const auto range = r.enteredRange();
        // Every ghost is a pass over the picture: their number stays one that can be waited for.
        const bool cheap = !isCheckBox(r.kind) && r.id != ParameterId::NumGhosts;
        const bool wild = cheap && random.chance(20);
        const int high = isCheckBox(r.kind) ? 1 : range ? static_cast<int>(range->high) : 6;
        renderer.set(r.id, wild ? random.whole(INT32_MIN, INT32_MAX) : random.whole(0, high));
        return;
    }
    const Range range = r.enteredRange().value_or(Range{-100, 100});
    const auto value = [&] {
        if (random.chance(40)) return extreme(random);
        return range.low + (range.high - range.low) * random.real(0.0f, 1.0f);
    };
    if (random.chance(50)) {
        renderer.set(r.id, value());
    } else {
        renderer.animate(r.id, {{random.real(-2.0f, 2.0f), value()}, {2.5, value()}});
    }
}

template <class P>
class ExtremeFrames : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(ExtremeFrames, FramePixels);

template <class P>
struct Shot {
    explicit Shot(Random& random)
        : project{.width = random.whole(1, 40),
                  .height = random.whole(1, 30),
                  .pixelAspect = random.chance(50) ? 1.0 : random.real(0.1f, 4.0f),
                  .frameRate = random.oneOf(kRates)},
          input(randomPicture<P>(random.whole(1, 40), random.whole(1, 30), random.bits())),
          outputWidth(random.chance(70) ? input.width : random.whole(1, 40)),
          outputHeight(random.chance(70) ? input.height : random.whole(1, 30)) {
        time = random.chance(70) ? random.whole(-3, 60) / project.frameRate : random.real(-9, 9);
        const auto place = [&] {
            const float value = random.oneOf(kPlaces);
            return random.chance(60) ? 0.0f : value;
        };
        inputPlace = {place(), place()};
        outputPlace = {place(), place()};
        if (random.chance(40)) {
            // It begins in the output and may end outside.
            region = DSRECT{random.whole(0, outputWidth - 1), random.whole(0, outputHeight - 1),
                            random.whole(1, 50), random.whole(1, 50)};
            if (random.chance(10)) region->height = INT32_MAX;
        }
        maskX = random.chance(80) ? random.whole(-5, 5) : INT32_MAX;
    }

    Picture<P> render(Renderer& renderer) const {
        runtime::RenderRequest request;
        request.seconds = time;
        auto image = imageOf(project, input);
        image->setWorldOrigin(inputPlace);
        request.input = image;
        request.input2 = imageOf(project, input);
        request.pixelMask = runtime::makeImage(9, 7, MFIF_A_RAW_8);
        request.maskOffsetX = maskX;
        auto output = runtime::makeProjectImage(project, outputWidth, outputHeight, formatOf<P>());
        output->setWorldOrigin(outputPlace);
        request.output = output;
        request.region = region;
        renderer.session().render(request);
        return pictureOf<P>(*output);
    }

    runtime::Project project;
    Picture<P> input;
    int outputWidth, outputHeight;
    double time = 0.0;
    DSFloatPair inputPlace{}, outputPlace{};
    std::optional<DSRECT> region;
    LONG maskX = 0;
};

TYPED_TEST(ExtremeFrames, EveryPictureIsDefinedAndTheSameEachTime) {
    for (int i = 0; i < cases(400); ++i) {
        SCOPED_TRACE("case " + std::to_string(i));
        Random random(110000 + static_cast<std::uint32_t>(i));
        const Shot<TypeParam> shot(random);
        Renderer renderer(shot.project, std::make_shared<NumberedClip<TypeParam>>(shot.project, 50),
                          random.oneOf(kFamilies));
        for (const ParameterRow& r : parameterTable()) {
            // The rest keep their defaults: all of them wild at once would mostly be a blank.
            if (random.chance(25)) shake(random, renderer, r);
        }
        static_cast<IRuvexControl*>(renderer.session().ownInterface(kRuvexControlId))
            ->setWorkerCount(random.whole(1, 9));
        testing::internal::CaptureStderr();
        const auto first = shot.render(renderer);
        const auto second = shot.render(renderer);
        testing::internal::GetCapturedStderr();
        ASSERT_EQ(first, second);
    }
}

}  // namespace
}  // namespace ruvex::test
