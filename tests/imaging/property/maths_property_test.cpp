// Our elementary functions against the system's: the same after rounding to single precision, and
// within 1 ulp in double.

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <random>

#include "imaging/maths/maths.h"

namespace ruvex {
namespace {

#ifdef RUVEX_SANITIZED
constexpr int kArguments = 50'000;
#else
constexpr int kArguments = 2'000'000;
#endif

// The distance of `own` from a value of higher precision, in units of the last place there.
double ulps(double own, long double truth) {
    int exponent = 0;
    std::frexp(static_cast<double>(truth), &exponent);
    const long double unit = std::ldexp(1.0L, std::max(exponent - 53, -1074));
    return static_cast<double>(std::fabs((static_cast<long double>(own) - truth) / unit));
}

struct Range {
    double low, high;
};

template <class Own, class System, class Exact>
void compare(const char* name, Range range, Own own, System system, Exact exact) {
    SCOPED_TRACE(testing::Message() << name << " in " << range.low << ".." << range.high);
    std::mt19937_64 random(20);
    std::uniform_real_distribution<double> arguments(range.low, range.high);
    int asFloat = 0;
    double worst = 0.0;
    double worstAt = 0.0;
    for (int i = 0; i < kArguments; ++i) {
        const double x = arguments(random);
        const double value = own(x);
        asFloat += static_cast<float>(value) != static_cast<float>(system(x));
        const double error = ulps(value, exact(x));
        if (error > worst) {
            worst = error;
            worstAt = x;
        }
    }
    EXPECT_EQ(asFloat, 0) << "arguments whose single-precision results differ";
    EXPECT_LE(worst, 1.0) << "ulp, at " << worstAt;
}

#define RUVEX_COMPARE(function, low, high)                                   \
    compare(                                                                 \
        #function, {low, high}, [](double x) { return maths::function(x); }, \
        [](double x) { return std::function(x); },                           \
        [](double x) { return std::function(static_cast<long double>(x)); })

TEST(Maths, SinesAndCosinesAgreeWithTheSystem) {
    RUVEX_COMPARE(sin, -6.3, 6.3);
    RUVEX_COMPARE(sin, -20000.0, 20000.0);
    RUVEX_COMPARE(cos, -6.3, 6.3);
    RUVEX_COMPARE(cos, -20000.0, 20000.0);
}

TEST(Maths, TangentsAgreeWithTheSystem) {
    RUVEX_COMPARE(tan, -6.3, 6.3);
    RUVEX_COMPARE(tan, -20000.0, 20000.0);
}

TEST(Maths, ExponentialsAndLogarithmsAgreeWithTheSystem) {
    RUVEX_COMPARE(exp, -8.0, 8.0);
    RUVEX_COMPARE(exp, -700.0, 700.0);
    RUVEX_COMPARE(log, 0.0, 4.0);
    RUVEX_COMPARE(log, 0.0, 1e9);
}

TEST(Maths, PowersAgreeWithTheSystem) {
    for (const double y : {0.01, 0.5, 1.0, 1.37, 2.0, 3.0, 25.0}) {
        SCOPED_TRACE(y);
        compare(
            "pow", {0.0, 2.0}, [y](double x) { return maths::pow(x, y); },
            [y](double x) { return std::pow(x, y); },
            [y](double x) { return std::pow(static_cast<long double>(x), y); });
    }
}

TEST(Maths, AllBinaryExponentsAreCovered) {
    std::mt19937_64 random(21);
    constexpr long double kPower = 0.3;  // the double, not the fraction
    for (int i = 0; i < kArguments / 10; ++i) {
        const double x = std::bit_cast<double>(random() & 0x7FFFFFFFFFFFFFFFu);
        if (!(x < std::numeric_limits<double>::infinity()) || x == 0.0) continue;
        EXPECT_LE(ulps(maths::log(x), std::log(static_cast<long double>(x))), 1.0) << x;
        EXPECT_LE(ulps(maths::pow(x, 0.3), std::pow(static_cast<long double>(x), kPower)), 1.0)
            << x;
        EXPECT_EQ(maths::sqrt(x), std::sqrt(x));
    }
}

TEST(Maths, SpecialArguments) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(std::isnan(maths::sin(kInfinity)) && std::isnan(maths::cos(-kInfinity)));
    EXPECT_TRUE(std::isnan(maths::tan(kNan)) && std::isnan(maths::exp(kNan)));
    EXPECT_TRUE(std::isnan(maths::log(-1.0)) && std::isnan(maths::pow(-1.0, 2.0)));
    EXPECT_EQ(maths::sin(0.0), 0.0);
    EXPECT_EQ(maths::cos(0.0), 1.0);
    EXPECT_EQ(maths::exp(0.0), 1.0);
    EXPECT_EQ(maths::exp(710.0), kInfinity);
    EXPECT_EQ(maths::exp(-746.0), 0.0);
    EXPECT_EQ(maths::exp(-740.0), std::exp(-740.0)) << "results below the normal numbers";
    EXPECT_EQ(maths::log(1.0), 0.0);
    EXPECT_EQ(maths::log(0.0), -kInfinity);
    EXPECT_EQ(maths::log(kInfinity), kInfinity);
    EXPECT_EQ(maths::pow(0.0, 0.0), 1.0);
    EXPECT_EQ(maths::pow(0.0, 2.0), 0.0);
    EXPECT_EQ(maths::pow(0.0, -2.0), kInfinity);
    EXPECT_EQ(maths::pow(2.0, 10.0), 1024.0);
    EXPECT_EQ(maths::pow(2.0, 1e300), kInfinity);
    EXPECT_EQ(maths::pow(0.5, kInfinity), 0.0);
    EXPECT_EQ(maths::pow(kInfinity, -1.0), 0.0);
    EXPECT_LE(std::fabs(maths::sin(1e15)), 1.0);
}

}  // namespace
}  // namespace ruvex
