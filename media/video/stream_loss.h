// What is said about a stream of a clip that a render leaves out.

#pragma once

#include <string>
#include <vector>

#include "media/av_library.h"
#include "media/video/stream_copy.h"

namespace ruvex::media {

/// Whether what the stream holds is not lost without a copy of the stream: the time code and the
/// titles of chapters, which are streams of their own in MP4 and QuickTime.
bool isKeptOtherwise(const AVStream& stream, const AVFormatContext& file);

/// Whether the stream is sound that the source is not to give.
bool isMuted(const AVStream& stream, const CopySource& source);

/// Whether there is sound to copy. False for a source that cannot be opened.
bool hasSound(const CopySource& source);

/// A sentence for a stream that is left out of the output `name`.
std::string lossSentence(const AVStream& stream, const std::string& name);

/// A sentence for chapters that are left out of the output `name`.
std::string chapterLoss(const std::string& name);

/// A sentence for each stream of a video file that is to be copied, and for its chapters, that an
/// output which holds pictures alone leaves out. None for a file that cannot be opened.
std::vector<std::string> lossesOf(const CopySource& source, const std::string& name);

}  // namespace ruvex::media
