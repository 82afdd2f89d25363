// The fish eye in whole frames.

#include <gtest/gtest.h>

#include "tests/effect/support/clip_fixture.h"
#include "tests/effect/support/poor_project.h"

namespace ruvex::test {
namespace {

constexpr runtime::Project kProject{.width = 64, .height = 48};

template <class P>
class FishEye : public testing::Test {
protected:
    FishEye() : renderer_(kProject) {
        makeClean(renderer_);
        renderer_.set(ParameterId::FishEye, 1);
        renderer_.set(ParameterId::FishEyeRadius, 20);
    }

    Picture<P> render() { return renderer_.render(input_); }

    const Picture<P> input_ = randomPicture<P>(64, 48, 31);
    Renderer renderer_;
};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(FishEye, FramePixels);

TYPED_TEST(FishEye, WithoutPowerThereIsNone) {
    // The television's float sees no more than 0.1 in the third.
    for (const double power : {0.0, 0.1, -0.1, 0.1 + 1e-12}) {
        this->renderer_.set(ParameterId::FishEyePower, power);
        EXPECT_EQ(this->render(), this->input_) << power;
    }
}

TYPED_TEST(FishEye, WithPowerThePictureMovesInsideTheEllipseAlone) {
    for (const double power : {40.0, -40.0, 500.0, -500.0}) {
        for (const int filter : {0, 1}) {
            this->renderer_.set(ParameterId::FishEyePower, power);
            this->renderer_.set(ParameterId::Filter, filter);
            const auto picture = this->render();
            int moved = 0;
            for (int y = 0; y < 48; ++y) {
                for (int x = 0; x < 64; ++x) {
                    const double dx = x + 0.5 - 32, dy = y + 0.5 - 24;
                    const bool outside = dx * dx + dy * dy >= 400.0;
                    if (outside) {
                        EXPECT_EQ(picture.at(x, y), this->input_.at(x, y));
                    }
                    moved += picture.at(x, y) != this->input_.at(x, y);
                }
            }
            EXPECT_GT(moved, 500) << power;
        }
    }
}

TYPED_TEST(FishEye, PositivePowerMagnifiesTheCentre) {
    this->renderer_.set(ParameterId::FishEyePower, 40);
    const auto picture = this->render();
    // 8.5 pixels from the centre; the exponent is exp(-0.4).
    const double q = (8.5 * 8.5 + 0.5 * 0.5) / 400.0, k = std::exp(-0.4);
    const double t = k / (1 - q + k * q);
    EXPECT_EQ(picture.at(40, 24), this->input_.at(static_cast<int>(32 + 8.5 * t), 24));
    EXPECT_LT(t, 0.8);
}

TYPED_TEST(FishEye, SwitchedOffPowerMeansNothing) {
    this->renderer_.set(ParameterId::FishEye, 0);
    this->renderer_.set(ParameterId::FishEyePower, 400);
    EXPECT_EQ(this->render(), this->input_);
}

TYPED_TEST(FishEye, ARadiusOfNothingMovesNothing) {
    this->renderer_.set(ParameterId::FishEyeRadius, 0);
    EXPECT_EQ(this->render(), this->input_);
}

TYPED_TEST(FishEye, WithoutAProjectSizeThereIsNoLens) {
    this->renderer_.set(ParameterId::FishEyePower, 40);
    EXPECT_NE(this->render(), this->input_);
    EXPECT_EQ(renderWithContent(this->renderer_, this->input_, {}), this->input_);
}

TYPED_TEST(FishEye, AtReducedResolutionTheLensShrinksWithThePicture) {
    this->renderer_.set(ParameterId::Resolution, 50);
    this->renderer_.set(ParameterId::FishEyePower, 0);
    const auto flat = this->render();
    this->renderer_.set(ParameterId::FishEyePower, 80);
    const auto picture = this->render();
    int moved = 0;
    for (int y = 0; y < 48; ++y) {
        for (int x = 0; x < 64; ++x) {
            const double dx = x + 0.5 - 32, dy = y + 0.5 - 24;
            if (dx * dx + dy * dy >= 22.0 * 22.0) {
                EXPECT_EQ(picture.at(x, y), flat.at(x, y));
            }
            moved += picture.at(x, y) != flat.at(x, y);
        }
    }
    EXPECT_GT(moved, 500);
}

TYPED_TEST(FishEye, ExtremeKeysGiveSomePicture) {
    for (const double power : {1e300, -1e300, 1e5, -1e5}) {
        for (const double radius : {1e300, 20.0, 1e-40}) {
            for (const int filter : {0, 1}) {
                this->renderer_.animate(ParameterId::FishEyePower, {{0.0, power}});
                this->renderer_.animate(ParameterId::FishEyeRadius, {{0.0, radius}});
                this->renderer_.set(ParameterId::Filter, filter);
                EXPECT_EQ(this->render().pixels.size(), this->input_.pixels.size());
            }
        }
    }
}

}  // namespace
}  // namespace ruvex::test
