// The crop box of the OpenFX plug-in, in an OpenGL context off screen that stands for a host's.

#include "adapters/openfx/overlay/crop_box.h"

#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>

#include "runtime/headless_context.h"
#include "sdk/open_gl/open_gl.h"

namespace ruvex::openfx {
namespace {

constexpr int kWindowWidth = 300, kWindowHeight = 220;

struct Colour {
    int red, green, blue;

    /// Drivers round halves in either way.
    friend bool operator==(const Colour& a, const Colour& b) {
        return std::abs(a.red - b.red) <= 1 && std::abs(a.green - b.green) <= 1 &&
               std::abs(a.blue - b.blue) <= 1;
    }
};
constexpr Colour kBlack{0, 0, 0};
constexpr Colour kYellow{230, 230, 26};
constexpr Colour kCyan{26, 230, 230};
constexpr Colour kMagenta{230, 26, 230};

/// A part of a window, and the part of the plane in it.
struct Viewer {
    int x = 0, y = 0, width = kWindowWidth, height = kWindowHeight;
    double left = 0, bottom = 0, planeWidth = kWindowWidth, planeHeight = kWindowHeight;

    int pixelX(double plane) const {
        return static_cast<int>(std::floor(x + (plane - left) / planeWidth * width));
    }
    int pixelY(double plane) const {
        return static_cast<int>(std::floor(y + (plane - bottom) / planeHeight * height));
    }
};

class CropBoxTest : public testing::Test {
protected:
    void SetUp() override { clear(); }

    static void clear() {
        gl().glViewport(0, 0, kWindowWidth, kWindowHeight);
        gl().glClearColor(0, 0, 0, 0);
        gl().glClear(GL_COLOR_BUFFER_BIT);
    }

    static void show(const Viewer& viewer) {
        clear();
        gl().glViewport(viewer.x, viewer.y, viewer.width, viewer.height);
        gl().glMatrixMode(GL_PROJECTION);
        gl().glLoadIdentity();
        gl().glOrtho(viewer.left, viewer.left + viewer.planeWidth, viewer.bottom,
                     viewer.bottom + viewer.planeHeight, -1, 1);
        gl().glMatrixMode(GL_MODELVIEW);
        gl().glLoadIdentity();
    }

    static Colour pixel(int x, int y) {
        unsigned char read[4] = {};
        gl().glReadPixels(x, y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, read);
        return {read[0], read[1], read[2]};
    }

    /// The column within a pixel of `x` that has the colour at height `y`; -1 for none.
    static int columnNear(int x, int y, Colour colour) {
        for (const int column : {x, x - 1, x + 1}) {
            if (pixel(column, y) == colour) return column;
        }
        return -1;
    }
    static int rowNear(int x, int y, Colour colour) {
        for (const int row : {y, y - 1, y + 1}) {
            if (pixel(x, row) == colour) return row;
        }
        return -1;
    }

    static int drawnPixels() {
        int count = 0;
        for (int y = 0; y < kWindowHeight; ++y) {
            for (int x = 0; x < kWindowWidth; ++x) count += pixel(x, y) == kBlack ? 0 : 1;
        }
        return count;
    }

