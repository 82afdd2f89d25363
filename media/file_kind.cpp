#include "media/file_kind.h"

#include <iterator>
#include <string_view>

#include "files/words.h"

namespace ruvex::media {

namespace {

struct Ending {
    std::string_view text;
    FileKind kind;
};

constexpr Ending kEndings[] = {
    {".png", FileKind::Png},   {".tif", FileKind::Tiff},       {".tiff", FileKind::Tiff},
    {".exr", FileKind::Exr},   {".dpx", FileKind::Dpx},        {".jpg", FileKind::Jpeg},
    {".jpeg", FileKind::Jpeg}, {".rgba8", FileKind::RawRgba8}, {".s214", FileKind::RawS214},
    {".y4m", FileKind::Y4m},
};

}  // namespace

FileKind fileKind(const std::filesystem::path& path) {
    if (path == "-") {
        return FileKind::Stream;
    }
    const std::string ending = files::lowerCase(path.extension().string());
    const auto* found = std::find_if(std::begin(kEndings), std::end(kEndings),
                                     [&](const Ending& known) { return known.text == ending; });
    return found == std::end(kEndings) ? FileKind::Video : found->kind;
}

std::optional<Depth> rawDepth(FileKind kind) {
    switch (kind) {
        case FileKind::RawRgba8:
            return Depth::Bits8;
        case FileKind::RawS214:
            return Depth::S214;
        default:
            return std::nullopt;
    }
}

}  // namespace ruvex::media
