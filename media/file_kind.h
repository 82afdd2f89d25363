// The kind of a file, by the extension of its name.

#pragma once

#include <filesystem>
#include <optional>

#include "media/frame.h"

namespace ruvex::media {

/// Video is any container that FFmpeg reads; Y4m is uncompressed video; Stream is standard input or
/// output.
enum class FileKind { Video, Y4m, Stream, Png, Tiff, Exr, Dpx, Jpeg, RawRgba8, RawS214 };

/// Known extensions, in upper or lower case: .png, .tif, .tiff, .exr, .dpx, .jpg, .jpeg, .rgba8,
/// .s214, .y4m. The path "-" is a stream; any other path is taken as video.
FileKind fileKind(const std::filesystem::path& path);

/// Whether a file of this kind holds one picture: stills and raw frames.
constexpr bool isStill(FileKind kind) {
    return kind != FileKind::Video && kind != FileKind::Y4m && kind != FileKind::Stream;
}

/// The depth of raw frames of this kind; empty for other kinds.
std::optional<Depth> rawDepth(FileKind kind);

}  // namespace ruvex::media
