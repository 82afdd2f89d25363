// Conversion by the FFmpeg libraries of pixel formats that this folder does not read itself.

#pragma once

#include "media/av_library.h"
#include "media/frame.h"

namespace ruvex::media {

/// A conversion between two formats of one size, neither of which has subsampled chroma.
struct ScalerForm {
    FrameSize size;
    AVPixelFormat from;
    AVPixelFormat to;
    int matrix = AVCOL_SPC_BT709;  ///< Of YUV; one that matrixInUse returns.
    bool full = false;             ///< Full range of `to`, not limited range.
};

/// Converts pictures; the result is the same on every machine.
class PictureScaler {
public:
    /// Throws MediaError if the libraries do not have this conversion.
    explicit PictureScaler(const ScalerForm& form);

    /// Converts `from` into `to`, which has its buffer already.
    void scale(const AVFrame& from, AVFrame& to);

private:
    Scaler scaler_;
};

}  // namespace ruvex::media
