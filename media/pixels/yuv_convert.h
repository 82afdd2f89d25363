// Conversion between YUV pictures and RGB frames, with matrix and range always explicit.

#pragma once

#include <filesystem>
#include <optional>

#include "media/av_library.h"
#include "media/clip_info.h"
#include "media/pixels/deep_yuv.h"
#include "media/pixels/picture_scaler.h"
#include "media/pixels/rgb_lines.h"

namespace ruvex::media {

/// The matrix (AVColorSpace) to use for a picture: the tagged one if it is supported, else BT.709
/// from 720 lines on and BT.601 below.
int matrixInUse(int tagged, int height);

/// Converts pictures of one format and size into frames.
class PictureToFrame {
public:
    /// `like` has the format, size, matrix, range and chroma siting of all pictures to come. Throws
    /// MediaError if the format or the matrix is not supported. `path` is for messages.
    PictureToFrame(const AVFrame& like, std::filesystem::path path);

    /// Of the frames: S2.14 for pictures of more than 8 bits.
    Depth depth() const { return depth_; }
    bool hasAlpha() const;
    /// Of a component of the pictures.
    int bits() const { return bitsPerComponent(format_); }
    Chroma chroma() const;
    /// A picture marked as interlaced is converted as such; see PictureScaler::scale. Throws
    /// MediaError if its format or size differs from that of `like`.
    Frame convert(const AVFrame& picture);

private:
    void prepareScaler(const AVFrame& like);

    std::filesystem::path path_;
    AVPixelFormat format_;
    FrameSize size_;
    Depth depth_;
    std::optional<PictureScaler> scaler_;  ///< Empty for RGB and full-range grey.
    AvFrame scaled_;  ///< The scaler's result: RGBA, or YUV(A) 4:4:4 of 16 bits for S2.14 frames.
    YuvCoding coding_;
};

/// A kind of YUV pictures.
struct YuvForm {
    AVPixelFormat format;
    int matrix;                                          ///< One that matrixInUse returns.
    bool full = false;                                   ///< Full range, not limited range.
    AVChromaLocation siting = AVCHROMA_LOC_UNSPECIFIED;  ///< Chroma siting; for 4:2:0.
    bool interlaced = false;  ///< Each field has chroma lines of its own; for 4:2:0.
};

/// Converts frames into pictures of a YUV format.
class FrameToYuv {
public:
    /// Size and depth of the frames. Throws MediaError if there is no such conversion.
    FrameToYuv(FrameSize size, Depth depth, const YuvForm& form);

    /// A new picture for each call, since encoders keep some for later.
    AvFrame convert(const Frame& frame);

private:
    YuvForm form_;
    AvFrame packed_;
    PictureScaler scaler_;
};

}  // namespace ruvex::media
