// Pictures of the crop box in the viewer.

#include <cstring>
#include <tuple>
#include <utility>

#include "runtime/coordinate_manager.h"
#include "runtime/images.h"
#include "tests/drawing/drawing_test.h"
#include "tests/tool/tool_test.h"

namespace ruvex::test {
namespace {

constexpr VxColour kLeft{0.9f, 0.9f, 0.1f};
constexpr VxColour kRight{0.1f, 0.9f, 0.9f};
constexpr VxColour kBottom{0.9f, 0.1f, 0.9f};
constexpr VxColour kTop{1.0f, 0.5f, 0.2f};

/// Half as many pixels as the project frame has, on each axis.
class CropDrawing : public ToolTest {
protected:
    static constexpr int kWidth = 100;
    static constexpr int kHeight = 60;

    CropDrawing() : ToolTest({.width = 200, .height = 120}) { surface->setWorld(0, 0, 200, 120); }

    Picture picture() {
        surface->clear(0, 0, 0);
        EXPECT_EQ(viewer->render(*surface), S_OK);
        return Picture(*surface, kWidth);
    }

    /// The columns of a row, from left to right, that are not empty.
    static std::vector<int> drawnColumns(const Picture& shown, int y) {
        std::vector<int> columns;
        for (int x = 0; x < kWidth; ++x) {
            if (!shows(shown.at(x, y), kEmpty)) columns.push_back(x);
        }
        return columns;
    }

    ComPtr<runtime::HeadlessSurface> surface = runtime::HeadlessSurface::create(kWidth, kHeight);
};

TEST_F(CropDrawing, OfABoxAtTheFramesBordersOneOfTwoPixelsIsSeen) {
    const Picture shown = picture();
    EXPECT_THAT(shown.at(0, 30), Shows(kLeft));
    EXPECT_THAT(shown.at(98, 30), Shows(kRight));
    EXPECT_THAT(shown.at(50, 0), Shows(kBottom));
    EXPECT_THAT(shown.at(50, 58), Shows(kTop));
    EXPECT_EQ(drawnColumns(shown, 30), (std::vector{0, 98}));
    for (int i = 0; i < kWidth; ++i) EXPECT_THAT(shown.at(i, 59), IsEmpty());
    for (int i = 0; i < kHeight; ++i) EXPECT_THAT(shown.at(99, i), IsEmpty());
}

TEST_F(CropDrawing, LinesAreTwoPixelsWideAndSpanTheFrame) {
    set(ParameterId::CropLeft, 40);
    set(ParameterId::CropRight, 60);
    set(ParameterId::CropBottom, 30);
    set(ParameterId::CropTop, 70);
    const Picture shown = picture();
    const std::vector<int> columns = drawnColumns(shown, 5);
    ASSERT_EQ(columns.size(), 4u);
    EXPECT_EQ(columns[1], columns[0] + 1);
    EXPECT_EQ(columns[3], columns[2] + 1);
    EXPECT_NEAR(columns[0], 39, 1);
    EXPECT_NEAR(columns[2], 59, 1);
    EXPECT_THAT(shown.at(columns[0], 5), Shows(kLeft));
    EXPECT_THAT(shown.at(columns[1], 57), Shows(kLeft));
    EXPECT_THAT(shown.at(columns[2], 5), Shows(kRight));
}

TEST_F(CropDrawing, LaterLinesAreDrawnOverEarlierOnes) {
    set(ParameterId::CropLeft, 40);
    set(ParameterId::CropBottom, 30);
    set(ParameterId::CropTop, 30);
    const Picture shown = picture();
    const int column = drawnColumns(shown, 5)[1];
    int row = 0;
    while (shows(shown.at(column, row), kLeft)) ++row;
    EXPECT_THAT(shown.at(column, row), Shows(kTop)) << "over the bottom line and the left one";
}

TEST_F(CropDrawing, UnderThePenALineHasTwoColoursAndIsWhiteWhenPressed) {
    set(ParameterId::CropLeft, 40);
    move(80, 60);
    Picture shown = picture();
    const std::vector<int> columns = drawnColumns(shown, 30);
    ASSERT_EQ(columns.size(), 3u) << "two, and the right border";
    std::string dashes;
    for (int y = 8; y < 32; ++y) {
        const Pixel pixel = shown.at(columns[0], y);
        EXPECT_TRUE(shows(pixel, kLeft) || shows(pixel, paletteWhite)) << pixel;
        dashes += shows(pixel, kLeft) ? 'l' : 'w';
    }
    const std::string period = "llllwwww";
    const std::string pattern = period + period + period + period;
    EXPECT_NE(pattern.find(dashes.substr(0, 24)), std::string::npos) << dashes;
    for (const auto& [x, y, colour] :
         {std::tuple{98, 30, kRight}, {20, 0, kBottom}, {20, 58, kTop}}) {
        EXPECT_THAT(shown.at(x, y), Shows(colour)) << "dashes and gaps have one colour";
    }
    press(80, 60);
    shown = picture();
    for (int y = 2; y < 56; ++y) EXPECT_THAT(shown.at(columns[1], y), Shows(paletteWhite));
    EXPECT_THAT(shown.at(98, 30), Shows(kRight));
    release(80, 60);
    move(20, 20);
    shown = picture();
    for (int y = 2; y < 56; ++y) EXPECT_THAT(shown.at(columns[1], y), Shows(kLeft));
}

/// Draws with the width that the box has left behind.
class Follower final : public VxTObject {
public:
    Follower() : VxTObject("Follower") {}
    VxHit hit(const VxPosition&, const VxPosition&) override { return kMiss; }
    std::int32_t drag(const VxPosition&) override { return 0; }
    void draw() override {
        gl().glGetDoublev(GL_LINE_WIDTH, &width);
        GLint mode = 0;
        gl().glGetIntegerv(GL_MATRIX_MODE, &mode);
        EXPECT_EQ(mode, GL_MODELVIEW);
    }

