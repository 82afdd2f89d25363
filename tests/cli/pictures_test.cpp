// What the pictures of the documents show, measured on the pictures themselves.

#include <algorithm>
#include <cmath>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>

#include "media/stills/raw_frame.h"
#include "media/stills/still_file.h"
#include "tests/cli/run_command.h"
#include "tests/cli/xml_check.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

using media::Depth;
using media::Frame;

constexpr int kColours = 3;

Frame picture(const std::string& name) {
    return media::readStill(RUVEX_PICTURES "/" + name + ".png").frame;
}

const std::uint8_t* at(const Frame& frame, int x, int y) {
    return frame.row8(y) + x * media::kChannels;
}

bool sameColour(const std::uint8_t* a, const std::uint8_t* b) {
    return std::equal(a, a + kColours, b);
}

/// Squared distance of a pixel's centre from the lens's, in radii: 1 at its border.
double lensDistance(int x, int y, double radius) {
    const double dx = (x + 0.5 - 160.0) / radius;
    const double dy = (y + 0.5 - 120.0) / radius;
    return dx * dx + dy * dy;
}

TEST(Pictures, AreSmall) {
    for (const char* name :
         {"grid", "fish-eye-bulge", "fish-eye-pinch", "scene", "edge-colour", "edge-repeat",
          "edge-reflect", "edge-wrap", "mask", "coarse", "soft-mask", "scanlines"}) {
        EXPECT_EQ(picture(name).size(), (media::FrameSize{320, 240})) << name;
        const std::string file = RUVEX_PICTURES "/" + std::string(name) + ".png";
        EXPECT_LT(std::filesystem::file_size(file), 60000u) << name;
    }
}

class FishEye : public testing::TestWithParam<const char*> {};

TEST_P(FishEye, LeavesTheGridStraightOutsideTheEllipse) {
    const Frame grid = picture("grid");
    const Frame lens = picture(GetParam());
    int inside = 0;
    int moved = 0;
    for (int y = 0; y < 240; ++y) {
        for (int x = 0; x < 320; ++x) {
            const bool same = sameColour(at(grid, x, y), at(lens, x, y));
            if (lensDistance(x, y, 100.0) >= 1.0) {
                EXPECT_TRUE(same) << x << " " << y;
            } else {
                ++inside;
                moved += same ? 0 : 1;
            }
        }
    }
    EXPECT_GT(moved, inside / 6) << "of " << inside;
}

INSTANTIATE_TEST_SUITE_P(Powers, FishEye, testing::Values("fish-eye-bulge", "fish-eye-pinch"));

/// A ramp that says at each pixel where it was read: red 32 a column, green 32 a row.
Frame rampFrame(media::FrameSize size) {
    Frame frame(size, Depth::S214);
    for (int y = 0; y < size.height; ++y) {
        for (int x = 0; x < size.width; ++x) {
            std::int16_t* pixel = frame.row16(y) + x * media::kChannels;
            pixel[0] = static_cast<std::int16_t>(32 * x);
            pixel[1] = static_cast<std::int16_t>(32 * y);
            pixel[3] = media::kWhiteS214;
        }
    }
    return frame;
}

class FishEyeBorder : public testing::TestWithParam<const char*> {};

// How far a pixel is read from its own place shrinks to nothing towards the border.
TEST_P(FishEyeBorder, IsContinuous) {
    files::TempFolder folder;
    media::writeRawFrame(folder.file("in.s214"), rampFrame({320, 240}));
    const Outcome outcome =
        ruvex({"render", folder.file("in.s214"), "-o", folder.file("out.s214"), "--size", "320x240",
               "--set", "Master Breakup=0", "--set", "Breakup Variation=0", "--set", "Fish Eye=on",
               "--set", "Filter=on", "--set", "Fish Eye Radius=100", "--set",
               std::string("Fish Eye Power=") + GetParam()});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const Frame out = media::readRawFrame(folder.file("out.s214"), {320, 240}, Depth::S214);
    double most = 0.0;
    for (int y = 0; y < 240; ++y) {
        for (int x = 0; x < 320; ++x) {
            const std::int16_t* pixel = out.row16(y) + x * media::kChannels;
            const double shift = std::hypot(pixel[0] / 32.0 - x, pixel[1] / 32.0 - y);
            const double below = 100.0 * (1.0 - std::sqrt(lensDistance(x, y, 100.0)));
            // 3.5 pixels a pixel is the steepest that these lenses are at their border.
            EXPECT_LE(shift, below > 0.0 ? 3.5 * below + 0.1 : 0.0) << x << " " << y;
            most = std::max(most, shift);
        }
    }
    EXPECT_GT(most, 10.0);
}

