// Conversion between YUV pictures and RGB frames, with matrix and range always explicit.

#pragma once

#include <filesystem>
#include <optional>

#include "media/av_library.h"
#include "media/clip_info.h"
#include "media/pixels/picture_scaler.h"
#include "media/pixels/rgb_lines.h"
#include "media/pixels/yuv_pack.h"
#include "media/pixels/yuv_unpack.h"

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
    /// Converts into `into`, whose memory is reused where it fits. A picture marked as interlaced
    /// is converted as such; see YuvUnpacker::unpack. Throws MediaError if its format or size
    /// differs from that of `like`.
    void convert(const AVFrame& picture, Frame& into);

private:
    /// Throws MediaError if the matrix is not supported.
    void checkMatrix(const AVFrame& like) const;
    void prepareYuv(AVPixelFormat format, const AVFrame& like);
    void prepareScaler(const AVFrame& like);
    void unpack(const AVFrame& picture, Frame& into);

    std::filesystem::path path_;
    AVPixelFormat format_;
    FrameSize size_;
    Depth depth_;
    std::optional<PictureScaler> scaler_;  ///< For formats that nothing else here takes.
    AvFrame scaled_;                       ///< The scaler's result: RGBA, or deep YUV.
    std::optional<YuvUnpacker> yuv_;       ///< Empty for RGB and grey.
};

/// Converts frames into pictures of a YUV format; see YuvPacker.
class FrameToYuv {
public:
    FrameToYuv(FrameSize size, const YuvForm& form);

    /// Converts a frame of either depth into a picture, both of the constructor's size. Of the
    /// picture's memory only its pixels are written.
    void convert(const Frame& frame, AVFrame& into) { packer_.pack(frame, into); }

private:
    YuvPacker packer_;
};

}  // namespace ruvex::media
