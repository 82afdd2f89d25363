// The source of the picture tests: a test card drawn with whole numbers alone.

#pragma once

#include <algorithm>

#include "tests/effect/render_fixture.h"
#include "tests/imaging/support/white.h"

namespace ruvex::test {

/// Colour bars above, a grey ramp with a disc in the middle, a checkerboard below; alpha rises from
/// left to right. A bright block moves to the right by one sixteenth of the width a frame, so that
/// frames are told apart. In S2.14 the top fifth of the disc is brighter than white.
template <class P>
class TestCard {
public:
    TestCard(int width, int height, int frame) : width_(width), height_(height), frame_(frame) {}

    Picture<P> draw() const {
        Picture<P> picture{width_, height_, {}};
        for (int y = 0; y < height_; ++y) {
            for (int x = 0; x < width_; ++x) picture.pixels.push_back(pixelAt(x, y));
        }
        return picture;
    }

private:
    static constexpr int kWhite = kWhiteOf<P>;
    static constexpr int kTop = sizeof(P) == 4 ? 255 : 32767;

    static P pixel(int red, int green, int blue, int alpha) {
        const auto held = [](int value) {
            return static_cast<typename P::Component>(std::clamp(value, 0, kTop));
        };
        return {{held(red), held(green), held(blue), held(alpha)}};
    }

    P pixelAt(int x, int y) const {
        const int alpha = kWhite / 2 + kWhite / 2 * x / width_;
        const int block = ((frame_ * width_ / 16) % width_ + width_) % width_;
        if (y * 8 / height_ == 3 && x >= block && x < block + width_ / 8) {
            return pixel(kWhite, kWhite * 7 / 8, kWhite / 4, alpha);
        }
        if (y * 3 / height_ == 2) return bar(x, alpha);
        if (y * 3 / height_ == 0) return square(x, y, alpha);
        return rampOrDisc(x, y, alpha);
    }
    P bar(int x, int alpha) const {
        const int number = 7 - x * 8 / width_;
        const int high = kWhite * 3 / 4, low = kWhite / 16;
        return pixel(number & 2 ? high : low, number & 4 ? high : low, number & 1 ? high : low,
                     alpha);
    }
    P square(int x, int y, int alpha) const {
        const bool light = (x * 12 / width_ + y * 9 / height_) % 2 != 0;
        return light ? pixel(kWhite * 9 / 10, kWhite * 4 / 5, kWhite * 7 / 10, alpha)
                     : pixel(kWhite / 10, kWhite / 8, kWhite / 5, alpha);
    }
    P rampOrDisc(int x, int y, int alpha) const {
        const int dx = 2 * x - width_, dy = 2 * y - height_;
        if (dx * dx + dy * dy > height_ * height_ / 10) {
            const int grey = kWhite * x / width_;
            return pixel(grey, grey, grey, alpha);
        }
        const int light = dy * 5 > height_ ? kTop - kTop / 10 : kWhite * 7 / 8;
        return pixel(light, light / 3, light / 8 + kWhite * (dy + height_) / (4 * height_), alpha);
    }

    int width_, height_, frame_;
};

template <class P>
Picture<P> testCard(int width, int height, int frame = 0) {
    return TestCard<P>(width, height, frame).draw();
}

}  // namespace ruvex::test