INSTANTIATE_TEST_SUITE_P(Powers, FishEyeBorder, testing::Values("100", "-60"));

// The crop of the pictures; the last column and row belong to it.
constexpr int kLeft = 96;
constexpr int kRight = 224;
constexpr int kBottom = 72;
constexpr int kTop = 168;

int held(int i, int low, int high) {
    return std::clamp(i, low, high);
}
int wrapped(int i, int low, int high) {
    const int count = high - low + 1;
    return low + ((i - low) % count + count) % count;
}
int reflected(int i, int low, int high) {
    while (i < low || i > high) i = i < low ? 2 * low - 1 - i : 2 * high + 1 - i;
    return i;
}

void expectReads(const std::string& name, int (*place)(int, int, int)) {
    const Frame scene = picture("scene");
    const Frame cropped = picture(name);
    for (int y = 0; y < 240; ++y) {
        for (int x = 0; x < 320; ++x) {
            ASSERT_TRUE(sameColour(at(cropped, x, y),
                                   at(scene, place(x, kLeft, kRight), place(y, kBottom, kTop))))
                << name << " " << x << " " << y;
        }
    }
}

TEST(Edges, RepeatHoldsTheNearestPixel) {
    expectReads("edge-repeat", held);
}

TEST(Edges, ReflectTurnsBackAtTheEdge) {
    expectReads("edge-reflect", reflected);
}

TEST(Edges, WrapStartsOver) {
    expectReads("edge-wrap", wrapped);
}

TEST(Edges, ColourIsTheCropColourBeyondTheCrop) {
    const Frame scene = picture("scene");
    const Frame cropped = picture("edge-colour");
    // 70, 20 and 50 % of 255, truncated.
    const std::uint8_t colour[] = {178, 51, 127};
    for (int y = 0; y < 240; ++y) {
        for (int x = 0; x < 320; ++x) {
            const bool inside = x >= kLeft && x <= kRight && y >= kBottom && y <= kTop;
            ASSERT_TRUE(sameColour(at(cropped, x, y), inside ? at(scene, x, y) : colour))
                << x << " " << y;
        }
    }
}

TEST(Pictures, TheSoftMaskBlendsTheSceneWithTheEffect) {
    const Frame scene = picture("scene");
    const Frame coarse = picture("coarse");
    const Frame mask = picture("mask");
    const Frame painted = picture("soft-mask");
    int soft = 0;
    for (int y = 0; y < 240; ++y) {
        for (int x = 0; x < 320; ++x) {
            const int m = at(mask, x, y)[0];
            soft += m > 0 && m < 255 ? 1 : 0;
            for (int c = 0; c < kColours; ++c) {
                const int from = at(scene, x, y)[c];
                const int to = at(coarse, x, y)[c];
                ASSERT_EQ(at(painted, x, y)[c], from + (to - from) * m / 255) << x << " " << y;
            }
        }
    }
    EXPECT_GT(soft, 20000);
}

TEST(Pictures, ScanlinesDimEachRowByItsPlaceInThePeriod) {
    const Frame scene = picture("scene");
    const Frame lines = picture("scanlines");
    for (int y = 0; y < 240; ++y) {
        const float factor = 0.25f + 0.75f * static_cast<float>(y % 8) / 8.0f;
        for (int x = 0; x < 320; ++x) {
            for (int c = 0; c < kColours; ++c) {
                const auto dimmed =
                    static_cast<int>(static_cast<float>(at(scene, x, y)[c]) * factor);
                ASSERT_EQ(at(lines, x, y)[c], dimmed) << x << " " << y;
            }
        }
    }
}

TEST(Pictures, ThePlotHas500PointsBetweenNothingAndAll) {
    std::ifstream stream(RUVEX_PICTURES "/level.svg");
    const auto elements = readXml({std::string(std::istreambuf_iterator<char>(stream), {})});
    ASSERT_EQ(elements.back().attributes.at("id"), "level");
    std::istringstream points(elements.back().attributes.at("points"));
    int count = 0;
    double least = 1.0;
    double most = 0.0;
    double x = 0.0;
    double y = 0.0;
    for (char comma = 0; points >> x >> comma >> y; ++count) {
        const double level = (410.0 - y) / (410.0 - 66.0);
        least = std::min(least, level);
        most = std::max(most, level);
    }
    EXPECT_EQ(count, 500);
    EXPECT_GE(least, 0.0);
    EXPECT_LE(most, 1.0);
    // It wanders on both sides of Master Breakup.
    EXPECT_LT(least, 0.3);
    EXPECT_GT(most, 0.7);
}

}  // namespace
}  // namespace ruvex::cli
