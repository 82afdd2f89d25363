// Setting up the FFmpeg libraries' video encoders.

#pragma once

#include <filesystem>

#include "media/av_library.h"
#include "media/frame_writer.h"
#include "media/video/video_codec.h"

namespace ruvex::media {

/// The format of the pictures that the codec's encoder takes.
AVPixelFormat pixelFormat(const VideoCodec& codec, const WriteOptions& options);

/// Opens an encoder. Its context has the pixel format, colour description, time base, pixel aspect
/// and field order of the pictures that it takes. `globalHeader`: the container needs the codec's
/// headers outside of the packets. `path` is for messages. Throws MediaError.
AvCodec openEncoder(const VideoCodec& codec, const std::filesystem::path& path,
                    const WriteOptions& options, bool globalHeader);

/// Whether the encoder codes interlaced frames; its field_order is then AV_FIELD_TT or AV_FIELD_BB.
bool isInterlaced(const AVCodecContext& coder);

}  // namespace ruvex::media
