// Frames through a video encoder.

#pragma once

#include <filesystem>
#include <optional>

#include "media/av_library.h"
#include "media/frame_writer.h"
#include "media/picture_pool.h"
#include "media/pixels/yuv_convert.h"
#include "media/video/video_codec.h"

namespace ruvex::media {

/// Converts frames into the pictures that an encoder takes, and encodes them. All functions throw
/// MediaError, in which `path` is the name of the file that is written.
class PictureEncoder {
public:
    /// `globalHeader` as for openEncoder.
    PictureEncoder(const VideoCodec& codec, std::filesystem::path path, const WriteOptions& options,
                   bool globalHeader);

    /// The encoder's settings, with the format and the marks of its pictures.
    const AVCodecContext& coder() const { return *coder_; }

    /// Encodes a frame of the options' size and depth.
    void send(const Frame& frame);

    /// Encodes a picture of the encoder's size and format, as `send` makes it of a frame. Sets its
    /// time and its marks.
    void send(AVFrame& picture);

    /// Ends the clip: what the encoder holds back can be received.
    void drain();

    /// Takes the next packet, whose times count frames. False if the encoder gives none for now.
    bool receive(AVPacket& packet);

    /// What this holds for pictures, beside the memory of the encoder.
    HeldMemory held() const;

private:
    /// The frame in the encoder's format, with colours premultiplied if the options say so.
    AVFrame& toPicture(const Frame& frame);
    /// The frame in the encoder's format.
    AVFrame& pack(const Frame& frame);

    std::filesystem::path path_;
    bool exact_;
    std::optional<AlphaForm> alpha_;
    AvCodec coder_;
    std::optional<FrameToYuv> convert_;  ///< Empty for a codec that takes RGB.
    PicturePool pictures_;
    Frame premultiplied_;
    std::int64_t sent_ = 0;
};

}  // namespace ruvex::media
