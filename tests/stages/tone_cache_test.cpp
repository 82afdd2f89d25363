// Which tables of tones are kept, and that they are those of their parameters.

#include "stages/tone_cache.h"

#include <gtest/gtest.h>
#include <vector>

#include "imaging/threads.h"
#include "stages/stage_pixel.h"
#include "tests/stages/support/television.h"

namespace ruvex::test {
namespace {

/// Everything that tables say.
template <class P>
std::vector<std::int32_t> contents(const ToneTables<P>& tables) {
    std::vector<std::int32_t> all{tables.identity};
    for (const auto* table : {&tables.lutMono, &tables.lutRed, &tables.lutGreen, &tables.lutBlue}) {
        all.push_back(*table != nullptr);
        if (*table) all.insert(all.end(), table->get(), table->get() + tables.kEntries);
    }
    all.push_back(tables.tintTable != nullptr);
    for (int i = 0; tables.tintTable && i < tables.kEntries; ++i) {
        all.insert(all.end(), tables.tintTable[i].c, tables.tintTable[i].c + 4);
    }
    return all;
}

template <class P>
std::vector<std::int32_t> freshContents(const SignalParameters& signal) {
    ToneTables<P> tables;
    EXPECT_TRUE(tables.build(signal));
    return contents(tables);
}

/// Looks whose tables differ, or depend on other parameters.
std::vector<SignalParameters> looks() {
    std::vector<SignalParameters> all;
    const auto add = [&](TvType type, auto change) {
        SignalParameters signal = perfectSignal(1, 1);
        signal.tvType = type;
        change(signal);
        all.push_back(signal);
    };
    for (const TvType type : {TvType::Colour, TvType::BlackAndWhite, TvType::Tint}) {
        add(type, [](SignalParameters&) {});
        add(type, [](SignalParameters& s) { s.contrast = 0.25f; });
        add(type, [](SignalParameters& s) { s.contrast = -0.25f; });
        add(type, [](SignalParameters& s) { s.brightness = 0.125f; });
    }
    add(TvType::Colour, [](SignalParameters& s) { s.gunRed = 0.5f; });
    add(TvType::Colour, [](SignalParameters& s) { s.gunGreen = 0.5f; });
    add(TvType::Colour, [](SignalParameters& s) { s.gunBlue = 0.5f; });
    for (int k = 0; k < 3; ++k) {
        add(TvType::Tint, [=](SignalParameters& s) { s.tint[k] = 100.0f; });
    }
    return all;
}

template <class P>
class TonesKept : public testing::Test {
protected:
    ToneCache<P> cache;
};
using FramePixels = testing::Types<Rgba8, RgbaS214>;
TYPED_TEST_SUITE(TonesKept, FramePixels);

TYPED_TEST(TonesKept, TheSameParametersBuildOnce) {
    for (const SignalParameters& signal : looks()) {
        const auto before = this->cache.built();
        for (int i = 0; i < 3; ++i) {
            const auto* tables = this->cache.tables(signal, false);
            ASSERT_NE(tables, nullptr);
            EXPECT_EQ(contents(*tables), freshContents<TypeParam>(signal));
        }
        EXPECT_EQ(this->cache.built(), before + 1);
    }
}

TYPED_TEST(TonesKept, ParametersThatNoTableDependsOnBuildNothing) {
    SignalParameters signal = perfectSignal(8, 6);
    this->cache.tables(signal, false);
    signal.breakup = 0.7f;
    signal.seed = 12;
    signal.tint[1] = 3.0f;  // of another type of television
    this->cache.tables(signal, false);
    EXPECT_EQ(this->cache.built(), 1u);
    signal.tvType = TvType::BlackAndWhite;
    this->cache.tables(signal, false);
    signal.gunRed = 0.5f;
    this->cache.tables(signal, false);
    EXPECT_EQ(this->cache.built(), 2u);
}

TYPED_TEST(TonesKept, TheLeastRecentlyUsedTablesMakeRoom) {
    const auto look = [](std::size_t i) {
        SignalParameters signal = perfectSignal(1, 1);
        signal.brightness = static_cast<float>(i) / 16.0f;
        return signal;
    };
    const std::size_t most = this->cache.kMost;
    for (std::size_t i = 0; i < most; ++i) this->cache.tables(look(i), false);
    this->cache.tables(look(0), false);
    EXPECT_EQ(this->cache.built(), most);
    this->cache.tables(look(most), false);  // takes the place of look 1
    EXPECT_EQ(this->cache.built(), most + 1);
    this->cache.tables(look(0), false);
    for (std::size_t i = 2; i <= most; ++i) this->cache.tables(look(i), false);
    EXPECT_EQ(this->cache.built(), most + 1);
    this->cache.tables(look(1), false);
    EXPECT_EQ(this->cache.built(), most + 2);
}

TYPED_TEST(TonesKept, AnyOrderGivesFreshTables) {
    const std::vector<SignalParameters> all = looks();
    Random random(3);
    for (int i = 0; i < 60; ++i) {
        const SignalParameters& signal = random.oneOf(all);
        EXPECT_EQ(contents(*this->cache.tables(signal, random.chance(50))),
                  freshContents<TypeParam>(signal));
    }
    EXPECT_LT(this->cache.built(), 60u);
}

TYPED_TEST(TonesKept, AnyNumberOfWorkersBuildsTheSame) {
    for (const std::int32_t workers : {1, 2, 3, 7}) {
        const WorkerCountScope scope(workers);
        for (const SignalParameters& signal : looks()) {
            ToneTables<TypeParam> tables;
            ASSERT_TRUE(tables.build(signal, true));
            EXPECT_EQ(contents(tables), freshContents<TypeParam>(signal));
        }
    }
}

}  // namespace
}  // namespace ruvex::test
