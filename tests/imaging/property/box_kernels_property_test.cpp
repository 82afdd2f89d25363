#include <gtest/gtest.h>
#include <new>
#include <vector>

#include "imaging/kernels/box_kernels.h"
#include "tests/imaging/property/imager_case.h"

namespace ruvex::test {
namespace {

constexpr std::array<float, 14> kBoxRadii{1e-9f, 1e-4f, 0.3f,   0.5f,   1.0f,   1.5f,   2.7f,
                                          10.0f, 99.9f, 126.5f, 127.0f, 127.5f, 128.0f, 400.0f};

template <class T>
void checkFilter(Random& random, BoxFilter<T> plain, BoxFilter<T> faster) {
    const BoxWeights weights(random.oneOf(kBoxRadii));
    const std::int64_t count = random.whole(0, 300);
    std::vector<T> wanted(static_cast<std::size_t>((count + weights.span) * kLanes<T>));
    const bool extreme = random.chance(30);
    for (T& lane : wanted) {
        lane = random.component<T>();
        if (extreme)
            lane = lane & 1 ? std::numeric_limits<T>::max() : std::numeric_limits<T>::min();
    }
    std::vector<T> got = wanted;
    plain(wanted.data(), count, weights);
    faster(got.data(), count, weights);
    wanted.resize(static_cast<std::size_t>(count * kLanes<T>));
    got.resize(wanted.size());
    ASSERT_EQ(got, wanted) << "radius " << weights.radius << " + " << weights.edgeFactor;
}

TEST(BoxKernels, EachVersionForThisMachineEqualsThePlain) {
    const auto versions = boxKernelVersions().all();
    if (versions.size() == 1) GTEST_SKIP() << "this machine runs the plain ones";
    const BoxKernels& plain = *versions[0];
    for (const BoxKernels* faster : versions.subspan(1)) {
        forSeeds(80000, 60, [&](Random& random) {
            checkFilter(random, plain.fixed8, faster->fixed8);
            checkFilter(random, plain.fixed16, faster->fixed16);
            checkFilter(random, plain.fixed32, faster->fixed32);
            checkFilter(random, plain.floating8, faster->floating8);
            checkFilter(random, plain.floating16, faster->floating16);
        });
    }
}

}  // namespace
}  // namespace ruvex::test
