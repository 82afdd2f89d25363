// What is said about a stream of a clip that a render leaves out.

#pragma once

#include <string>

#include "media/av_library.h"

namespace ruvex::media {

/// Whether what the stream holds is not lost without a copy of the stream: the time code and the
/// titles of chapters, which are streams of their own in MP4 and QuickTime.
bool isKeptOtherwise(const AVStream& stream, const AVFormatContext& file);

/// A sentence for a stream that is left out of the output `name`.
std::string lossSentence(const AVStream& stream, const std::string& name);

}  // namespace ruvex::media
