// A few consecutive lines of a picture, and weighted sums of them, for filters across lines.

#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace ruvex::media {

/// Keeps the last lines that were used.
class LineCache {
public:
    /// Sums of up to `count` consecutive lines of `width` values.
    LineCache(int count, int width)
        : numbers_(static_cast<std::size_t>(count), kNone),
          lines_(static_cast<std::size_t>(count),
                 std::vector<double>(static_cast<std::size_t>(width))) {}

    /// The sum of the lines first, first + 1, ..., at least 0, each multiplied by its weight.
    /// fill(number, line) writes a line that is not kept to the doubles from `line` on. `sum` has
    /// the lines' width.
    template <class Fill>
    void weightedSum(int first, std::span<const double> weights, std::vector<double>& sum,
                     Fill fill) {
        sum.assign(sum.size(), 0);
        for (std::size_t i = 0; i < weights.size(); ++i) {
            const std::vector<double>& added = line(first + static_cast<int>(i), fill);
            for (std::size_t x = 0; x < sum.size(); ++x) {
                sum[x] += weights[i] * added[x];
            }
        }
    }

private:
    static constexpr int kNone = -1;

    template <class Fill>
    const std::vector<double>& line(int number, Fill fill) {
        const std::size_t place = static_cast<std::size_t>(number) % lines_.size();
        if (numbers_[place] != number) {
            fill(number, lines_[place].data());
            numbers_[place] = number;
        }
        return lines_[place];
    }

    std::vector<int> numbers_;  ///< Of the kept lines.
    std::vector<std::vector<double>> lines_;
};

}  // namespace ruvex::media