    double width = 0;
};

TEST_F(CropDrawing, TheLineWidthIsOneAgain) {
    Follower follower;
    tool().addObject(&follower);
    picture();
    EXPECT_EQ(follower.width, 1.0);
}

TEST_F(CropDrawing, AHiddenBoxDrawsNothing) {
    const auto guns = open(kGunsPageId);
    EXPECT_EQ(picture().drawn(), 0);
}

/// A project with wide pixels, and an input that covers a part of the frame.
class CropOfAPart : public ToolTest {
protected:
    static constexpr int kWidth = 720, kHeight = 576;
    static constexpr double kAspect = 16.0 / 11.0;
    /// The input's place in the frame, in pixels.
    static constexpr LONG kInputX = 120, kInputY = 96, kInputWidth = 400, kInputHeight = 320;

    CropOfAPart() : ToolTest({.width = kWidth, .height = kHeight, .pixelAspect = kAspect}) {}

    /// An image at a place of the frame, in pixels.
    static ComPtr<CDSMemoryImage> imageAt(LONG x, LONG y, LONG width, LONG height) {
        const auto image = runtime::makeImage(width, height, MFIF_RGBA_RAW_32);
        const auto world = [](LONG pixels) { return static_cast<float>(pixels / kAspect); };
        image->setWorldOrigin({static_cast<float>(x), world(y)});
        image->setWorldSize({static_cast<float>(width), world(height)});
        return image;
    }

