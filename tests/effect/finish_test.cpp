// Crop, channel mask, paint and scanlines in whole frames through the module.

#include <gtest/gtest.h>

#include "host/base/vx_ds_effect.h"
#include "tests/effect/support/clip_fixture.h"

namespace ruvex::test {
namespace {

template <class P>
class Finish : public testing::Test {
protected:
    const Picture<P> input_ = randomPicture<P>(24, 18, 21);
};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(Finish, FramePixels);

// A renderer whose effect is transparent black everywhere.
struct BlackRenderer : Renderer {
    explicit BlackRenderer(const GUID& family = DSFAMILY_Filter)
        : Renderer(kSmall, nullptr, family) {
        set(ParameterId::WhiteDot, 100);
    }
};

TYPED_TEST(Finish, CropEndsMayComeInAnyOrder) {
    for (const int edge : {0, 1, 2, 3}) {
        Renderer renderer(kSmall);
        makeClean(renderer);
        renderer.set(ParameterId::XEdgeMethod, edge);
        renderer.set(ParameterId::CropLeft, 25);
        renderer.set(ParameterId::CropRight, 75);
        const auto ordered = renderer.render(this->input_);
        renderer.set(ParameterId::CropLeft, 75);
        renderer.set(ParameterId::CropRight, 25);
        EXPECT_EQ(renderer.render(this->input_), ordered);
        EXPECT_NE(ordered, this->input_);
    }
}

TYPED_TEST(Finish, BothEdgesReflectUnlessToldOtherwise) {
    Renderer renderer(kSmall);
    makeClean(renderer);
    renderer.set(ParameterId::CropLeft, 50);
    renderer.set(ParameterId::CropTop, 50);
    const auto picture = renderer.render(this->input_);
    EXPECT_EQ(picture.at(12, 9), this->input_.at(12, 9));
    EXPECT_EQ(picture.at(11, 4), this->input_.at(12, 4));
    EXPECT_EQ(picture.at(8, 4), this->input_.at(15, 4));
    // Row 9 is the last of the window: (int)(18 * 0.5), inclusive.
    EXPECT_EQ(picture.at(14, 10), this->input_.at(14, 9));
    EXPECT_EQ(picture.at(14, 12), this->input_.at(14, 7));
}

TYPED_TEST(Finish, WrappingAndRepeatingEdges) {
    Renderer renderer(kSmall);
    makeClean(renderer);
    renderer.set(ParameterId::CropLeft, 50);
    renderer.set(ParameterId::CropBottom, 50);
    renderer.set(ParameterId::XEdgeMethod, 3);
    renderer.set(ParameterId::YEdgeMethod, 1);
    const auto picture = renderer.render(this->input_);
    EXPECT_EQ(picture.at(11, 12), this->input_.at(23, 12));
    EXPECT_EQ(picture.at(0, 12), this->input_.at(12, 12));
    EXPECT_EQ(picture.at(20, 0), this->input_.at(20, 9));
}

TYPED_TEST(Finish, CropColourAMeansNothing) {
    Renderer renderer(kSmall);
    makeClean(renderer);
    renderer.set(ParameterId::CropLeft, 50);
    renderer.set(ParameterId::XEdgeMethod, 0);
    renderer.set(ParameterId::CropColourR, 60);
    const auto without = renderer.render(this->input_);
    for (const double alpha : {1.0, 50.0, 100.0, 1e9}) {
        renderer.set(ParameterId::CropColourA, alpha);
        EXPECT_EQ(renderer.render(this->input_), without);
    }
    EXPECT_EQ(without.at(0, 0).c[3], 0);
}

TYPED_TEST(Finish, CropIsReadAtTheFramesTime) {
    Renderer renderer(kSmall);
    makeClean(renderer);
    renderer.animate(ParameterId::CropLeft, {{0.0, 0.0}, {1.0, 50.0}});
    renderer.set(ParameterId::DisplayCropped, 1);
    renderer.set(ParameterId::XEdgeMethod, 1);
    EXPECT_EQ(renderer.render(this->input_, 0.0), this->input_);
    EXPECT_EQ(renderer.render(this->input_, 0.5).at(0, 3), this->input_.at(6, 3));
    EXPECT_EQ(renderer.render(this->input_, 1.0).at(0, 3), this->input_.at(12, 3));
}

TYPED_TEST(Finish, ExtremeCropsAreHeldToThePicture) {
    for (const double value : {1e300, -1e300, 1e12, -50.0}) {
        for (const auto id : {ParameterId::CropLeft, ParameterId::CropTop}) {
            Renderer renderer(kSmall);
            makeClean(renderer);
            renderer.set(ParameterId::BlankCropped, 1);
            renderer.animate(id, {{0.0, value}});
            EXPECT_EQ(renderer.render(this->input_).pixels.size(), 24u * 18u);
        }
    }
}

TYPED_TEST(Finish, OnlyTheChannelsThatAreOffComeBack) {
    constexpr ParameterId kMasks[] = {ParameterId::MaskRed, ParameterId::MaskGreen,
                                      ParameterId::MaskBlue, ParameterId::MaskAlpha};
    for (int off = 0; off < 4; ++off) {
        BlackRenderer renderer;
        renderer.set(kMasks[off], 0);
        const auto picture = renderer.render(this->input_);
        for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
            TypeParam wanted{};
            wanted.c[off] = this->input_.pixels[i].c[off];
            ASSERT_EQ(picture.pixels[i], wanted);
        }
    }
}

TYPED_TEST(Finish, TheChannelMaskKeepsToTheRegion) {
    BlackRenderer renderer;
    renderer.set(ParameterId::MaskBlue, 0);
    const auto picture = renderer.render(this->input_, 0.0, DSRECT{5, 2, 7, 9});
    for (int y = 0; y < 18; ++y) {
        for (int x = 0; x < 24; ++x) {
            const bool inside = x >= 5 && x < 12 && y >= 2 && y < 11;
            EXPECT_EQ(picture.at(x, y).c[2], inside ? this->input_.at(x, y).c[2] : 0);
        }
    }
}

TYPED_TEST(Finish, KeysAndTransitionsHaveNoChannelMask) {
    for (const GUID& family : {DSFAMILY_WithoutInput, DSFAMILY_Transition}) {
        BlackRenderer renderer(family);
        renderer.set(ParameterId::MaskRed, 0);
        const auto picture =
            renderer.render(this->input_, 0.0, {}, [&](runtime::RenderRequest& request) {
                request.input2 = imageOf(kSmall, this->input_);
            });
        for (const TypeParam& pixel : picture.pixels) ASSERT_EQ(pixel, TypeParam{});
    }
}

TYPED_TEST(Finish, WithoutTheCapabilityThereIsNoChannelMask) {
    BlackRenderer renderer;
    renderer.set(ParameterId::MaskRed, 0);
    void* found = nullptr;
    auto& effect = renderer.session().effect();
    ASSERT_EQ(effect.QueryInterface(guidFromText("53A973D2-298B-11D3-AB9A-0000E8D8077F"), &found),
              S_OK);
    effect.Release();
    static_cast<VxDsEffect*>(found)->capabilityFlags &= ~64u;
    for (const TypeParam& pixel : renderer.render(this->input_).pixels) {
        ASSERT_EQ(pixel, TypeParam{});
    }
}

// A mask of one value everywhere, or of one value a column.
ComPtr<CDSMemoryImage> maskOf(int width, int height, const auto& value) {
    auto mask = runtime::makeImage(width, height, MFIF_A_RAW_8);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            mask->bytes()[y * width + x] = static_cast<std::byte>(value(x, y));
        }
    }
    return mask;
}

