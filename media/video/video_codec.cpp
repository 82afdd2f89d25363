#include "media/video/video_codec.h"

#include <algorithm>
#include <string_view>

#include "files/words.h"
#include "media/file_kind.h"

namespace ruvex::media {
namespace {

/// The default codec of an extension is the first that lists it. The default qualities show no loss
/// in moving pictures and keep snow and shash sharp, at the cost of larger files.
constexpr VideoCodec kVideoCodecs[] = {
    {"ffv1", "FFV1, without loss", "ffv1", ".mkv ", true, true, 0, 1, true},
    {"prores", "ProRes 4444", "prores_ks", ".mov .mkv ", false, true, 95, 2, false},
    {"h264", "H.264", "libx264", ".mp4 .m4v .mov .mkv ", false, false, 72, 4, true},
    {"h265", "H.265", "libx265", ".mp4 .m4v .mov .mkv ", false, false, 72, 0, true},
};

bool holds(const VideoCodec& codec, const std::filesystem::path& path) {
    const std::string ending = files::lowerCase(path.extension().string()) + " ";
    return ending.size() > 1 && std::string_view(codec.endings).find(ending) != std::string::npos;
}

std::string codecsFor(const std::filesystem::path& path) {
    std::string names;
    for (const VideoCodec& codec : kVideoCodecs) {
        if (holds(codec, path)) {
            names.append(names.empty() ? "" : ", ").append(codec.name);
        }
    }
    return names;
}

}  // namespace

const VideoCodec* findVideoCodec(const std::filesystem::path& path,
                                 const std::optional<std::string>& name) {
    const auto* found = std::find_if(
        std::begin(kVideoCodecs), std::end(kVideoCodecs), [&](const VideoCodec& codec) {
            return holds(codec, path) && (!name || *name == codec.name);
        });
    return found == std::end(kVideoCodecs) ? nullptr : found;
}

std::string storageFault(const std::filesystem::path& path, const std::optional<std::string>& codec,
                         std::optional<int> quality) {
    const FileKind kind = fileKind(path);
    if (codec && kind != FileKind::Video) {
        return "A codec can be chosen for video files only.";
    }
    const VideoCodec* found = kind == FileKind::Video ? findVideoCodec(path, codec) : nullptr;
    if (codec && found == nullptr) {
        return "'" + *codec + "' is not a codec for this kind of file. Use one of " +
               codecsFor(path) + ".";
    }
    const bool lossy = kind == FileKind::Jpeg || (found != nullptr && found->quality > 0);
    return quality && !lossy ? "A quality cannot be chosen: the format is lossless." : "";
}

}  // namespace ruvex::media
