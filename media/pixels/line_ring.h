// The last lines of a picture that a filter across lines has used.

#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace ruvex::media {

/// The most lines that a filter sums: those of one that decimates by 4.
inline constexpr int kMostTaps = 16;

/// Keeps lines by their numbers, from 0 on, each in the place of the one `count` lines before.
template <class Sample>
class LineRing {
public:
    /// `count` is 1 to kMostTaps lines of `width` samples.
    LineRing(int count, int width)
        : width_(static_cast<std::size_t>(width)),
          numbers_(static_cast<std::size_t>(count), kNone),
          samples_(numbers_.size() * width_) {}

    /// Forgets all lines.
    void clear() { std::fill(numbers_.begin(), numbers_.end(), kNone); }

    bool has(int number) const { return numbers_[placeOf(number)] == number; }
    /// The memory for a line, which the ring owns; what it held before is lost.
    Sample* add(int number) {
        numbers_[placeOf(number)] = number;
        return &samples_[placeOf(number) * width_];
    }
    /// A line that is kept.
    const Sample* line(int number) const { return &samples_[placeOf(number) * width_]; }

    /// Consecutive lines from `first` on, each from its sample `offset` on. Of `height` lines the
    /// outermost are repeated beyond the edges.
    std::array<const Sample*, kMostTaps> lines(int first, int height, int offset) const {
        std::array<const Sample*, kMostTaps> found{};
        for (std::size_t i = 0; i < numbers_.size(); ++i) {
            found[i] = line(std::clamp(first + static_cast<int>(i), 0, height - 1)) + offset;
        }
        return found;
    }

private:
    static constexpr int kNone = -1;

    std::size_t placeOf(int number) const {
        return static_cast<std::size_t>(number) % numbers_.size();
    }

    std::size_t width_;
    std::vector<int> numbers_;  ///< Of the kept lines.
    std::vector<Sample> samples_;
};

}  // namespace ruvex::media