TYPED_TEST(Finish, PaintWithAMaskOfZeroIsTheInput) {
    BlackRenderer renderer(DSFAMILY_Paint);
    renderer.set(ParameterId::CropLeft, 40);
    const auto picture =
        renderer.render(this->input_, 0.0, {}, [](runtime::RenderRequest& request) {
            request.pixelMask = maskOf(24, 18, [](int, int) { return 0; });
        });
    EXPECT_EQ(picture, this->input_);
}

TYPED_TEST(Finish, PaintBlendsByTheMaskAtItsPlace) {
    BlackRenderer renderer(DSFAMILY_Paint);
    const auto value = [](int x, int y) { return (x * 40 + y * 7) % 256; };
    const auto picture =
        renderer.render(this->input_, 0.0, {}, [&](runtime::RenderRequest& request) {
            request.pixelMask = maskOf(10, 8, value);
            request.maskOffsetX = 6;
            request.maskOffsetY = 5;
        });
    for (int y = 0; y < 18; ++y) {
        for (int x = 0; x < 24; ++x) {
            const bool masked = x >= 6 && x < 16 && y >= 5 && y < 13;
            const int m = masked ? value(x - 6, y - 5) : 0;
            for (int k = 0; k < 4; ++k) {
                const int from = this->input_.at(x, y).c[k];
                EXPECT_EQ(picture.at(x, y).c[k], from + (0 - from) * m / 255) << x << ',' << y;
            }
        }
    }
}

TYPED_TEST(Finish, APaintMaskOfAnotherFormatIsNone) {
    BlackRenderer renderer(DSFAMILY_Paint);
    const auto picture =
        renderer.render(this->input_, 0.0, {}, [&](runtime::RenderRequest& request) {
            request.pixelMask = imageOf(kSmall, this->input_);
        });
    EXPECT_EQ(picture, this->input_);
}

