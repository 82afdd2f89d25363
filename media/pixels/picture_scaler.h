// The FFmpeg libraries' conversion between pixel formats, with all that they would guess said.

#pragma once

#include <array>

#include "media/av_library.h"
#include "media/frame.h"

namespace ruvex::media {

/// Two kinds of pictures of one size, one of RGB or of YUV with all colour differences.
struct ScalerForm {
    FrameSize size;
    AVPixelFormat from;
    AVPixelFormat to;
    /// Where a colour difference lies among the pixels that share it, in whichever has such.
    AVChromaLocation siting = AVCHROMA_LOC_UNSPECIFIED;
    int matrix = AVCOL_SPC_BT709;  ///< One that is known to the libraries.
    bool fullIn = false;           ///< Black and white at the ends of the scale.
    bool fullOut = false;
};

/// Converts pictures; the same on every machine.
class PictureScaler {
public:
    /// Throws MediaError where the libraries have no such conversion.
    explicit PictureScaler(const ScalerForm& form);

    /// `interlaced`: each field has colour differences of its own. Where two lines share them,
    /// those are two of one field, and the fields are converted one by one; only then does it
    /// matter. Pictures whose lines cannot be shared out so (their number is no multiple of four)
    /// are converted whole.
    void scale(const AVFrame& from, AVFrame& to, bool interlaced);

private:
    void scaleField(const AVFrame& from, AVFrame& to, int field);

    ScalerForm form_;
    Scaler whole_;
    std::array<Scaler, 2> fields_;  ///< Top and bottom; made when a picture needs them.
};

}  // namespace ruvex::media
