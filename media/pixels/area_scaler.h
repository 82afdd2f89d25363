// Pictures scaled by area averaging.

#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "media/frame.h"

namespace ruvex::media {

/// How a picture is scaled.
struct AreaScaling {
    FrameSize from;
    FrameSize to;
    /// Weight colours by alpha, so that transparent pixels give no colour; a result pixel without
    /// any alpha is 0, and alpha below 0 counts as 0. Otherwise each channel is averaged by itself.
    bool weighByAlpha = false;
    /// Scale each field by itself, so that the two points in time do not mix.
    bool interlaced = false;
};

/// Each result pixel is the mean of the area that it covers in the source, in which source pixels
/// count by the part of them that is covered; rounded to the nearest, halves up. A side may grow
/// too: its pixels then repeat and blend where they meet. One thread at a time uses a scaler.
class AreaScaler {
public:
    /// Both sizes have at least one pixel, and two lines where interlaced.
    explicit AreaScaler(const AreaScaling& scaling);

    /// `source` has the size `from`; `result` gets the size `to` and the depth of the source.
    void scale(const Frame& source, Frame& result);

private:
    /// A source line or column, and how much of it a result line or column covers.
    struct Share {
        int index;
        double weight;
    };
    /// The shares of all result lines or columns, one after the other.
    struct Shares {
        std::vector<Share> all{};
        std::vector<std::size_t> ends{};  ///< Of each result line's or column's shares in `all`.
        double total = 0.0;               ///< The sum of the weights where nothing is cut off.
    };

    static Shares sharesOf(int from, int to);
    static Shares fieldSharesOf(int from, int to);

    template <class Component>
    void scaleLines(const Frame& source, Frame& result);
    template <class Component>
    void readLine(const Component* source);
    void addLine(double weight);
    template <class Component>
    void writeLine(double coveredLines, Component* result) const;

    AreaScaling scaling_;
    Shares columns_;
    Shares lines_;
    // Components as doubles: the products and sums of whole numbers stay exact up to 2^53.
    std::vector<double> line_;  ///< Of a source line; colours are weighted already.
    std::vector<double> sum_;   ///< Of the lines of one result line.
};

/// The frame in another size, with colours weighted by alpha. A frame of this size is returned
/// unchanged.
Frame areaScaled(const Frame& frame, FrameSize size);

}  // namespace ruvex::media