TYPED_TEST(Finish, PaintNeverLooksAtAnotherFrame) {
    const auto clip = std::make_shared<NumberedClip<TypeParam>>(kSmall, 100);
    Renderer renderer(kSmall, clip, DSFAMILY_Paint);
    makeClean(renderer);
    renderer.set(ParameterId::PlaySpeed, 0);
    renderer.set(ParameterId::RepeatFrames, 5);
    const auto picture = renderer.render(
        numberedPicture<TypeParam>(24, 18, 33), 1.32, {}, [](runtime::RenderRequest& request) {
            request.pixelMask = maskOf(24, 18, [](int, int) { return 255; });
        });
    EXPECT_EQ(shownNumber(picture), 33);
    EXPECT_EQ(clip->takeAsked(), std::vector<int>());
}

TYPED_TEST(Finish, AStoppedRenderKeepsWhatItHas) {
    std::stop_source stop;
    stop.request_stop();
    runtime::EffectSession session(
        {.module = builtModule(), .project = kSmall, .stop = stop.get_token()});
    for (const auto id : {ParameterId::MaskRed, ParameterId::MaskGreen, ParameterId::MaskBlue}) {
        session.setValue(row(id).identifier, 0);
    }
    session.setValue(row(ParameterId::BlankCropped).identifier, 1);
    session.setValue(row(ParameterId::CropLeft).identifier, 50);
    auto output = imageOf(kSmall, this->input_);
    runtime::RenderRequest request;
    request.input = imageOf(kSmall, randomPicture<TypeParam>(24, 18, 22));
    request.output = output;
    session.render(request);
    EXPECT_TRUE(session.interrupted());
    EXPECT_EQ(pictureOf<TypeParam>(*output), this->input_);
}

// The darkest and the brightest value of a column of a white picture, and its period.
TYPED_TEST(Finish, ScanlinesOfAWidth) {
    Renderer renderer(kSmall);
    makeClean(renderer);
    const auto white = numberedPicture<TypeParam>(24, 18, 199);
    for (const int width : {0, 1}) {
        renderer.set(ParameterId::ScanlineWidth, width);
        EXPECT_EQ(renderer.render(white), white) << width;
    }
    for (const int width : {2, 4, 5}) {
        renderer.set(ParameterId::ScanlineWidth, width);
        const auto picture = renderer.render(white);
        for (int y = 0; y < 18; ++y) {
            const float factor =
                static_cast<float>(y % width) / static_cast<float>(width) * 0.75f + 0.25f;
            for (int k = 0; k < 4; ++k) {
                EXPECT_EQ(picture.at(7, y).c[k], static_cast<int>(200.0f * factor)) << y;
            }
        }
    }
}

TYPED_TEST(Finish, ScanlinesFollowTheScaleOfTheRender) {
    // Rendered at half the height of the project, a width of 2 is 1 row, and of 6 is 3.
    const runtime::Project project{.width = 48, .height = 36};
    Renderer renderer(project);
    makeClean(renderer);
    const auto white = numberedPicture<TypeParam>(24, 18, 199);
    for (const int width : {2, 3}) {
        renderer.set(ParameterId::ScanlineWidth, width);
        EXPECT_EQ(renderer.render(white), white) << width;
    }
    renderer.set(ParameterId::ScanlineWidth, 6);
    const auto picture = renderer.render(white);
    EXPECT_EQ(picture.at(0, 3), (numberedPicture<TypeParam>(1, 1, 49).at(0, 0)));
    EXPECT_EQ(picture.at(0, 5), (numberedPicture<TypeParam>(1, 1, 149).at(0, 0)));
}

TYPED_TEST(Finish, ScanlinesAreDrawnAfterScalingUp) {
    Renderer renderer(kSmall);
    makeClean(renderer);
    renderer.set(ParameterId::Resolution, 50);
    renderer.set(ParameterId::ScanlineWidth, 3);
    const auto picture = renderer.render(numberedPicture<TypeParam>(24, 18, 199));
    for (int y = 0; y < 18; ++y) EXPECT_EQ(picture.at(5, y).c[0], 50 * (y % 3 + 1));
}

TYPED_TEST(Finish, WhereTheHostPlacesTheOutputTheLinesAreTheSame) {
    Renderer renderer(kSmall);
    makeClean(renderer);
    renderer.set(ParameterId::ScanlineWidth, 4);
    const auto white = numberedPicture<TypeParam>(24, 18, 199);
    const auto plain = renderer.render(white);
    auto output = runtime::makeProjectImage(kSmall, 24, 18, formatOf<TypeParam>());
    output->setWorldOrigin({5.0f, 3.0f});
    runtime::RenderRequest request;
    request.input = imageOf(kSmall, white);
    request.output = output;
    renderer.session().render(request);
    EXPECT_EQ(pictureOf<TypeParam>(*output), plain);
}

}  // namespace
}  // namespace ruvex::test
