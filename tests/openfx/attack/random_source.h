// Random and hostile values.

#pragma once

#include <cstdint>
#include <limits>
#include <random>
#include <string>

#include "tests/openfx/host/property_set.h"

namespace ruvex::ofxhost::attack {

class RandomSource {
public:
    explicit RandomSource(std::uint32_t seed) : random_(seed) {}

    int whole(int low, int high) { return std::uniform_int_distribution(low, high)(random_); }
    bool oneIn(int count) { return whole(1, count) == 1; }
    double part() { return std::uniform_real_distribution(0.0, 1.0)(random_); }

    template <class T, std::size_t N>
    T oneOf(const T (&values)[N]) {
        return values[whole(0, static_cast<int>(N) - 1)];
    }

    /// NaN, infinities, the ends of the range of integers and more.
    double oddReal() {
        static constexpr double kOdd[] = {std::numeric_limits<double>::quiet_NaN(),
                                          std::numeric_limits<double>::infinity(),
                                          -std::numeric_limits<double>::infinity(),
                                          std::numeric_limits<double>::max(),
                                          -std::numeric_limits<double>::max(),
                                          std::numeric_limits<double>::denorm_min(),
                                          2147483648.0,
                                          -2147483649.0,
                                          1e300,
                                          -1.0,
                                          -0.0,
                                          0.0};
        return oneOf(kOdd);
    }
    int oddWhole() {
        static constexpr int kOdd[] = {std::numeric_limits<int>::min(),
                                       std::numeric_limits<int>::max(),
                                       -1,
                                       0,
                                       1,
                                       65536,
                                       1 << 30};
        return oneOf(kOdd);
    }
    std::string oddText() {
        static constexpr const char* kOdd[] = {
            "",      "OfxBitDepthHalf", "OfxImageComponentNone",
            "%s%n",  "OfxFieldLower",   "OfxFieldUpper",
            "Other", "\xff\xfe",        "OfxImageAlphaPremultiplied"};
        return oneIn(20) ? std::string(static_cast<std::size_t>(whole(0, 5000)), 'x') : oneOf(kOdd);
    }
    OfxStatus oddStatus() {
        static constexpr OfxStatus kOdd[] = {kOfxStatFailed,
                                             kOfxStatErrFatal,
                                             kOfxStatErrUnknown,
                                             kOfxStatErrMissingHostFeature,
                                             kOfxStatErrMemory,
                                             kOfxStatErrBadHandle,
                                             kOfxStatErrBadIndex,
                                             kOfxStatErrValue,
                                             kOfxStatReplyDefault,
                                             -1,
                                             1 << 30};
        return oneOf(kOdd);
    }
    PropertyValue oddValue(PropertyType type) {
        switch (type) {
            case PropertyType::Pointer:
                return static_cast<void*>(nullptr);
            case PropertyType::String:
                return oddText();
            case PropertyType::Double:
                return oddReal();
            case PropertyType::Int:
                break;
        }
        return oddWhole();
    }

private:
    std::mt19937 random_;
};

}  // namespace ruvex::ofxhost::attack
