// Softened noise made a few rows at a time against the pictures that the generators make, and rows
// of sines against single ones.

#include <bit>
#include <gtest/gtest.h>
#include <vector>

#include "imaging/kernels/noise_kernels.h"
#include "imaging/maths/maths.h"
#include "imaging/noise/noise_gen.h"
#include "imaging/noise/rgba_noise_gen.h"
#include "imaging/noise/soft_noise_rows.h"
#include "tests/imaging/support/random.h"

namespace ruvex::test {
namespace {

struct NoiseCase {
    Span columns, rows;
    std::uint32_t seed;
    float softness;
    float scale[4];

    explicit NoiseCase(Random& random)
        : seed(random.bits()), softness(random.real(0.01f, random.chance(20) ? 300.0f : 9.0f)) {
        columns.first = random.whole(-50, 50);
        columns.end = columns.first + random.whole(1, 90);
        rows.first = random.whole(-50, 50);
        rows.end = rows.first + random.whole(1, 40);
        for (float& value : scale) value = random.real(-40000.0f, 40000.0f);
    }

    template <class Generator, class P>
    void generate(Generator& generator, VxTexture<P>& picture) const {
        picture.allocateRegion(columns.first, rows.first, columns.end - 1, rows.end - 1,
                               Contents::Zero);
        generator.seed = seed;
        generator.process(picture);
    }
};

template <class P>
void expectRows(const NoiseCase& chosen, VxTexture<P>& wanted) {
    typename SoftNoiseRows<P>::Noise noise{.seed = chosen.seed, .softness = chosen.softness};
    std::copy(std::begin(chosen.scale), std::end(chosen.scale), noise.scale);
    SoftNoiseRows<P> soft(noise, {chosen.columns, chosen.rows});
    ASSERT_TRUE(soft.usable());
    for (std::int32_t y = chosen.rows.first; y < chosen.rows.end; y += soft.kRows) {
        const std::int32_t count = std::min<std::int32_t>(soft.kRows, chosen.rows.end - y);
        soft.start(y);
        for (std::int32_t x = chosen.columns.first; x < chosen.columns.end;) {
            const auto tile = soft.next();
            for (std::int32_t row = 0; row < count; ++row) {
                for (std::int32_t i = 0; i < tile.columns; ++i) {
                    const std::int32_t* got = tile.row(row) + i * tile.kStride;
                    const P& pixel = *wanted.writeAt(x + i, y + row);
                    ASSERT_TRUE(std::equal(got, got + P::kComponents, pixel.c))
                        << "column " << x + i << ", row " << y + row;
                }
            }
            x += tile.columns;
        }
    }
}

TEST(SoftNoiseRows, AreTheRowsOfTheGeneratorsPictures) {
    for (int i = 0; i < cases(300); ++i) {
        SCOPED_TRACE(testing::Message() << "case " << i);
        Random random(9000 + static_cast<std::uint32_t>(i));
        const NoiseCase chosen(random);

        VxRGBANoiseGen colours;
        colours.alpha = true;
        for (int k = 0; k < 4; ++k) {
            colours.blurX[k] = chosen.softness;
            colours.scale[k] = chosen.scale[k];
        }
        VxTexture<RgbaInt> colourPicture;
        chosen.generate(colours, colourPicture);
        expectRows(chosen, colourPicture);

        VxNoiseGen greys;
        greys.blurX = chosen.softness;
        greys.scale = chosen.scale[0];
        VxTexture<ChannelInt> greyPicture;
        chosen.generate(greys, greyPicture);
        expectRows(chosen, greyPicture);
        if (HasFatalFailure()) return;
    }
}

TEST(Sines, ARowOfThemEqualsSingleOnes) {
    constexpr float kReaches[] = {0.9f, 10.0f, 5000.0f, 1.5e6f, 1e9f};
    for (int i = 0; i < cases(200); ++i) {
        Random random(9500 + static_cast<std::uint32_t>(i));
        const float reach = random.oneOf(kReaches);
        std::vector<float> angles(static_cast<std::size_t>(random.whole(0, 70)));
        for (float& angle : angles) angle = random.real(-reach, reach);
        if (!angles.empty() && random.chance(30))
            angles[0] = random.chance(50) ? -0.0f : 0.7853982f;
        std::vector<float> got(angles.size());
        maths::sines(angles.data(), static_cast<std::int32_t>(angles.size()), got.data());
        for (std::size_t k = 0; k < angles.size(); ++k) {
            const auto wanted = static_cast<float>(maths::sin(angles[k]));
            ASSERT_EQ(std::bit_cast<std::uint32_t>(got[k]), std::bit_cast<std::uint32_t>(wanted))
                << "the sine of " << angles[k];
        }
        if (reach > 1.5e6f) continue;
        for (const NoiseKernels* version : noiseKernelVersions().all()) {
            std::vector<float> sines(angles.size());
            version->sines(angles.data(), static_cast<std::int32_t>(angles.size()), sines.data());
            ASSERT_EQ(sines, got);
        }
    }
}

}  // namespace
}  // namespace ruvex::test