    /// The picture of the frame: the input is black, and what the crop takes away has the crop
    /// colour, blue. Rows from the bottom up.
    std::vector<std::uint8_t> renderCropped() {
        const auto project = session->enter();
        const auto input = imageAt(kInputX, kInputY, kInputWidth, kInputHeight);
        const auto output = imageAt(0, 0, kWidth, kHeight);
        const auto coordinates = runtime::makeCoordinateManager(
            {.width = kWidth, .height = kHeight, .pixelAspect = kAspect}, kWidth, kHeight);
        IDSImageEffect& effect = session->effect();
        EXPECT_EQ(effect.Setup(), S_OK);
        EXPECT_EQ(effect.SetSampleRate(25.0), S_OK);
        EXPECT_EQ(effect.SetCoordMan(coordinates.get()), S_OK);
        EXPECT_EQ(effect.SetInput(input.get()), S_OK);
        EXPECT_EQ(effect.SetOutput(output.get()), S_OK);
        // The frame is rendered from the input's low corner on; the rest stays grey.
        std::memset(output->bytes(), 0x55, output->byteCount());
        EXPECT_EQ(effect.Execute(0.0), S_OK);
        effect.Cleanup();
        const auto* const bytes = reinterpret_cast<const std::uint8_t*>(output->bytes());
        return {bytes, bytes + output->byteCount()};
    }
};

/// The first and the last of `count` positions at which something holds.
template <class Holds>
std::pair<int, int> extentOf(int count, Holds holds) {
    int first = 0;
    while (first < count && !holds(first)) ++first;
    int last = count - 1;
    while (last >= 0 && !holds(last)) --last;
    return {first, last};
}

TEST_F(CropOfAPart, TheLinesLieOnTheCropAsItIsRendered) {
    set(ParameterId::XEdgeMethod, 0);
    set(ParameterId::YEdgeMethod, 0);
    set(ParameterId::CropColourB, 100);
    set(ParameterId::DisplayCropped, 1);
    set(ParameterId::CropLeft, 20);
    set(ParameterId::CropRight, 85);
    set(ParameterId::CropBottom, 10);
    set(ParameterId::CropTop, 60);
    const std::vector<std::uint8_t> rendered = renderCropped();
    page->show();
    EXPECT_EQ(tool().sourceSize.y, kInputHeight);

    const auto surface = runtime::HeadlessSurface::create(kWidth, kHeight);
    surface->setWorld(0, 0, kWidth, kHeight / kAspect);
    ASSERT_EQ(viewer->render(*surface), S_OK);
    const Picture shown(*surface, kWidth);

    // Black, unlike the crop colour and what is not rendered.
    const auto isPicture = [&](int x, int y) {
        const std::uint8_t* const pixel = &rendered[static_cast<std::size_t>(4 * (y * kWidth + x))];
        return pixel[0] == 0 && pixel[1] == 0 && pixel[2] == 0;
    };
    const int middleX = kInputX + kInputWidth / 2, middleY = kInputY + kInputHeight / 3;
    const auto columns = extentOf(kWidth, [&](int x) { return isPicture(x, middleY); });
    const auto rows = extentOf(kHeight, [&](int y) { return isPicture(middleX, y); });
    EXPECT_NEAR(columns.first, kInputX + 0.2 * kInputWidth, 1);
    EXPECT_NEAR(rows.second + 1, kInputY + 0.6 * kInputHeight, 1);

    // The picture's outermost pixel is one of the line's two, or beside them.
    const auto expectLine = [](std::pair<int, int> pixels, int outermost) {
        EXPECT_EQ(pixels.second, pixels.first + 1);
        EXPECT_GE(outermost, pixels.first - 1);
        EXPECT_LE(outermost, pixels.second + 1);
    };
    const auto line = [&](const VxColour& colour, bool column) {
        return extentOf(column ? kWidth : kHeight, [&](int i) {
            return shows(column ? shown.at(i, middleY) : shown.at(middleX, i), colour);
        });
    };
    expectLine(line(kLeft, true), columns.first);
    expectLine(line(kRight, true), columns.second);
    expectLine(line(kBottom, false), rows.first);
    expectLine(line(kTop, false), rows.second);
}

}  // namespace
}  // namespace ruvex::test
