// YUV in whole numbers, one sample at a time: the nearest values to exact fractions.

#pragma once

#include <cstdint>
#include <functional>

extern "C" {
#include <libavutil/pixfmt.h>
}

namespace ruvex::media {

/// Places of chroma samples, in eighths of a luma sample from the first one.
struct ChromaPlaces {
    int step;    ///< Luma samples from one chroma sample to the next: 1, 2 or 4.
    int offset;  ///< Of the first chroma sample, in eighths.
};

/// A sample by its column and line; both are within the picture.
using SampleAt = std::function<int(int x, int y)>;

/// A field or a whole picture: so many columns and lines.
struct FractionYuv {
    int matrix;  ///< An AVColorSpace.
    bool full;
    int bits;
    int white;  ///< Of the frame.
    int width;
    int height;
    ChromaPlaces across;
    ChromaPlaces down;

    /// The nearest component (0 red, 1 green, 2 blue) to that of the pixel, halves up, not clamped.
    int component(int index, int x, int y, const SampleAt& luma, const SampleAt& blue,
                  const SampleAt& red) const;
    /// The nearest code values, halves up, clamped to their range. Components are from black to
    /// white. `sampleX` and `sampleY` count chroma samples.
    int lumaCode(int red, int green, int blue) const;
    int chromaCode(bool ofRed, int sampleX, int sampleY, const SampleAt& red, const SampleAt& green,
                   const SampleAt& blue) const;
    /// Alpha, which is always of full range.
    int alphaCode(int alpha) const;
    int alphaComponent(int code) const;
};

}  // namespace ruvex::media
