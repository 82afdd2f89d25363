#include <gtest/gtest.h>

#include "imaging/move_sampler.h"
#include "tests/imaging/property/imager_case.h"
#include "tests/imaging/twins/move_twin.h"

namespace ruvex::test {
namespace {

constexpr std::array<float, 6> kScales{0.5f, 2.0f, 1.0f, 0.333f, 1.7f, -1.0f};

float randomScale(Random& random) {
    return random.chance(60) ? random.oneOf(kScales) : random.real(-3.0f, 3.0f);
}

Matrix3 randomMatrix(Random& random) {
    Matrix3 m = kIdentity3;
    const std::int32_t kind = random.whole(0, 9);
    if (kind == 0) return m;
    if (kind == 1) {
        for (float& element : m) element = random.real(-2.0f, 2.0f);
        return m;
    }
    scale(m, randomScale(random), randomScale(random));
    if (kind >= 4) translate(m, random.real(-12.0f, 12.0f), random.real(-12.0f, 12.0f));
    if (kind >= 6) rotate(m, random.real(-4.0f, 4.0f));
    // A shear along one axis alone.
    if (kind == 7) m[1] = 0.0f;
    if (kind == 8) m[3] = 0.0f;
    return m;
}

// The third column of a mild tilt, of none, or of one whose horizon crosses the picture.
void randomTilt(Random& random, Matrix3& m) {
    const std::int32_t kind = random.whole(0, 3);
    if (kind == 0) return;
    const float reach = kind == 1 ? 0.5f : 0.02f;
    m[2] = random.real(-reach, reach);
    m[5] = random.real(-reach, reach);
    m[8] = random.real(0.5f, 2.0f);
}

template <class P>
class MoveProperty : public testing::Test {};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(MoveProperty, FramePixels);

template <class P>
void checkMove(Random& random, MoveFilter filter, bool accumulate) {
    ImagerCase<P> given(random);
    VxMoveSampler<P> sampler;
    sampler.filter = filter;
    sampler.accumulate = accumulate;
    sampler.weight = random.chance(30) ? 1.0f : random.real(-2.0f, 2.0f);
    sampler.matrix = randomMatrix(random);
    sampler.perspective = random.chance(40);
    if (sampler.perspective) randomTilt(random, sampler.matrix);
    checkSampler<P>(
        given, sampler, [&](std::int32_t x, std::int32_t y, std::int32_t x0, const P& before) {
            return twin::movedPixelTwin(sampler, given.source->texture, x0, x, y, before);
        });
}

TYPED_TEST(MoveProperty, EveryFilterAgreesWithTheTwin) {
    // One number past the four filters, which does nothing.
    for (std::uint32_t filter = 0; filter <= 4; ++filter) {
        const int count = filter == 3 ? 100 : 300;
        for (const bool accumulate : {false, true}) {
            SCOPED_TRACE("filter " + std::to_string(filter) + (accumulate ? ", adding" : ""));
            forSeeds(50000 + 1000 * filter, count, [&](Random& random) {
                checkMove<TypeParam>(random, static_cast<MoveFilter>(filter), accumulate);
            });
        }
    }
}

// Runs `sampler` over a copy of the case's Map and gives the Map's memory.
template <class P>
std::vector<P> moved(ImagerCase<P>& given, VxMoveSampler<P>& sampler) {
    const std::vector<P> before = given.map->memory;
    if (given.window) {
        sampler.setWindow(given.window->left, given.window->top, given.window->right,
                          given.window->bottom);
    }
    sampler.process(&given.source->texture, &given.map->texture);
    std::vector<P> after = given.map->memory;
    given.map->memory = before;
    return after;
}

// A matrix that only scales and shifts is worked out by columns and rows; with a perspective that
// changes nothing the same matrix goes pixel by pixel.
TYPED_TEST(MoveProperty, ColumnTablesAgreeWithTheWalkPixelByPixel) {
    for (const MoveFilter filter : {MoveFilter::Nearest, MoveFilter::Bilinear, MoveFilter::Sinc}) {
        SCOPED_TRACE("filter " + std::to_string(static_cast<int>(filter)));
        const int count = filter == MoveFilter::Sinc ? 60 : 200;
        forSeeds(60000, count, [filter](Random& random) {
            ImagerCase<TypeParam> given(random);
            const Workers workers(given.workers);
            VxMoveSampler<TypeParam> byTable, byPixel;
            scale(byTable.matrix, randomScale(random), randomScale(random));
            if (random.chance(50)) {
                translate(byTable.matrix, random.real(-9.0f, 9.0f), random.real(-9.0f, 9.0f));
            }
            byTable.filter = byPixel.filter = filter;
            byPixel.matrix = byTable.matrix;
            byPixel.perspective = true;
            const auto fast = moved(given, byTable);
            ASSERT_EQ(firstDifference(fast, moved(given, byPixel)), "");
        });
    }
}

}  // namespace
}  // namespace ruvex::test