    runtime::HeadlessContext context_{open(), kWindowHeight};
    runtime::CurrentContext current_{context_};

private:
    static int open() { return openGl() ? kWindowWidth : 0; }
};

constexpr Crop kCrop{.left = 25, .right = 75, .bottom = 20, .top = 90};

TEST_F(CropBoxTest, LinesLieWhereTheHostShowsThePicture) {
    // A view in a part of the window, one and a half pixels for a unit of the plane.
    const Viewer viewer{.x = 30,
                        .y = 20,
                        .width = 240,
                        .height = 180,
                        .left = -10,
                        .bottom = -5,
                        .planeWidth = 160,
                        .planeHeight = 120};
    show(viewer);
    CropBox box({.left = 4, .bottom = 6, .width = 120, .height = 100});
    box.setCrop(kCrop);
    ASSERT_TRUE(box.draw());
    const int middleX = viewer.pixelX(4 + 60), middleY = viewer.pixelY(6 + 55);
    EXPECT_NE(columnNear(viewer.pixelX(4 + 30), middleY, kYellow), -1);
    EXPECT_NE(columnNear(viewer.pixelX(4 + 90), middleY, kCyan), -1);
    EXPECT_NE(rowNear(middleX, viewer.pixelY(6 + 20), kMagenta), -1);
    EXPECT_EQ(pixel(middleX, middleY), kBlack);
}

TEST_F(CropBoxTest, WidePixelsMakeAWiderBox) {
    const Viewer viewer{};
    show(viewer);
    CropBox box({.left = 0, .bottom = 0, .width = 100, .height = 100, .pixelAspect = 2.0});
    box.setCrop(kCrop);
    ASSERT_TRUE(box.draw());
    EXPECT_NE(columnNear(viewer.pixelX(50), 50, kYellow), -1);
    EXPECT_NE(columnNear(viewer.pixelX(150), 50, kCyan), -1);
    EXPECT_NE(rowNear(100, viewer.pixelY(20), kMagenta), -1);
}

TEST_F(CropBoxTest, NothingIsDrawnOutsideTheViewport) {
    const Viewer viewer{.x = 100,
                        .y = 80,
                        .width = 60,
                        .height = 60,
                        .left = 20,
                        .bottom = 10,
                        .planeWidth = 60,
                        .planeHeight = 60};
    show(viewer);
    CropBox box({.width = 200, .height = 200});
    box.setCrop({.left = 20, .right = 75, .bottom = 20, .top = 90});
    ASSERT_TRUE(box.draw());
    EXPECT_GT(drawnPixels(), 0);
    for (int y = 0; y < kWindowHeight; ++y) {
        for (int x = 0; x < kWindowWidth; ++x) {
            const bool inside = x >= 100 && x < 160 && y >= 80 && y < 140;
            if (!inside) {
                ASSERT_EQ(pixel(x, y), kBlack) << x << ", " << y;
            }
        }
    }
}

TEST_F(CropBoxTest, AScissorOfTheHostIsKept) {
    show({});
    CropBox box({.width = 200, .height = 200});
    box.setCrop(kCrop);
    gl().glEnable(GL_SCISSOR_TEST);
    gl().glScissor(0, 0, 20, 20);
    ASSERT_TRUE(box.draw());
    GLint scissor[4] = {};
    gl().glGetIntegerv(GL_SCISSOR_BOX, scissor);
    EXPECT_EQ(scissor[2], 20);
    EXPECT_TRUE(gl().glIsEnabled(GL_SCISSOR_TEST));
    gl().glDisable(GL_SCISSOR_TEST);
    EXPECT_EQ(drawnPixels(), 0);
}

TEST_F(CropBoxTest, TheHostsMatricesAndViewportStay) {
    const Viewer viewer{.x = 10,
                        .y = 10,
                        .width = 200,
                        .height = 200,
                        .left = 3,
                        .bottom = 4,
                        .planeWidth = 77,
                        .planeHeight = 77};
    show(viewer);
    CropBox box({.width = 50, .height = 50});
    const auto before = currentView();
    ASSERT_TRUE(before);
    ASSERT_TRUE(box.draw());
    const auto after = currentView();
    ASSERT_TRUE(after);
    EXPECT_EQ(after->x, 10);
    EXPECT_EQ(after->width, 200);
    EXPECT_EQ(after->left, before->left);
    EXPECT_EQ(after->planeHeight, before->planeHeight);
    EXPECT_FALSE(gl().glIsEnabled(GL_SCISSOR_TEST));
}

TEST_F(CropBoxTest, AViewThatIsTurnedOrMirroredIsRefused) {
    show({});
    CropBox box({.width = 50, .height = 50});
    gl().glRotatef(30, 0, 0, 1);
    EXPECT_FALSE(box.draw());
    gl().glLoadIdentity();
    gl().glScalef(1, -1, 1);
    EXPECT_FALSE(box.draw());
    gl().glScalef(0, 0, 0);
    EXPECT_FALSE(box.draw());
    gl().glLoadIdentity();
    EXPECT_TRUE(box.draw());
}

TEST_F(CropBoxTest, ADragChangesTheEdgeOnRelease) {
    const Viewer viewer{};
    show(viewer);
    CropBox box({.left = 20, .bottom = 10, .width = 200, .height = 200});
    box.setCrop(kCrop);
    ASSERT_TRUE(box.draw());
    EXPECT_TRUE(box.press(20 + 50, 100));
    EXPECT_TRUE(box.isDragging());
    box.move(20 + 60, 100);
    EXPECT_EQ(box.crop(), kCrop);
    show(viewer);
    ASSERT_TRUE(box.draw());
    EXPECT_NE(columnNear(viewer.pixelX(80), 100, {255, 255, 255}), -1);
    // The host's values do not move a line that is dragged.
    box.setCrop({});
    box.release(20 + 60, 100);
    EXPECT_FALSE(box.isDragging());
    EXPECT_NEAR(box.crop().left, 30, 1e-3);
    EXPECT_EQ(box.crop().right, 75);
}

TEST_F(CropBoxTest, APressIsTakenWhereThePenHasBeenBefore) {
    show({});
    CropBox box({.width = 200, .height = 200});
    box.setCrop(kCrop);
    ASSERT_TRUE(box.draw());
    box.move(50, 110);
    EXPECT_TRUE(box.press(50, 110));
    box.move(40, 110);
    box.release();
    EXPECT_NEAR(box.crop().left, 20, 1e-3);
    EXPECT_FALSE(box.press(100, 110));
    EXPECT_TRUE(box.press(40, 110));
    box.release(40, 110);
    EXPECT_NEAR(box.crop().left, 20, 1e-3);
}

TEST_F(CropBoxTest, APressBesideTheLinesIsNotTaken) {
    show({});
    CropBox box({.width = 200, .height = 200});
    box.setCrop(kCrop);
    ASSERT_TRUE(box.draw());
    EXPECT_FALSE(box.press(100, 110));
    EXPECT_FALSE(box.isDragging());
    box.release(100, 110);
    EXPECT_EQ(box.crop(), kCrop);
}

TEST_F(CropBoxTest, ThePenOverALineAsksForARedraw) {
    show({});
    CropBox box({.width = 200, .height = 200});
    box.setCrop(kCrop);
    ASSERT_TRUE(box.draw());
    box.takeRedraw();
    box.move(100, 110);
    EXPECT_FALSE(box.takeRedraw());
    box.move(50, 110);
    EXPECT_TRUE(box.takeRedraw());
    EXPECT_FALSE(box.takeRedraw());
}

TEST_F(CropBoxTest, ValuesThatAreNotFiniteAreThoseOfTheWholePicture) {
    show({});
    CropBox box({.width = 200, .height = 200});
    box.setCrop({.left = std::nan(""), .right = INFINITY, .bottom = -INFINITY, .top = 50});
    EXPECT_EQ(box.crop(), (Crop{.left = 0, .right = 100, .bottom = 0, .top = 50}));
    EXPECT_TRUE(box.draw());
}

TEST(CropBoxView, NoContextIsNoView) {
    EXPECT_FALSE(currentView());
}

}  // namespace
}  // namespace ruvex::openfx
