// What the benchmarks of imaging share: frames of 1920x1080 and the timing of pairs.

#pragma once

#include <algorithm>
#include <chrono>
#include <ctime>
#include <vector>

#include "imaging/texture.h"

namespace ruvex::bench {

inline constexpr int kWidth = 1920;
inline constexpr int kHeight = 1080;

/// A source with something in it and a target of full size.
template <class P>
struct Frames {
    VxTexture<P> source;
    VxTexture<P> target;

    explicit Frames(int width = kWidth, int height = kHeight) {
        source.x.setSize(width);
        source.y.setSize(height);
        source.allocate(Contents::Zero);
        source.setEdgeMethods(kEdgeHold, kEdgeHold);
        std::byte* bytes = source.data;
        for (std::size_t i = 0; i < static_cast<std::size_t>(source.stride) * height; ++i) {
            bytes[i] = static_cast<std::byte>(i * 2654435761u >> 24 & 0x3F);
        }
        target.x.setSize(kWidth);
        target.y.setSize(kHeight);
        target.allocate(Contents::Zero);
    }
};

/// Seconds on the clock, for work on several threads.
double seconds(const auto& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Seconds of processor time, for work on one thread beside other programs.
double processorSeconds(const auto& work) {
    const std::clock_t start = std::clock();
    work();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

inline double median(std::vector<double> values) {
    std::nth_element(values.begin(), values.begin() + values.size() / 2, values.end());
    return values[values.size() / 2];
}

}  // namespace ruvex::bench
