// The FFmpeg libraries' video encoders, set up for what a result is to be.

#pragma once

#include <filesystem>

#include "media/av_library.h"
#include "media/frame_writer.h"
#include "media/video/video_codec.h"

namespace ruvex::media {

/// An encoder that is open: its context tells pixel format, colours, rate, pixel aspect and fields.
/// `path` is for messages; `globalHeader` is what the container wants. Throws MediaError.
AvCodec openEncoder(const VideoCodec& codec, const std::filesystem::path& path,
                    const WriteOptions& options, bool globalHeader);

/// Whether it was set up to code two fields a frame; then field_order tells which comes first.
bool isInterlaced(const AVCodecContext& coder);

}  // namespace ruvex::media
