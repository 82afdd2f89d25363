// Conversion between pixel formats by the FFmpeg libraries, with matrix, range and chroma siting
// set explicitly.

#pragma once

#include <array>

#include "media/av_library.h"
#include "media/frame.h"

namespace ruvex::media {

/// A conversion between two formats of one size, at least one of which has no subsampled chroma.
struct ScalerForm {
    FrameSize size;
    AVPixelFormat from;
    AVPixelFormat to;
    AVChromaLocation siting = AVCHROMA_LOC_UNSPECIFIED;  ///< Chroma siting of the 4:2:0 format.
    int matrix = AVCOL_SPC_BT709;                        ///< One that matrixInUse returns.
    bool fullIn = false;   ///< Full range of `from`, not limited range.
    bool fullOut = false;  ///< Full range of `to`.
};

/// Converts pictures; the result is the same on every machine.
class PictureScaler {
public:
    /// Throws MediaError if the libraries do not have this conversion.
    explicit PictureScaler(const ScalerForm& form);

    /// Converts `from` into `to`, which has its buffer already. The two fields of an interlaced
    /// 4:2:0 picture have separate chroma lines and are converted separately. That takes a height
    /// that is a multiple of four; other pictures are converted as progressive ones.
    void scale(const AVFrame& from, AVFrame& to, bool interlaced);

private:
    void scaleField(const AVFrame& from, AVFrame& to, int field);

    ScalerForm form_;
    Scaler whole_;
    std::array<Scaler, 2> fields_;  ///< Top and bottom; made for the first interlaced picture.
};

}  // namespace ruvex::media
