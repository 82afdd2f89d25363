#include "media/pixels/area_scaler.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ruvex::media {
namespace {

template <class Component>
Component roundedTo(double value) {
    using Limits = std::numeric_limits<Component>;
    constexpr double kLeast = Limits::min();
    constexpr double kMost = Limits::max();
    return static_cast<Component>(std::clamp(std::floor(value + 0.5), kLeast, kMost));
}

/// The mean of values whose weighted sum and sum of weights are given; 0 where nothing weighs.
template <class Component>
Component meanOf(double sum, double weights) {
    return weights > 0.0 ? roundedTo<Component>(sum / weights) : Component{};
}

}  // namespace

AreaScaler::AreaScaler(const AreaScaling& scaling)
    : scaling_(scaling),
      columns_(sharesOf(scaling.from.width, scaling.to.width)),
      lines_(scaling.interlaced ? fieldSharesOf(scaling.from.height, scaling.to.height)
                                : sharesOf(scaling.from.height, scaling.to.height)),
      line_(static_cast<std::size_t>(scaling.from.width) * kChannels),
      sum_(line_.size()) {}

/// Lengths are counted in parts of 1 / `to` of a source pixel, so that all of them are whole:
/// result pixel i covers the parts from i * from to (i + 1) * from.
AreaScaler::Shares AreaScaler::sharesOf(int from, int to) {
    Shares shares{.total = static_cast<double>(from)};
    for (std::int64_t i = 0; i < to; ++i) {
        const std::int64_t begin = i * from;
        const std::int64_t end = begin + from;
        for (std::int64_t k = begin / to; k * to < end; ++k) {
            const auto covered = std::min(end, (k + 1) * to) - std::max(begin, k * to);
            shares.all.push_back({static_cast<int>(k), static_cast<double>(covered)});
        }
        shares.ends.push_back(shares.all.size());
    }
    return shares;
}

/// Line 2k + p of a frame is line k of field p. Seen in the frame, the middle of a field's line is
/// that of the frame's line, but it stands for two lines. With r = from / to, result line k of
/// field p covers r lines of the source's field around ((2k + p + 0.5) r - p - 0.5) / 2 + 0.5,
/// counted from the field's upper edge. What lies beyond the edges is cut off. Lengths are counted
/// in parts of 1 / (4 to) of a field's line.
AreaScaler::Shares AreaScaler::fieldSharesOf(int from, int to) {
    const std::int64_t unit = std::int64_t{4} * to;
    Shares shares{.total = 4.0 * from};
    for (std::int64_t line = 0; line < to; ++line) {
        const std::int64_t field = line % 2;
        const std::int64_t fieldLines = (from + 1 - field) / 2;
        const std::int64_t at = from * (2 * line - 1) + to * (1 - 2 * field);
        const std::int64_t begin = std::clamp<std::int64_t>(at, 0, (fieldLines - 1) * unit);
        const std::int64_t end =
            std::clamp<std::int64_t>(at + std::int64_t{4} * from, begin + 1, fieldLines * unit);
        for (std::int64_t k = begin / unit; k * unit < end; ++k) {
            const auto covered = std::min(end, (k + 1) * unit) - std::max(begin, k * unit);
            shares.all.push_back({static_cast<int>(2 * k + field), static_cast<double>(covered)});
        }
        shares.ends.push_back(shares.all.size());
    }
    return shares;
}

void AreaScaler::scale(const Frame& source, Frame& result) {
    makeRoom(result, scaling_.to, source.depth());
    if (source.depth() == Depth::Bits8) {
        scaleLines<std::uint8_t>(source, result);
    } else {
        scaleLines<std::int16_t>(source, result);
    }
}

template <class Component>
void AreaScaler::scaleLines(const Frame& source, Frame& result) {
    int inLine = -1;  // The source line that line_ holds: neighbours share the one at their border.
    std::size_t share = 0;
    for (int y = 0; y < scaling_.to.height; ++y) {
        std::ranges::fill(sum_, 0.0);
        double covered = 0.0;
        for (; share < lines_.ends[static_cast<std::size_t>(y)]; ++share) {
            const auto& [line, weight] = lines_.all[share];
            if (line != inLine) {
                readLine(reinterpret_cast<const Component*>(
                    source.row(chainRowOfLine(line, source.height()))));
            }
            inLine = line;
            addLine(weight);
            covered += weight;
        }
        writeLine(covered,
                  reinterpret_cast<Component*>(result.row(chainRowOfLine(y, result.height()))));
    }
}

template <class Component>
void AreaScaler::readLine(const Component* source) {
    if (!scaling_.weighByAlpha) {
        std::copy_n(source, line_.size(), line_.begin());
        return;
    }
    for (std::size_t i = 0; i < line_.size(); i += kChannels) {
        const double alpha = std::max<double>(source[i + kAlpha], 0.0);
        for (std::size_t channel = 0; channel < kAlpha; ++channel) {
            line_[i + channel] = source[i + channel] * alpha;
        }
        line_[i + kAlpha] = alpha;
    }
}

void AreaScaler::addLine(double weight) {
    for (std::size_t i = 0; i < sum_.size(); ++i) {
        sum_[i] += line_[i] * weight;
    }
}

template <class Component>
void AreaScaler::writeLine(double coveredLines, Component* result) const {
    const double area = coveredLines * columns_.total;
    std::size_t share = 0;
    for (const std::size_t end : columns_.ends) {
        double red = 0.0;
        double green = 0.0;
        double blue = 0.0;
        double alpha = 0.0;
        for (; share < end; ++share) {
            const auto& [column, weight] = columns_.all[share];
            const double* pixel = &sum_[static_cast<std::size_t>(column) * kChannels];
            red += pixel[0] * weight;
            green += pixel[1] * weight;
            blue += pixel[2] * weight;
            alpha += pixel[kAlpha] * weight;
        }
        const double colourWeights = scaling_.weighByAlpha ? alpha : area;
        *result++ = meanOf<Component>(red, colourWeights);
        *result++ = meanOf<Component>(green, colourWeights);
        *result++ = meanOf<Component>(blue, colourWeights);
        *result++ = meanOf<Component>(alpha, area);
    }
}

Frame areaScaled(const Frame& frame, FrameSize size) {
    if (frame.size() == size) return frame;
    Frame result;
    AreaScaler({.from = frame.size(), .to = size, .weighByAlpha = true}).scale(frame, result);
    return result;
}

}  // namespace ruvex::media
