// Between a video's luma and colour differences and RGB, with matrix and range always named.

#pragma once

#include <filesystem>
#include <optional>

#include "media/av_library.h"
#include "media/clip_info.h"
#include "media/pixels/deep_yuv.h"
#include "media/pixels/picture_scaler.h"
#include "media/pixels/rgb_lines.h"

namespace ruvex::media {

/// The matrix in use: the tagged one, or, unmarked, BT.709 from 720 lines on and BT.601 below.
int matrixInUse(int tagged, int height);

/// Converts pictures of one format and size into frames, turned the right way up.
class PictureToFrame {
public:
    /// Throws MediaError if the format or the colour matrix is not known. `path` is for messages.
    PictureToFrame(const AVFrame& like, std::filesystem::path path);

    Depth depth() const { return depth_; }
    bool hasAlpha() const;
    int bits() const { return bitsPerComponent(format_); }
    Chroma chroma() const;
    /// Marked as interlaced, its fields have colour differences of their own. Throws MediaError if
    /// the picture is not of the format and size of the first one.
    Frame convert(const AVFrame& picture);

private:
    void prepareScaler(const AVFrame& like);

    std::filesystem::path path_;
    AVPixelFormat format_;
    FrameSize size_;
    Depth depth_;
    std::optional<PictureScaler> scaler_;  ///< None for pictures that are RGB or grey already.
    AvFrame scaled_;  ///< RGBA, or for a deep picture YUV with all colour differences filled in.
    YuvCoding coding_;
};

/// What pictures a video is made of.
struct YuvForm {
    AVPixelFormat format;
    int matrix;         ///< One that matrixInUse gives.
    bool full = false;  ///< Black and white at the ends of the scale.
    /// Where a colour difference lies among the pixels that share it.
    AVChromaLocation siting = AVCHROMA_LOC_UNSPECIFIED;
    bool interlaced = false;  ///< Each field has colour differences of its own.
};

/// Converts frames into pictures of a YUV format.
class FrameToYuv {
public:
    FrameToYuv(FrameSize size, Depth depth, const YuvForm& form);

    /// A picture of its own for each call: an encoder keeps some for later.
    AvFrame convert(const Frame& frame);

private:
    YuvForm form_;
    AvFrame packed_;
    PictureScaler scaler_;
};

}  // namespace ruvex::media
