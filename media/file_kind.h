// What a file is, by the ending of its name.

#pragma once

#include <filesystem>
#include <optional>

#include "media/frame.h"

namespace ruvex::media {

/// Y4m is video without compression; Stream stands for standard input or output.
enum class FileKind { Video, Y4m, Stream, Png, Tiff, Exr, Dpx, Jpeg, RawRgba8, RawS214 };

/// By ending, in either case: .png, .tif, .tiff, .exr, .dpx, .jpg, .jpeg, .rgba8, .s214,
/// .y4m; "-" is a stream; everything else is taken as video.
FileKind fileKind(const std::filesystem::path& path);

/// Whether files of this kind hold one picture each.
constexpr bool isStill(FileKind kind) {
    return kind != FileKind::Video && kind != FileKind::Y4m && kind != FileKind::Stream;
}

/// The depth that a raw kind stores; nothing for the others.
std::optional<Depth> rawDepth(FileKind kind);

}  // namespace ruvex::media
