// Whole frames through the module, as the host asks for them.

#include <gtest/gtest.h>
#include <thread>

#include "imaging/tex_axis.h"
#include "runtime/error.h"
#include "tests/effect/support/poor_project.h"

namespace ruvex::test {
namespace {

template <class P>
class Frame : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(Frame, FramePixels);

template <class P>
bool allZero(const Picture<P>& picture) {
    return std::all_of(picture.pixels.begin(), picture.pixels.end(),
                       [](const P& p) { return p == P{}; });
}

TYPED_TEST(Frame, NeutralParametersGiveBackTheInput) {
    const std::pair<int, int> sizes[] = {{1, 1}, {1, 9}, {7, 1}, {7, 3}, {64, 48}, {719, 575}};
    for (const auto& [width, height] : sizes) {
        SCOPED_TRACE(testing::Message() << width << "x" << height);
        Renderer renderer({.width = width, .height = height});
        const auto input = randomPicture<TypeParam>(width, height, 7);
        EXPECT_EQ(renderer.render(input, 0.48), input);
    }
}

TYPED_TEST(Frame, NeutralParametersGiveBackTheLargestUsualInput) {
    Renderer renderer({.width = 4096, .height = 2160});
    const auto input = randomPicture<TypeParam>(4096, 2160, 8);
    EXPECT_TRUE(renderer.render(input) == input);
}

TYPED_TEST(Frame, WhiteDotBeyond99IsTransparentBlackWhateverElseIsSet) {
    Renderer renderer(kSmall);
    const auto input = randomPicture<TypeParam>(24, 18, 1);
    renderer.set(ParameterId::WhiteDot, 99.5);
    EXPECT_TRUE(allZero(renderer.render(input)));
    renderer.set(ParameterId::MasterBreakup, 0);
    renderer.set(ParameterId::Resolution, 50);
    EXPECT_TRUE(allZero(renderer.render(input)));
}

TYPED_TEST(Frame, ResolutionBelowOnePercentIsTransparentBlack) {
    Renderer renderer(kSmall);
    const auto input = randomPicture<TypeParam>(24, 18, 2);
    renderer.set(ParameterId::Resolution, 0.5);
    EXPECT_TRUE(allZero(renderer.render(input)));
}

TYPED_TEST(Frame, AnimatedResolutionAndWhiteDotAreClampedToTheirRange) {
    Renderer renderer(kSmall);
    const auto input = randomPicture<TypeParam>(24, 18, 3);
    renderer.animate(ParameterId::Resolution, {{0.0, 250.0}});
    renderer.animate(ParameterId::WhiteDot, {{0.0, -40.0}});
    EXPECT_EQ(renderer.render(input), input);
    renderer.animate(ParameterId::WhiteDot, {{0.0, 400.0}});
    EXPECT_TRUE(allZero(renderer.render(input)));
}

TYPED_TEST(Frame, ResolutionOneStillRenders) {
    Renderer renderer({.width = 200, .height = 200});
    const auto input = randomPicture<TypeParam>(200, 200, 4);
    renderer.set(ParameterId::Resolution, 1);
    const auto picture = renderer.render(input);
    // Two by two pixels, each the nearest one of the source: 100 pixels wide and high.
    EXPECT_EQ(picture.at(0, 0), input.at(50, 50));
    EXPECT_EQ(picture.at(99, 99), input.at(50, 50));
    EXPECT_EQ(picture.at(100, 0), input.at(150, 50));
    EXPECT_EQ(picture.at(199, 199), input.at(150, 150));
}

TYPED_TEST(Frame, HalfResolutionShowsBlocksOfTwoByTwo) {
    Renderer renderer(kSmall);
    const auto input = randomPicture<TypeParam>(24, 18, 5);
    renderer.set(ParameterId::Resolution, 50);
    const auto picture = renderer.render(input);
    for (int y = 0; y < 18; ++y) {
        for (int x = 0; x < 24; ++x) {
            EXPECT_EQ(picture.at(x, y), input.at(x / 2 * 2 + 1, y / 2 * 2 + 1));
        }
    }
}

TYPED_TEST(Frame, ResolutionJustBelow100TakesTheScaledPath) {
    Renderer renderer({.width = 100, .height = 100});
    const auto input = randomPicture<TypeParam>(100, 100, 6);
    renderer.set(ParameterId::Resolution, 99.99);
    const auto picture = renderer.render(input);
    // The work size is 99 by 99: its last column and row stand in for the missing ones.
    EXPECT_NE(picture, input);
    EXPECT_EQ(picture.at(99, 50), picture.at(98, 50));
}

TYPED_TEST(Frame, APictureTooSmallForTheResolutionIsBlank) {
    Renderer renderer({.width = 1, .height = 1});
    renderer.set(ParameterId::Resolution, 50);
    testing::internal::CaptureStderr();
    EXPECT_TRUE(allZero(renderer.render(randomPicture<TypeParam>(1, 1, 1))));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Map passed into Sampler::process is bogus\n"
              "Map passed into Generator::process is bogus\n");
}

TYPED_TEST(Frame, ABlurOfATenthIsSkippedAndOneJustAboveItRuns) {
    Renderer renderer(kSmall);
    const auto input = randomPicture<TypeParam>(24, 18, 31);
    renderer.set(ParameterId::Blur, 0.1);
    EXPECT_EQ(renderer.render(input), input);
    renderer.set(ParameterId::Blur, 0.13);
    EXPECT_NE(renderer.render(input), input);
}

TYPED_TEST(Frame, ABlurEvensOutAndKeepsAConstantPicture) {
    Renderer renderer({.width = 60, .height = 40});
    auto input = randomPicture<TypeParam>(60, 40, 32);
    const auto spread = [](const Picture<TypeParam>& picture) {
        double sum = 0.0;
        for (std::size_t i = 1; i < picture.pixels.size(); ++i) {
            sum += std::abs(picture.pixels[i].c[0] - picture.pixels[i - 1].c[0]);
        }
        return sum;
    };
    renderer.set(ParameterId::Blur, 6);
    EXPECT_LT(spread(renderer.render(input)), spread(input) / 4.0);
    std::fill(input.pixels.begin(), input.pixels.end(), TypeParam{{90, 91, 92, 93}});
    EXPECT_EQ(renderer.render(input), input);
}

TYPED_TEST(Frame, OutsideTheRegionTheOutputKeepsWhatItHad) {
    Renderer renderer(kSmall);
    const auto input = randomPicture<TypeParam>(24, 18, 9);
    for (const double resolution : {100.0, 50.0}) {
        renderer.set(ParameterId::Resolution, resolution);
        const auto whole = renderer.render(input);
        const auto part = renderer.render(input, 0.0, DSRECT{4, 6, 10, 8});
        for (int y = 0; y < 18; ++y) {
            for (int x = 0; x < 24; ++x) {
                const bool inside = x >= 4 && x < 14 && y >= 6 && y < 14;
                EXPECT_EQ(part.at(x, y), inside ? whole.at(x, y) : TypeParam{})
                    << x << "," << y << " at " << resolution;
            }
        }
    }
}

TYPED_TEST(Frame, ACroppedInputIsReadThroughItsEdgeMethods) {
    Renderer renderer(kSmall);
    const auto input = randomPicture<TypeParam>(24, 18, 10);
    renderer.set(ParameterId::CropLeft, 50);
    renderer.set(ParameterId::XEdgeMethod, kEdgeHold);
    auto picture = renderer.render(input);
    EXPECT_EQ(picture.at(0, 3), input.at(12, 3));
    EXPECT_EQ(picture.at(20, 3), input.at(20, 3));
    renderer.set(ParameterId::XEdgeMethod, kEdgeFill);
    renderer.set(ParameterId::CropColourG, 50);
    renderer.set(ParameterId::CropColourA, 100);
    picture = renderer.render(input);
    const TypeParam fill{
        {0, static_cast<typename TypeParam::Component>(sizeof(TypeParam) == 4 ? 127 : 8192), 0, 0}};
    EXPECT_EQ(picture.at(11, 0), fill);
}

TYPED_TEST(Frame, AtReducedResolutionTheEdgeColourIsNotCarriedOver) {
    Renderer renderer(kSmall);
    renderer.set(ParameterId::CropLeft, 50);
    renderer.set(ParameterId::XEdgeMethod, kEdgeFill);
    renderer.set(ParameterId::CropColourG, 50);
    renderer.set(ParameterId::Resolution, 50);
    EXPECT_EQ(renderer.render(randomPicture<TypeParam>(24, 18, 11)).at(2, 2), TypeParam{});
}

TYPED_TEST(Frame, DisplayCroppedShowsTheCroppedInputWhateverTheEffectDoes) {
    Renderer renderer(kSmall);
    const auto input = randomPicture<TypeParam>(24, 18, 12);
    renderer.set(ParameterId::DisplayCropped, 1);
    renderer.set(ParameterId::WhiteDot, 100);
    renderer.set(ParameterId::Resolution, 10);
    EXPECT_EQ(renderer.render(input), input);
}

TYPED_TEST(Frame, BlankCroppedClearsWhatLiesOutside) {
    Renderer renderer(kSmall);
    const auto input = randomPicture<TypeParam>(24, 18, 13);
    renderer.set(ParameterId::BlankCropped, 1);
    EXPECT_EQ(renderer.render(input), input) << "the default crop covers the whole picture";
    renderer.set(ParameterId::CropLeft, 75);
    renderer.set(ParameterId::CropRight, 25);
    renderer.set(ParameterId::CropTop, 50);
    for (const int displayed : {0, 1}) {
        renderer.set(ParameterId::DisplayCropped, displayed);
        const auto picture = renderer.render(input);
        for (int y = 0; y < 18; ++y) {
            for (int x = 0; x < 24; ++x) {
                const bool inside = x >= 6 && x < 18 && y < 9;
                EXPECT_EQ(picture.at(x, y), inside ? input.at(x, y) : TypeParam{});
            }
        }
    }
}

TYPED_TEST(Frame, WithoutAnInputThereIsNothingToSee) {
    Renderer renderer(kSmall, nullptr, DSFAMILY_WithoutInput);
    const auto input = randomPicture<TypeParam>(24, 18, 14);
    for (const double resolution : {100.0, 30.0}) {
        renderer.set(ParameterId::Resolution, resolution);
        const auto picture = renderer.render(
            input, 0.0, {}, [](runtime::RenderRequest& request) { request.input = nullptr; });
        EXPECT_TRUE(allZero(picture));
    }
}

// Verify refuses formats that do not go together. A host that does not call it gets these pictures.
void executeUnverified(IDSImageEffect& effect, IDSImage& input, IDSImage& output) {
    EXPECT_EQ(effect.Setup(), S_OK);
    EXPECT_EQ(effect.SetInput(&input), S_OK);
    EXPECT_EQ(effect.SetOutput(&output), S_OK);
    EXPECT_EQ(effect.Verify(), E_INVALIDARG);
    EXPECT_EQ(effect.Execute(0.0), S_OK);
    EXPECT_EQ(effect.Cleanup(), S_OK);
}

TYPED_TEST(Frame, AnInputOfTheOtherFormatIsNotRead) {
    Renderer renderer(kSmall);
    const bool deep = sizeof(TypeParam) == sizeof(RgbaS214);
    const auto other = runtime::makeImage(24, 18, deep ? MFIF_RGBA_RAW_32 : MFIF_RGBA_S2_14);
    std::memset(other->bytes(), 55, other->byteCount());
    const auto output = imageOf(kSmall, randomPicture<TypeParam>(24, 18, 15));
    const auto scope = renderer.session().enter();
    executeUnverified(renderer.session().effect(), *other, *output);
    EXPECT_TRUE(allZero(pictureOf<TypeParam>(*output)));
}

TYPED_TEST(Frame, AnInputThatIsNotReadyIsNotRead) {
    Renderer renderer(kSmall);
    const auto input = randomPicture<TypeParam>(24, 18, 16);
    const auto picture = renderer.render(input, 0.0, {}, [&](runtime::RenderRequest& request) {
        auto image = imageOf(renderer.project(), input);
        image->setStatus(E_FAIL);
        request.input = image;
    });
    EXPECT_TRUE(allZero(picture));
}

TYPED_TEST(Frame, AnUnreadableProjectSizeStillGivesAPicture) {
    Renderer renderer(kSmall);
    const auto input = randomPicture<TypeParam>(24, 18, 17);
    EXPECT_EQ(renderWithContent(renderer, input, {}), input);
    renderer.set(ParameterId::Resolution, 50);
    EXPECT_TRUE(allZero(renderWithContent(renderer, input, {})));
}

TYPED_TEST(Frame, ARenderAtAnotherSizeThanTheProjectScalesTheWorkSize) {
    // Half the project's size in X and Y: at Resolution 50 the work size is half the input's.
    Renderer renderer({.width = 48, .height = 36, .pixelAspect = 1.5});
    const auto input = randomPicture<TypeParam>(24, 18, 18);
    renderer.set(ParameterId::Resolution, 50);
    const auto picture = renderer.render(input);
    for (int y = 0; y < 18; ++y) {
        for (int x = 0; x < 24; ++x) {
            EXPECT_EQ(picture.at(x, y), input.at(x / 2 * 2 + 1, y / 2 * 2 + 1));
        }
    }
}

TYPED_TEST(Frame, EightClonesAtOnceRenderWhatOneRendersAlone) {
    Renderer renderer({.width = 97, .height = 61});
    const auto input = randomPicture<TypeParam>(97, 61, 19);
    renderer.animate(ParameterId::Resolution, {{0.0, 100.0}, {8.0, 20.0}});
    renderer.animate(ParameterId::CropLeft, {{0.0, 0.0}, {8.0, 40.0}});
    std::vector<Picture<TypeParam>> alone;
    for (int k = 0; k < 8; ++k) alone.push_back(renderer.render(input, k));

    std::vector<Picture<TypeParam>> together(8);
    std::vector<std::thread> threads;
    for (int k = 0; k < 8; ++k) {
        threads.emplace_back([&, k, session = renderer.session().clone()]() mutable {
            runtime::RenderRequest request;
            request.seconds = k;
            request.input = imageOf(renderer.project(), input);
            auto output =
                runtime::makeProjectImage(renderer.project(), 97, 61, formatOf<TypeParam>());
            request.output = output;
            session.render(request);
            together[static_cast<std::size_t>(k)] = pictureOf<TypeParam>(*output);
        });
    }
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(together, alone);
}

TEST(FrameFormat, AnUnknownOutputFormatLeavesTheOutputAlone) {
    Renderer renderer(kSmall);
    const auto input = imageOf(kSmall, randomPicture<Rgba8>(24, 18, 20));
    const auto output = runtime::makeImage(24, 18, MFIF_A_RAW_8);
    std::memset(output->bytes(), 77, output->byteCount());
    const auto scope = renderer.session().enter();
    executeUnverified(renderer.session().effect(), *input, *output);
    EXPECT_EQ(output->bytes()[100], std::byte{77});
}

TEST(FrameFormat, ASessionRefusesToRenderFromOneFormatIntoAnother) {
    Renderer renderer(kSmall);
    runtime::RenderRequest request;
    request.input = runtime::makeImage(24, 18, MFIF_RGBA_RAW_32);
    request.output = runtime::makeImage(24, 18, MFIF_RGBA_S2_14);
    EXPECT_THROW(renderer.session().render(request), runtime::StatusError);
}

TEST(FrameRegion, ASessionRefusesARegionThatBeginsOutsideThePicture) {
    Renderer renderer(kSmall);
    const auto input = randomPicture<Rgba8>(24, 18, 23);
    for (const DSRECT outside :
         {DSRECT{-1, 0, 9, 9}, DSRECT{0, -1, 9, 9}, DSRECT{24, 0, 9, 9}, DSRECT{0, 18, 9, 9}}) {
        EXPECT_THROW(renderer.render(input, 0.0, outside), runtime::StatusError);
    }
    EXPECT_EQ(renderer.render(input, 0.0, DSRECT{23, 17, 9, 9}).at(23, 17), input.at(23, 17));
}

}  // namespace
}  // namespace ruvex::test
