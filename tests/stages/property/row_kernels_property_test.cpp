// The versions of the loops for this machine's processor against those for any.

#include <array>
#include <bit>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

#include "stages/kernels/row_kernels.h"
#include "tests/imaging/support/random.h"

namespace ruvex::test {
namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();

template <class P>
class RowKernelProperty : public testing::Test {
protected:
    void SetUp() override {
        if (versions.size() == 1) GTEST_SKIP() << "this machine runs the plain ones";
    }

    static std::vector<P> pixels(Random& random, std::int32_t count) {
        std::vector<P> row(static_cast<std::size_t>(count));
        for (P& pixel : row) {
            for (auto& c : pixel.c) c = random.component<typename P::Component>();
        }
        return row;
    }

    static std::vector<float> floats(Random& random, std::int32_t count, float low, float high) {
        std::vector<float> row(static_cast<std::size_t>(count));
        constexpr std::array kOdd{0.0f,
                                  -0.0f,
                                  1e30f,
                                  -1e30f,
                                  kInfinity,
                                  -kInfinity,
                                  std::numeric_limits<float>::quiet_NaN()};
        const bool odd = random.chance(20);
        for (float& value : row) {
            value = odd && random.chance(10) ? random.oneOf(kOdd) : random.real(low, high);
        }
        return row;
    }

    // Runs each version on pixels of its own and compares what they write.
    template <class Run>
    static void compare(Random& random, std::int32_t count, Run run) {
        const std::vector<P> before = pixels(random, count);
        std::vector<P> wanted = before;
        run(*versions[0], wanted.data());
        for (std::size_t v = 1; v < versions.size(); ++v) {
            std::vector<P> got = before;
            run(*versions[v], got.data());
            ASSERT_EQ(wanted, got) << count << " pixels, version " << v;
        }
    }

    static void forCases(std::uint32_t seed, auto check) {
        for (int i = 0; i < cases(200); ++i) {
            SCOPED_TRACE(testing::Message() << "case " << i);
            Random random(seed + static_cast<std::uint32_t>(i));
            check(random, random.whole(0, 200));
            if (testing::Test::HasFatalFailure()) return;
        }
    }

    static ColourLoss loss(Random& random) {
        return colourLoss(random.chance(20) ? 0.0f : random.real(0.0f, 0.6f));
    }

