#include "media/video/chunk_form.h"

#include "media/video/video_encoder.h"
#include "media/video/video_writer.h"

namespace ruvex::media {
namespace {

constexpr const char* kMatroska = ".mkv";
/// The home of ProRes and DNxHR, of which Matroska changes the one and does not know the other.
constexpr const char* kQuickTime = ".mov";

/// FFV1 for the pictures that the encoder of `codec` takes. They are interlaced where that encoder
/// takes them as interlaced, since the conversion of chroma follows it.
VideoCodec lossless(const VideoCodec& codec, const WriteOptions& options) {
    return {.name = "ffv1",
            .title = "FFV1, without loss",
            .family = CodecFamily::Ffv1,
            .endings = ".mkv ",
            .format = pixelFormat(codec, options),
            .fieldLines = codec.fieldLines,
            .fullRange = codec.fullRange};
}

}  // namespace

ChunkForm chunkForm(const std::filesystem::path& output, const WriteOptions& options) {
    const VideoCodec& codec = *findVideoCodec(output, options.codec);
    switch (codec.family) {
        case CodecFamily::Ffv1:
            return {codec, kMatroska, true};
        case CodecFamily::ProRes:
        case CodecFamily::Dnxhr:
            return {codec, kQuickTime, true};
        default:
            return {lossless(codec, options), kMatroska, false};
    }
}

std::unique_ptr<FrameWriter> openChunkWriter(const std::filesystem::path& chunk,
                                             const std::filesystem::path& output,
                                             WriteOptions options) {
    const ChunkForm form = chunkForm(output, options);
    options.copied = {};
    options.tags = {};
    return std::make_unique<VideoWriter>(chunk, options, form.codec);
}

}  // namespace ruvex::media
