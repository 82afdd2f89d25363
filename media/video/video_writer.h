// Writing frames to a video file.

#pragma once

#include <optional>

#include "files/partial_file.h"
#include "media/av_library.h"
#include "media/frame_writer.h"
#include "media/picture_pool.h"
#include "media/pixels/yuv_convert.h"
#include "media/sound/pcm_sound.h"
#include "media/video/stream_copy.h"
#include "media/video/video_codec.h"

namespace ruvex::media {

/// Writes the container of the file's extension in the codec of the options (see findVideoCodec):
/// - H.264 and H.265: YUV without alpha, 4:2:0, or 4:4:4 if a side is odd, of 8 bits; H.265 of 10
///   bits for S2.14 frames;
/// - ProRes 4444: YUV 4:4:4 of 10 bits, with alpha; other profiles: 4:2:2 of 10 bits;
/// - DNxHR: 4:2:2 of 8 bits (LB, SQ, HQ) or 10 bits (HQX), or 4:4:4 of 10 bits (444);
/// - FFV1: RGB with alpha, 8 or 16 bits a component, lossless.
/// Frames with a field order are coded as interlaced if the codec can. What the source of the
/// options has beside its pictures is copied; see StreamCopy. The time of frame k is k / rate after
/// that of the first, rounded to the container's time base.
class VideoWriter : public FrameWriter {
public:
    /// Throws MediaError, also for options that storageFault refuses.
    VideoWriter(const std::filesystem::path& path, const WriteOptions& options);
    ~VideoWriter() override;

    void write(std::int64_t number, const Frame& frame) override;
    void finish() override;
    HeldMemory held() const override;
    std::vector<std::string> remarks() const override;

    /// Whether files of this extension can hold one of the codecs.
    static bool canWrite(const std::filesystem::path& path);

private:
    void openCoder(const WriteOptions& options);
    void openContainer(const WriteOptions& options);
    /// Adds what the source has beside its pictures.
    void addBeside(CopySource source);
    /// The frame in the encoder's format, with colours premultiplied if the options say so.
    AVFrame& toPicture(const Frame& frame);
    /// The frame in the encoder's format.
    AVFrame& pack(const Frame& frame);
    /// Encodes a picture and writes the packets that come of it; null drains the encoder.
    void encode(const AVFrame* picture);
    /// Writes what belongs to the time before `time`, in microseconds since the first picture,
    /// beside the pictures.
    void writeBeside(std::int64_t time);
    /// Throws MediaError if `code`, a result of the libraries, is an error.
    void check(int code) const;

    struct Free {
        void operator()(AVFormatContext* format) const { avformat_free_context(format); }
    };

    std::filesystem::path path_;
    const VideoCodec& codec_;
    std::optional<AlphaForm> alpha_;
    FieldOrder fields_;  ///< As in the options.
    files::PartialFile file_;
    std::unique_ptr<AVFormatContext, Free> format_;
    AvCodec coder_;
    AvPacket packet_;
    std::optional<StreamCopy> copy_;
    std::optional<PcmSound> sound_;      ///< For MXF, into which sound is not copied.
    std::optional<FrameToYuv> convert_;  ///< Empty for a codec that takes RGB.
    std::optional<PicturePool> pictures_;
    Frame premultiplied_;
    std::int64_t sent_ = 0;  ///< Frames sent to the encoder so far.
};

}  // namespace ruvex::media
