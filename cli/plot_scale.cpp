#include "cli/plot_scale.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace ruvex::cli {
namespace {

/// Neighbours that are pushed together, as one.
struct Block {
    double sum;
    double count;

    double mean() const { return sum / count; }
};

std::vector<std::size_t> orderOf(const std::vector<double>& values) {
    std::vector<std::size_t> order(values.size());
    std::iota(order.begin(), order.end(), 0u);
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return values[a] < values[b]; });
    return order;
}

/// The rising sequence nearest to `values`: what falls is drawn together to its mean.
std::vector<double> rising(const std::vector<double>& values) {
    std::vector<Block> blocks;
    for (const double value : values) {
        blocks.push_back({value, 1.0});
        while (blocks.size() > 1 && blocks.back().mean() < blocks[blocks.size() - 2].mean()) {
            const Block last = blocks.back();
            blocks.pop_back();
            blocks.back().sum += last.sum;
            blocks.back().count += last.count;
        }
    }
    std::vector<double> result;
    for (const Block& block : blocks) {
        result.insert(result.end(), static_cast<std::size_t>(block.count), block.mean());
    }
    return result;
}

}  // namespace

double niceStep(double length, int most, double least) {
    for (double decade = least;; decade *= 10.0) {
        for (const double factor : {1.0, 2.0, 5.0}) {
            if (decade * factor * most >= length) return decade * factor;
        }
    }
}

std::vector<double> multiplesWithin(double low, double high, double step) {
    constexpr double kRounding = 1e-6;
    std::vector<double> multiples;
    const double last = std::floor(high / step + kRounding);
    for (double k = std::ceil(low / step - kRounding); k <= last; ++k) {
        // Zero is added, so that there is none below zero.
        multiples.push_back(k * step + 0.0);
    }
    return multiples;
}

std::vector<double> spread(const std::vector<double>& wanted, double gap, double low, double high) {
    const std::vector<std::size_t> order = orderOf(wanted);
    // Without the gaps the places only have to rise.
    std::vector<double> bare;
    for (std::size_t i = 0; i < order.size(); ++i) {
        bare.push_back(wanted[order[i]] - static_cast<double>(i) * gap);
    }
    bare = rising(bare);
    const double top = std::max(low, high - gap * (static_cast<double>(wanted.size()) - 1.0));
    std::vector<double> places(wanted.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
        places[order[i]] = std::clamp(bare[i], low, top) + static_cast<double>(i) * gap;
    }
    return places;
}

}  // namespace ruvex::cli
