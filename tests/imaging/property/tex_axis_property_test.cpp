#include <gtest/gtest.h>
#include <limits>

#include "imaging/tex_axis.h"
#include "tests/imaging/property/imager_case.h"
#include "tests/imaging/twins/index_twin.h"

namespace ruvex::test {
namespace {

TexAxis randomRange(Random& random) {
    TexAxis axis;
    axis.setSize(random.chance(10) ? 0 : random.whole(1, 40));
    axis.edgeMethod = static_cast<std::uint32_t>(random.whole(0, 3));
    if (random.chance(60)) axis.setRange(random.whole(-5, 45), random.whole(-5, 45));
    return axis;
}

// Mostly near the range, at times anywhere in 32 bits.
std::int32_t randomIndex(Random& random) {
    return random.chance(80) ? random.whole(-200, 240) : static_cast<std::int32_t>(random.bits());
}

void checkAt(const TexAxis& axis, std::int32_t index) {
    SCOPED_TRACE("index " + std::to_string(index) + " method " + std::to_string(axis.edgeMethod) +
                 " range " + std::to_string(axis.lo) + ".." + std::to_string(axis.hi));
    ASSERT_EQ(axis.mapIndex(index), twin::indexTwin(axis, index));

    const TexPair pair = axis.mapPair(index);
    const twin::PairTwin wantedPair = twin::pairTwin(axis, index);
    ASSERT_EQ(pair.first, wantedPair.first);
    ASSERT_EQ(pair.second, wantedPair.second);
    ASSERT_EQ(pair.adjacent, wantedPair.neighbours);

    const std::int32_t d = twin::minus(index, axis.origin);
    const TexRun run = axis.mapRun(index);
    const twin::RunTwin wantedRun = twin::runTwin(axis, d);
    ASSERT_EQ(run.index, wantedRun.index);
    ASSERT_EQ(run.step, wantedRun.step);
    ASSERT_EQ(run.length, std::min<std::int64_t>(wantedRun.length, INT32_MAX));
    // Each pixel of a run is the one that mapIndex gives.
    for (std::int64_t k = 0; k < std::min(run.length, 50); ++k) {
        const std::int64_t here = run.index == kNoPixel ? kNoPixel : run.index + k * run.step;
        ASSERT_EQ(here, twin::indexTwin(axis, d + k)) << "pixel " << k << " of the run";
    }
}

TEST(TexAxisProperty, IndicesPairsAndRunsAgreeWithTheTwin) {
    forSeeds(1000, 20000, [](Random& random) {
        TexAxis axis = randomRange(random);
        if (random.chance(50)) axis.setOrigin(random.whole(-1000, 1000));
        for (int i = 0; i < 10; ++i) checkAt(axis, randomIndex(random));
    });
}

TEST(TexAxisProperty, TheEndsOf32BitsAreDefined) {
    forSeeds(2000, 500, [](Random& random) {
        TexAxis axis = randomRange(random);
        for (const std::int32_t index : {INT32_MIN, INT32_MIN + 1, INT32_MAX - 1, INT32_MAX}) {
            checkAt(axis, index);
        }
    });
}

}  // namespace
}  // namespace ruvex::test
