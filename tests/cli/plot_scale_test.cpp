#include "cli/plot_scale.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace ruvex::cli {
namespace {

TEST(NiceStep, IsTheSmallestThatIsEnough) {
    EXPECT_EQ(niceStep(499.0, 10, 1.0), 50.0);
    EXPECT_EQ(niceStep(500.0, 10, 1.0), 50.0);
    EXPECT_EQ(niceStep(501.0, 10, 1.0), 100.0);
    EXPECT_EQ(niceStep(1.0, 10, 1.0), 1.0);
    EXPECT_EQ(niceStep(0.0, 10, 1.0), 1.0);
    EXPECT_EQ(niceStep(16777215.0, 10, 1.0), 2000000.0);
    EXPECT_NEAR(niceStep(0.04, 10, 1e-6), 0.005, 1e-12);
}

TEST(Multiples, IncludeBothEndsInSpiteOfRounding) {
    EXPECT_EQ(multiplesWithin(0.0, 20.0, 5.0), (std::vector<double>{0, 5, 10, 15, 20}));
    EXPECT_EQ(multiplesWithin(1.0, 19.0, 5.0), (std::vector<double>{5, 10, 15}));
    EXPECT_EQ(multiplesWithin(0.3, 0.30000000000000004, 0.1).size(), 1u);
    EXPECT_FALSE(std::signbit(multiplesWithin(0.0, 1.0, 1.0).front()));
}

TEST(Spread, LeavesAloneWhatHasRoom) {
    const std::vector<double> wanted = {50.0, 10.0, 90.0};
    EXPECT_EQ(spread(wanted, 15.0, 0.0, 100.0), wanted);
}

TEST(Spread, PartsEqualWishesEvenlyAndInOrder) {
    EXPECT_EQ(spread({50.0, 50.0, 50.0}, 10.0, 0.0, 100.0),
              (std::vector<double>{40.0, 50.0, 60.0}));
    EXPECT_EQ(spread({0.0, 0.0}, 10.0, 0.0, 100.0), (std::vector<double>{0.0, 10.0}));
    EXPECT_EQ(spread({100.0, 100.0}, 10.0, 0.0, 100.0), (std::vector<double>{90.0, 100.0}));
}

TEST(Spread, NeverOverlapsAndKeepsTheOrderOfAnyWishes) {
    std::mt19937 random(3);
    std::uniform_real_distribution<double> place(0.0, 200.0);
    for (int round = 0; round < 500; ++round) {
        std::vector<double> wanted(8);
        std::generate(wanted.begin(), wanted.end(), [&] { return place(random); });
        const std::vector<double> places = spread(wanted, 15.0, 0.0, 200.0);
        for (std::size_t i = 0; i < wanted.size(); ++i) {
            EXPECT_GE(places[i], 0.0);
            EXPECT_LE(places[i], 200.0 + 1e-9);
            for (std::size_t j = 0; j < i; ++j) {
                EXPECT_GE(std::fabs(places[i] - places[j]), 15.0 - 1e-9);
                EXPECT_EQ(places[i] < places[j], wanted[i] < wanted[j]);
            }
        }
    }
}

}  // namespace
}  // namespace ruvex::cli
