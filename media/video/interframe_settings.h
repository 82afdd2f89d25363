// Settings of the encoders of H.264 and H.265, which code frames by their difference to others.

#pragma once

#include "media/av_library.h"
#include "media/frame_writer.h"
#include "media/video/video_codec.h"

namespace ruvex::media {

/// Sets the quality, the preset, the limit of the bit rate and the threads of an encoder that has
/// been described and not yet opened. Its field_order says whether it codes interlaced frames.
void setInterframe(AVCodecContext& coder, const VideoCodec& codec, const WriteOptions& options);

}  // namespace ruvex::media
