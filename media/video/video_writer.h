// Frames into a video file.

#pragma once

#include <optional>

#include "files/partial_file.h"
#include "media/av_library.h"
#include "media/frame_writer.h"
#include "media/pixels/yuv_convert.h"
#include "media/video/audio_copy.h"
#include "media/video/video_codec.h"

namespace ruvex::media {

/// By the file's ending and the coding that the options name; see findVideoCodec. H.264 and H.265:
/// YUV without alpha, 4:2:0, or 4:4:4 where a side is odd, 8 bits, or 10 of H.265 for deep frames.
/// ProRes 4444: YUV 4:4:4 of 10 bits with alpha. FFV1: RGB with alpha, 8 or 16 bits a component,
/// without loss. What is interlaced is coded so where the coding can say it. The sound that the
/// options name is copied. The time of frame k is exactly k / rate in the coder; a container may
/// round it to its own steps.
class VideoWriter : public FrameWriter {
public:
    /// Throws MediaError.
    VideoWriter(const std::filesystem::path& path, const WriteOptions& options);
    ~VideoWriter() override;

    void write(std::int64_t number, const Frame& frame) override;
    void finish() override;
    std::vector<std::string> remarks() const override;

    /// Whether the ending is one of these.
    static bool canWrite(const std::filesystem::path& path);

private:
    void openCoder(const WriteOptions& options);
    void openContainer(const WriteOptions& options);
    AvFrame toPicture(const Frame& frame);
    AvFrame pack(const Frame& frame);
    /// Codes one picture, or with null what the coder still holds.
    void encode(const AVFrame* picture);
    void check(int code) const;

    struct Free {
        void operator()(AVFormatContext* format) const { avformat_free_context(format); }
    };

    std::filesystem::path path_;
    const VideoCodec& codec_;
    std::optional<AlphaForm> alpha_;
    FieldOrder fields_;  ///< As it is wished for.
    files::PartialFile file_;
    std::unique_ptr<AVFormatContext, Free> format_;
    AvCodec coder_;
    AvPacket packet_;
    std::optional<AudioCopy> audio_;
    std::optional<FrameToYuv> convert_;
    std::int64_t written_ = 0;
};

}  // namespace ruvex::media