    // The first is the plain one.
    inline static const auto versions = rowKernelVersions<P>().all();
};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(RowKernelProperty, FramePixels);

TYPED_TEST(RowKernelProperty, Holding) {
    this->forCases(1, [&](Random& random, std::int32_t count) {
        const auto from = this->pixels(random, count);
        this->compare(random, count,
                      [&](auto& k, auto* to) { k.clampToRange(from.data(), count, to); });
        this->compare(random, count, [&](auto& k, auto* to) { k.clampToRange(to, count, to); });
    });
}

TYPED_TEST(RowKernelProperty, ColourLoss) {
    this->forCases(2, [&](Random& random, std::int32_t count) {
        const auto from = this->pixels(random, count);
        const auto lost = this->loss(random);
        this->compare(random, count,
                      [&](auto& k, auto* to) { k.loseColour(from.data(), count, lost, to); });
        this->compare(random, count, [&](auto& k, auto* to) { k.loseColour(to, count, lost, to); });
    });
}

TYPED_TEST(RowKernelProperty, ColourLossOfGunsApart) {
    this->forCases(3, [&](Random& random, std::int32_t count) {
        const auto red = this->pixels(random, count);
        const auto green = this->pixels(random, count);
        const auto blue = this->pixels(random, count);
        const auto lost = this->loss(random);
        this->compare(random, count, [&](auto& k, auto* to) {
            k.loseColourApart(red.data(), green.data(), blue.data(), count, lost, to);
        });
    });
}

TYPED_TEST(RowKernelProperty, SaturationAndGain) {
    this->forCases(4, [&](Random& random, std::int32_t count) {
        const float saturation = random.chance(10) ? 1e30f : random.real(0.0f, 12.0f);
        const float gain = random.chance(10) ? -kInfinity : random.real(-2.0f, 4.0f);
        this->compare(random, count,
                      [&](auto& k, auto* to) { k.saturate(to, count, saturation, gain); });
    });
}

TYPED_TEST(RowKernelProperty, Dimming) {
    this->forCases(9, [&](Random& random, std::int32_t count) {
        const float factor = random.chance(10) ? 1e20f : random.real(-2.0f, 2.0f);
        this->compare(random, count, [&](auto& k, auto* to) { k.dim(to, count, factor, to); });
    });
}

TYPED_TEST(RowKernelProperty, Ghosts) {
    this->forCases(5, [&](Random& random, std::int32_t count) {
        const std::int32_t ghosts = random.whole(0, 12);
        const auto row = this->pixels(random, count + 50);
        std::vector<const TypeParam*> rows;
        for (std::int32_t i = 0; i < ghosts; ++i) rows.push_back(row.data() + random.whole(0, 50));
        const auto weights = this->floats(random, ghosts, -2.0f, 2.0f);
        this->compare(random, count, [&](auto& k, auto* to) {
            k.addGhosts(row.data(), rows.data(), weights.data(), ghosts, count, to);
        });
    });
}

TYPED_TEST(RowKernelProperty, Hashes) {
    this->forCases(6, [&](Random& random, std::int32_t count) {
        const auto factors = this->floats(random, 4, -1.0f, 1.0f);
        const std::uint32_t number = random.bits();
        const auto bits = [&](const RowKernels<TypeParam>& kernels) {
            std::vector<float> values(static_cast<std::size_t>(count) * 8);
            kernels.hashColour(number, count, factors.data(), values.data());
            kernels.hashGrey(number, count, factors[0], values.data() + 4 * count);
            std::vector<std::uint32_t> words;
            for (const float value : values) words.push_back(std::bit_cast<std::uint32_t>(value));
            return words;
        };
        const auto wanted = bits(*this->versions[0]);
        for (const auto* version : this->versions) ASSERT_EQ(wanted, bits(*version));
    });
}

TYPED_TEST(RowKernelProperty, Grain) {
    this->forCases(7, [&](Random& random, std::int32_t count) {
        const float reach = PixelTraits<TypeParam>::kWhite;
        const auto noise = this->floats(random, 4 * count, -reach, reach);
        GrainShape shape{.banded = random.chance(70), .keep = random.bits() & 15u};
        for (float& low : shape.low) low = random.real(-reach, reach);
        shape.cut = random.real(0.0f, reach);
        shape.stretch = random.chance(10) ? kInfinity : random.real(-3.0f, 3.0f);
        const auto from = this->pixels(random, count);
        this->compare(random, count, [&](auto& k, auto* to) {
            k.addGrain(from.data(), noise.data(), count, shape, to);
        });
        this->compare(random, count,
                      [&](auto& k, auto* to) { k.addGrain(to, noise.data(), count, shape, to); });
    });
}

TYPED_TEST(RowKernelProperty, SoftGrain) {
    this->forCases(10, [&](Random& random, std::int32_t count) {
        const auto reach = static_cast<std::int32_t>(PixelTraits<TypeParam>::kWhite);
        const std::int64_t stride = random.whole(4, 16);
        std::vector<std::int32_t> noise(static_cast<std::size_t>(count * stride));
        for (std::int32_t& value : noise) {
            value = random.chance(5) ? static_cast<std::int32_t>(random.bits())
                                     : random.whole(-reach, reach);
        }
        GrainShape shape{.banded = random.chance(70), .keep = random.bits() & 15u};
        for (float& low : shape.low) low = random.real(-1.0f, 1.0f) * static_cast<float>(reach);
        shape.cut = random.real(0.0f, 1.0f) * static_cast<float>(reach);
        shape.stretch = random.chance(10) ? kInfinity : random.real(-3.0f, 3.0f);
        std::vector<float> hard;
        for (std::int64_t i = 0; i < count * 4; ++i) {
            hard.push_back(
                static_cast<float>(noise[static_cast<std::size_t>(i / 4 * stride + i % 4)]));
        }
        const auto from = this->pixels(random, count);
        this->compare(random, count, [&](auto& k, auto* to) {
            // The plain version of hard grain is what soft grain is compared with.
            if (&k == this->versions[0]) {
                k.addGrain(from.data(), hard.data(), count, shape, to);
            } else {
                k.addSoftGrain(from.data(), noise.data(), stride, count, shape, to);
            }
        });
        this->compare(random, count, [&](auto& k, auto* to) {
            k.addSoftGrain(from.data(), noise.data(), stride, count, shape, to);
        });
    });
}

TYPED_TEST(RowKernelProperty, PointsBarsAndDashes) {
    this->forCases(8, [&](Random& random, std::int32_t count) {
        const auto sines = this->floats(random, 1024, -1.0f, 1.0f);
        const auto places = this->floats(random, count, -3.0f, 3.0f);
        const auto phases = this->floats(random, 4, 0.0f, 1023.0f);
        const auto harmonics = this->floats(random, 4, 1.0f, 8.0f);
        this->compare(random, count, [&](auto& k, auto* to) {
            k.points(sines.data(), places.data(), phases.data(), harmonics.data(), count, to);
        });
        const auto noise = this->floats(random, count, -0.8f, 0.8f);
        const auto light = this->floats(random, count, 0.0f, 300.0f);
        this->compare(random, count,
                      [&](auto& k, auto* to) { k.bars(noise.data(), light.data(), count, to); });
        const auto colours = this->pixels(random, count);
        const auto edges = this->floats(random, count, -0.2f, 0.2f);
        this->compare(random, count, [&](auto& k, auto* to) {
            k.dashes(edges.data(), colours.data(), count, to);
        });
    });
}

}  // namespace
}  // namespace ruvex::test
