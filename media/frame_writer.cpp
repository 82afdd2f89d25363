#include "media/frame_writer.h"

#include <unistd.h>

#include "files/numbered_path.h"
#include "media/file_kind.h"
#include "media/media_error.h"
#include "media/stills/still_writer.h"
#include "media/storage_choice.h"
#include "media/streams/stream_writer.h"
#include "media/video/video_codec.h"
#include "media/video/video_writer.h"

namespace ruvex::media {

bool canWrite(const std::filesystem::path& path) {
    const FileKind kind = fileKind(path);
    return kind != FileKind::Video || VideoWriter::canWrite(path);
}

std::string codecName(const std::filesystem::path& path, const std::optional<std::string>& codec) {
    switch (fileKind(path)) {
        case FileKind::Png:
            return "PNG";
        case FileKind::RawRgba8:
            return "raw frames of 8 bits";
        case FileKind::RawS214:
            return "raw frames of S2.14";
        case FileKind::Tiff:
            return "TIFF";
        case FileKind::Exr:
            return "EXR";
        case FileKind::Dpx:
            return "DPX";
        case FileKind::Jpeg:
            return "JPEG";
        case FileKind::Y4m:
            return "Y4M";
        case FileKind::Stream:
            return "a stream";
        default:
            return findVideoCodec(path, codec)->title;
    }
}

bool storesAlpha(const std::filesystem::path& path, const WriteOptions& options) {
    switch (fileKind(path)) {
        case FileKind::Jpeg:
        case FileKind::Y4m:
            return false;
        case FileKind::Stream:
            return rawDepth(options.format.value_or(FileKind::Y4m)).has_value();
        case FileKind::Video:
            return findVideoCodec(path, options.codec)->alpha;
        default:
            return true;
    }
}

std::string writableEndings() {
    return ".mp4, .m4v, .mov, .mkv, .mxf, .y4m, .png, .tif, .tiff, .exr, .dpx, .jpg, .jpeg, "
           ".rgba8, "
           ".s214";
}

std::unique_ptr<FrameWriter> openWriter(const std::filesystem::path& path,
                                        const WriteOptions& options) {
    if (!canWrite(path)) {
        throw MediaError("Cannot write " + path.string() +
                         ": files with this extension cannot be written. Use one of " +
                         writableEndings() + ".");
    }
    for (const std::string& fault :
         {storageFault(path, storageOf(options)), pictureFault(path, options)}) {
        if (!fault.empty()) throw MediaError("Cannot write " + path.string() + ". " + fault);
    }
    switch (fileKind(path)) {
        case FileKind::Video:
            return std::make_unique<VideoWriter>(files::NumberedPath(path).plain(), options);
        case FileKind::Y4m:
            return std::make_unique<StreamWriter>(files::NumberedPath(path).plain(), options);
        case FileKind::Stream:
            return std::make_unique<StreamWriter>(STDOUT_FILENO, "standard output", options);
        default:
            return std::make_unique<StillWriter>(path, options);
    }
}

}  // namespace ruvex::media
