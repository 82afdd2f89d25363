// Sizes, values, rates and times at their ends and beyond them: no crash, a defined picture, and
// the same one twice. The sanitizers watch.

#include <gtest/gtest.h>
#include <limits>
#include <vector>

#include "parameters/artefacts.h"
#include "parameters/presets.h"
#include "tests/effect/render_fixture.h"
#include "tests/imaging/support/random.h"

namespace ruvex::test {
namespace {

template <class P>
class Degenerate : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(Degenerate, FramePixels);

constexpr std::pair<int, int> kSizes[] = {{1, 1}, {1, 40}, {40, 1}, {7, 3}};
constexpr double kFrame = 50;

// Every artefact at once.
void makeStormy(Renderer& renderer) {
    for (const PresetRow& row : presetTable()) {
        if (const auto value = row.value(*findPreset("Bad Colour TV"))) {
            renderer.set(row.id, *value);
        }
    }
    for (const Artefact& artefact : artefacts()) renderer.set(artefact.threshold, 10);
    renderer.set(ParameterId::ShashAmountMax, 50);
    renderer.set(ParameterId::MasterBreakup, 80);
    renderer.set(ParameterId::EmInterference, 40);
    renderer.set(ParameterId::BorderAlpha, 2);
    renderer.set(ParameterId::LineAngle, 60);  // nearer to the vertical, unlike the preset's lines
}

template <class P>
Picture<P> stormyPicture(const runtime::Project& project, ParameterId id, double value,
                         double seconds) {
    Renderer renderer(project);
    makeStormy(renderer);
    renderer.set(id, value);
    const auto input = randomPicture<P>(project.width, project.height, 5);
    return renderer.render(input, seconds);
}

// The ends of what the user can enter, and far beyond them.
std::vector<double> farValues(const ParameterRow& row) {
    std::vector<double> values;
    if (!row.choices.empty()) values = {0, double(row.choices.size()) - 1};
    if (const auto range = row.enteredRange()) values = {range->low, range->high};
    // Each ghost is read once for each pixel: more of them are only slower.
    if (row.id == ParameterId::NumGhosts) {
        values.insert(values.end(), {-1000.0, 1000.0});
        return values;
    }
    if (row.kind == ParameterKind::Real) values.insert(values.end(), {-1e5, 1e5, -1e30, 1e30});
    if (row.kind == ParameterKind::Int) {
        values.insert(values.end(), {double(std::numeric_limits<std::int32_t>::min()),
                                     double(std::numeric_limits<std::int32_t>::max())});
    }
    return values;
}

bool looksAtPicture(const ParameterRow& row) {
    return row.rendered && row.kind != ParameterKind::UiInt && row.kind != ParameterKind::UiBool;
}

TYPED_TEST(Degenerate, EveryParameterFarOutAtEverySmallSize) {
    for (const auto& [width, height] : kSizes) {
        // The wide format builds long tables for each frame; one size of it will do.
        if (sizeof(TypeParam) != 4 && width != 7) continue;
        const runtime::Project project{.width = width, .height = height};
        for (const ParameterRow& row : parameterTable()) {
            if (!looksAtPicture(row)) continue;
            for (const double value : farValues(row)) {
                SCOPED_TRACE(testing::Message()
                             << width << "x" << height << " " << row.label << " = " << value);
                const double seconds = kFrame / project.frameRate;
                const auto once = stormyPicture<TypeParam>(project, row.id, value, seconds);
                if (sizeof(TypeParam) != 4) continue;
                ASSERT_EQ(once, stormyPicture<TypeParam>(project, row.id, value, seconds));
            }
        }
    }
}

TEST(DegenerateFrame, EveryParameterFarOutInAPictureWithAllItsBands) {
    const runtime::Project project{.width = 64, .height = 48};
    for (const ParameterRow& row : parameterTable()) {
        if (!looksAtPicture(row)) continue;
        for (const double value : farValues(row)) {
            SCOPED_TRACE(testing::Message() << row.label << " = " << value);
            stormyPicture<Rgba8>(project, row.id, value, kFrame / project.frameRate);
        }
    }
}

TYPED_TEST(Degenerate, SmallSizesWindAndShrink) {
    for (const auto& [width, height] : kSizes) {
        for (const double rate : {1.0, 25.0, 1000.0}) {
            const runtime::Project project{.width = width, .height = height, .frameRate = rate};
            const double seconds = kFrame / rate;
            SCOPED_TRACE(testing::Message() << width << "x" << height << " at " << rate);
            for (const double speed : {-800.0, -100.0, 0.0, 50.0, 800.0}) {
                const auto wound = [&] {
                    return stormyPicture<TypeParam>(project, ParameterId::PlaySpeed, speed,
                                                    seconds);
                };
                EXPECT_EQ(wound(), wound()) << speed;
            }
            for (const double resolution : {1.0, 3.0, 50.0}) {
                const auto reduced = [&] {
                    return stormyPicture<TypeParam>(project, ParameterId::Resolution, resolution,
                                                    seconds);
                };
                EXPECT_EQ(reduced(), reduced()) << resolution;
            }
            for (const double dot : {0.01, 30.0, 99.0}) {
                stormyPicture<TypeParam>(project, ParameterId::WhiteDot, dot, seconds);
            }
        }
    }
}

TYPED_TEST(Degenerate, EveryShashTypeAtEverySmallSize) {
    for (const auto& [width, height] : kSizes) {
        for (int type = 0; type <= 5; ++type) {
            const runtime::Project project{.width = width, .height = height};
            const auto picture = [&] {
                return stormyPicture<TypeParam>(project, ParameterId::ShashType, type, 2.0);
            };
            EXPECT_EQ(picture(), picture()) << width << "x" << height << ", " << type;
        }
    }
}

TEST(DegenerateFrame, AfterTenThousandSecondsTheTelevisionStillRuns) {
    const runtime::Project project{.width = 16, .height = 12};
    for (const double speed : {100.0, -200.0}) {
        const auto picture = [&] {
            return stormyPicture<Rgba8>(project, ParameterId::PlaySpeed, speed, 10000.0);
        };
        EXPECT_EQ(picture(), picture()) << speed;
    }
}

TYPED_TEST(Degenerate, RegionsSmallerThanThePictureStayInThemselves) {
    const runtime::Project project{.width = 40, .height = 30};
    Random random(9);
    for (int i = 0; i < cases(20); ++i) {
        Renderer renderer(project);
        makeStormy(renderer);
        renderer.set(ParameterId::PlaySpeed, random.chance(30) ? 50 : 100);
        const int x = random.whole(0, 39), y = random.whole(0, 29);
        const int right = random.whole(x, 39), bottom = random.whole(y, 29);
        const DSRECT region{x, y, right - x + 1, bottom - y + 1};
        const auto input = randomPicture<TypeParam>(40, 30, 6);
        const auto picture = renderer.render(input, 2.0, region);
        for (int row = 0; row < 30; ++row) {
            for (int column = 0; column < 40; ++column) {
                const bool in = column >= x && column <= right && row >= y && row <= bottom;
                if (in) continue;
                ASSERT_EQ(picture.at(column, row), TypeParam{}) << column << ", " << row;
            }
        }
    }
}

}  // namespace
}  // namespace ruvex::test
