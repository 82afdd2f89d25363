// The inner loops of the conversion between YUV and RGB, a line at a time.
//
// All sums of samples and weights are exact: integers in 32 bits where they fit, else integers in
// doubles (below 2^53). `Sum` is either type.

#pragma once

#include <cstdint>
#include <type_traits>

#include "imaging/kernels/dispatch.h"
#include "media/pixels/code_scale.h"
#include "media/pixels/colour_scale.h"

namespace ruvex::media {

/// One line of a YUV picture, chroma at each pixel. Colour differences are multiplied by the unit
/// of the chroma weights; 0 is neutral. `alpha` is null for a picture without it.
template <class Sum>
struct YuvLine {
    const std::uint16_t* luma;
    const Sum* blue;
    const Sum* red;
    const std::uint16_t* alpha;
    int width;
};

/// Red, green and blue of a row of pixels, apart from each other: of every second pixel from the
/// first one on, and of those between them.
struct PairLines {
    std::int32_t* even[3];
    std::int32_t* odd[3];
};

/// Sums of red, green and blue at the chroma samples of a line.
template <class Sum>
struct RgbSums {
    const Sum* red;
    const Sum* green;
    const Sum* blue;
    int width;
};

/// sums[i] = start + the sum of weights[tap] * lines[tap][i]; i is 0 to count - 1, and `taps` at
/// least 1.
template <class From, class Sum>
using SumLines = void (*)(const From* const* lines, const std::int32_t* weights, int taps,
                          std::int32_t start, Sum* sums, int count);

/// Interpolates to two outputs for each input: outputs 2 i and 2 i + 1 are the sums of 4 inputs
/// from input `i + first[0]` and `i + first[1]` on, with weights[0 to 3] and weights[4 to 7]. There
/// are `count` outputs; the inputs go on beyond both edges as far as the weights reach.
template <class Sum>
using Interpolate = void (*)(const Sum* inputs, const int first[2], const std::int32_t* weights,
                             Sum* outputs, int count);

/// Converts a line to pixels, `pixels` being their components. Each component is the nearest to the
/// exact value, halves up, clamped to the range of its type.
template <class Sum, class Component>
using Decode = void (*)(const YuvLine<Sum>& line, const ColourScale& colour, Component* pixels);

/// Takes pixels apart; components are clamped to black and white. If their number is odd, the last
/// pixel counts twice.
template <class Component>
using Split = void (*)(const Component* pixels, int width, const PairLines& lines);

/// Stores the code values of weighted sums of each pixel's components: the nearest, halves up,
/// clamped to their range. Components are clamped to black and white. There is a line of words for
/// each of the codes.
template <class Component, class Word>
using EncodePixels = void (*)(const Component* pixels, int width, const PixelCodes* codes,
                              Word* const* words);

/// The same for components that are themselves sums of samples.
template <class Sum, class Word>
using EncodeSums = void (*)(const RgbSums<Sum>& sums, const SumCodes& codes, Word* words);

/// The loops with sums of one type.
template <class Sum>
struct YuvSumKernels {
    SumLines<std::uint16_t, Sum> sumCodes;
    SumLines<std::int32_t, Sum> sumComponents;
    Interpolate<Sum> interpolate;
    Decode<Sum, std::uint8_t> decode8;
    Decode<Sum, std::int16_t> decode16;
    EncodeSums<Sum, std::uint8_t> encode8;
    EncodeSums<Sum, std::uint16_t> encode16;
};

/// The loops from pixels to words of one type: all that have one line of chroma for each pixel, or
/// luma or alpha alone.
template <class Component, class Word>
struct EncodeKernels {
    EncodePixels<Component, Word> lumaBlueRed;
    EncodePixels<Component, Word> luma;
    EncodePixels<Component, Word> alpha;
};

/// The loops from pixels of one type.
template <class Component>
struct PixelKernels {
    Split<Component> split;
    EncodeKernels<Component, std::uint8_t> to8;
    EncodeKernels<Component, std::uint16_t> to16;
};

/// One version of every loop. All versions give the same bits.
struct YuvKernels {
    YuvSumKernels<std::int32_t> integers;
    YuvSumKernels<double> doubles;
    PixelKernels<std::uint8_t> from8;
    PixelKernels<std::int16_t> from16;

    /// The loops with sums of type `Sum`.
    template <class Sum>
    const YuvSumKernels<Sum>& with() const {
        if constexpr (std::is_same_v<Sum, double>) {
            return doubles;
        } else {
            return integers;
        }
    }
};

/// The loops compiled for the build's target processor.
const YuvKernels& plainYuvKernels();

/// The loops for x86-64 processors with AVX2. Not defined in builds for other architectures.
const YuvKernels& avx2YuvKernels();

/// The loops for x86-64 processors with 512-bit vectors. Not defined in builds for other
/// architectures.
const YuvKernels& avx512YuvKernels();

/// All versions that this machine's processor supports.
const KernelVersions<YuvKernels>& yuvKernelVersions();

/// The fastest version that this machine's processor supports.
const YuvKernels& bestYuvKernels();

}  // namespace ruvex::media
