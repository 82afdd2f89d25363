// Writing frames to a video file.

#pragma once

#include <optional>

#include "media/frame_writer.h"
#include "media/video/picture_encoder.h"
#include "media/video/video_codec.h"
#include "media/video/video_container.h"

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

    /// The same in a codec of its own; that of the options is ignored.
    VideoWriter(const std::filesystem::path& path, const WriteOptions& options,
                const VideoCodec& codec);

    void write(std::int64_t number, const Frame& frame) override;
    void finish() override;
    HeldMemory held() const override { return encoder_.held(); }
    std::vector<std::string> remarks() const override;

    /// Writes the next frame as a picture that the encoder takes; see PictureEncoder::send.
    void writePicture(AVFrame& picture);

    /// Writes the next frame as a packet of a codec that codes each frame by itself, coded before
    /// with these options. Takes its contents.
    void writePacket(AVPacket& packet);

    /// The encoder's settings.
    const AVCodecContext& coder() const { return encoder_.coder(); }

    /// Whether files of this extension can hold one of the codecs.
    static bool canWrite(const std::filesystem::path& path);

private:
    /// Writes the packets that the encoder has ready.
    void writeReady();

    std::filesystem::path path_;
    VideoCodec codec_;
    FieldOrder fields_;  ///< As in the options.
    PictureEncoder encoder_;
    VideoContainer container_;
    AvPacket packet_;
    std::int64_t frames_ = 0;  ///< Passed to one of the functions that write.
};

}  // namespace ruvex::media
