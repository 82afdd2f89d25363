// Bilinear interpolation between four neighbours; the fill pixel replaces missing ones.

#pragma once

#include "imaging/pixel_convert.h"
#include "imaging/tex_axis.h"
#include "imaging/texture.h"

namespace ruvex {

/// The position of a sample on one axis: its two neighbours and the weight of the second.
struct AxisSample {
    TexPair pair;
    float fraction;  ///< 0 <= fraction < 1; 0 at the first neighbour's centre
};

inline AxisSample axisSample(const TexAxis& axis, float position) {
    const float centred = position - 0.5f - axis.originF;
    const std::int32_t index = floorToInt(centred);
    return {axis.mapPair(index), centred - static_cast<float>(index)};
}

template <class P, class C>
C toCompanion(const P& pixel) {
    C result;
    for (int k = 0; k < PixelTraits<P>::kComponents; ++k) {
        PixelTraits<C>::components(result)[k] =
            static_cast<typename PixelTraits<C>::Component>(PixelTraits<P>::components(pixel)[k]);
    }
    return result;
}

template <class C>
C lerpPixel(const C& a, const C& b, float fraction) {
    C result;
    for (int k = 0; k < PixelTraits<C>::kComponents; ++k) {
        PixelTraits<C>::components(result)[k] =
            lerp(PixelTraits<C>::components(a)[k], PixelTraits<C>::components(b)[k], fraction);
    }
    return result;
}

/// The two rows that a sample reads. Null is a row of the fill pixel.
template <class P>
struct SampleRows {
    const P* first;
    const P* second;
    bool same;      ///< both are the same row, so there is no vertical lerp
    bool adjacent;  ///< both exist and follow each other
    float fraction;
};

template <class P, class C>
SampleRows<P> sampleRows(const VxTexture<P, C>& texture, const AxisSample& row) {
    const auto at = [&](std::int32_t index) {
        return index == kNoPixel || !texture.data ? nullptr : texture.bufferRow(index);
    };
    return {at(row.pair.first), at(row.pair.second), row.pair.first == row.pair.second,
            row.pair.adjacent && texture.data, row.fraction};
}

/// interpolate for a sample with a missing or repeated neighbour.
template <class P, class C>
C interpolateAtEdge(const P& fill, const AxisSample& column, const SampleRows<P>& rows) {
    const std::int32_t first = column.pair.first;
    const std::int32_t second = column.pair.second;
    const bool noColumn = first == kNoPixel && second == kNoPixel;
    const bool noRow = !rows.first && !rows.second;
    if (noColumn || noRow) return toCompanion<P, C>(fill);

    const auto corner = [&](const P* row, std::int32_t index) {
        return toCompanion<P, C>(row && index != kNoPixel ? row[index] : fill);
    };
    const auto alongRow = [&](const P* row) {
        const C left = corner(row, first);
        return first == second ? left : lerpPixel(left, corner(row, second), column.fraction);
    };
    const C upper = alongRow(rows.first);
    return rows.same ? upper : lerpPixel(upper, alongRow(rows.second), rows.fraction);
}

/// The interpolated value at a column and a pair of rows: first along X in both rows, then along Y.
template <class P, class C>
C interpolate(const P& fill, const AxisSample& column, const SampleRows<P>& rows) {
    if (!column.pair.adjacent || !rows.adjacent) {
        return interpolateAtEdge<P, C>(fill, column, rows);
    }
    const std::int32_t i = column.pair.first;
    const C first = lerpPixel(toCompanion<P, C>(rows.first[i]),
                              toCompanion<P, C>(rows.first[i + 1]), column.fraction);
    const C second = lerpPixel(toCompanion<P, C>(rows.second[i]),
                               toCompanion<P, C>(rows.second[i + 1]), column.fraction);
    return lerpPixel(first, second, rows.fraction);
}

}  // namespace ruvex
