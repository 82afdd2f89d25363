// The table of loops, filled once per instruction set.

#pragma once

#include "media/pixels/kernels/chroma_loops.h"
#include "media/pixels/kernels/decode_loops.h"
#include "media/pixels/kernels/encode_loops.h"
#include "media/pixels/kernels/yuv_kernels.h"

namespace ruvex::media::detail {

template <class Sum, class Processor>
inline constexpr YuvSumKernels<Sum> kYuvSumKernels{
    .sumCodes = SumLoop<std::uint16_t, Sum, Processor>::run,
    .sumComponents = SumLoop<std::int32_t, Sum, Processor>::run,
    .interpolate = InterpolateLoop<Sum, Processor>::run,
    .decode8 = DecodeLoops<Sum, std::uint8_t, Processor>::decode,
    .decode16 = DecodeLoops<Sum, std::int16_t, Processor>::decode,
    .encode8 = EncodeSumsLoop<Sum, std::uint8_t, Processor>::run,
    .encode16 = EncodeSumsLoop<Sum, std::uint16_t, Processor>::run};

template <class Component, class Word, class Processor>
inline constexpr EncodeKernels<Component, Word> kEncodeKernels{
    .lumaBlueRed = EncodePixelsLoop<Component, Word, Processor>::runLumaBlueRed,
    .luma = EncodePixelsLoop<Component, Word, Processor>::runLuma,
    .alpha = EncodePixelsLoop<Component, Word, Processor>::runAlpha};

template <class Component, class Processor>
inline constexpr PixelKernels<Component> kPixelKernels{
    .split = SplitLoop<Component, Processor>::run,
    .to8 = kEncodeKernels<Component, std::uint8_t, Processor>,
    .to16 = kEncodeKernels<Component, std::uint16_t, Processor>};

template <class Processor>
inline constexpr YuvKernels kYuvKernels{.integers = kYuvSumKernels<std::int32_t, Processor>,
                                        .doubles = kYuvSumKernels<double, Processor>,
                                        .from8 = kPixelKernels<std::uint8_t, Processor>,
                                        .from16 = kPixelKernels<std::int16_t, Processor>};

}  // namespace ruvex::media::detail
