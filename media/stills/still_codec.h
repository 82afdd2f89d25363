// Decoding and encoding of single pictures by the FFmpeg libraries.

#pragma once

#include <filesystem>
#include <span>

#include "media/av_library.h"
#include "media/file_kind.h"
#include "media/rational.h"
#include "media/stills/exr_form.h"

namespace ruvex::media {

/// Decodes the picture in a file's bytes. `file` is for messages. Throws MediaError on any error
/// that the decoder reports, even if it delivers a picture.
AvFrame decodeStill(FileKind kind, const std::filesystem::path& file,
                    std::span<const std::byte> bytes);

/// The pixel format in which files of a kind store frames of a depth. EXR and JPEG have one for
/// both depths.
AVPixelFormat storedFormat(FileKind kind, Depth depth);

struct EncodeOptions {
    Rational pixelAspect{1, 1};  ///< Width of a pixel over its height.
    int quality = 100;           ///< Of a JPEG: 1 to 100, the best.
    ExrForm exr{};
};

/// Encodes a picture of the format that storedFormat returns; the packet holds the file's bytes.
/// `file` is for messages. Throws MediaError.
AvPacket encodeStill(FileKind kind, const std::filesystem::path& file, AVFrame& picture,
                     const EncodeOptions& options);

}  // namespace ruvex::media
