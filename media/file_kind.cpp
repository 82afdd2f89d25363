#include "media/file_kind.h"

#include "media/text.h"

namespace ruvex::media {

FileKind fileKind(const std::filesystem::path& path) {
    const std::string ending = lowerCase(path.extension().string());
    if (ending == ".png") {
        return FileKind::Png;
    }
    if (ending == ".rgba8") {
        return FileKind::RawRgba8;
    }
    return ending == ".s214" ? FileKind::RawS214 : FileKind::Video;
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
