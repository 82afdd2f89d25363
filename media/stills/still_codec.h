// The FFmpeg libraries' decoders and encoders for single pictures.

#pragma once

#include <filesystem>
#include <span>

#include "media/av_library.h"
#include "media/file_kind.h"
#include "media/rational.h"

namespace ruvex::media {

/// The picture in the bytes of a file. `file` is for messages. Throws MediaError if the decoder has
/// anything to object to: half a picture is none.
AvFrame decodeStill(FileKind kind, const std::filesystem::path& file,
                    std::span<const std::byte> bytes);

/// The pixel format in which a kind stores frames of a depth. EXR and JPEG have but one.
AVPixelFormat storedFormat(FileKind kind, Depth depth);

/// The picture, in the kind's pixel format, as the bytes of a file. `quality`, 1 to 100, is for
/// JPEG. Throws MediaError.
AvPacket encodeStill(FileKind kind, const std::filesystem::path& file, AVFrame& picture,
                     const Rational& pixelAspect, int quality);

}  // namespace ruvex::media
