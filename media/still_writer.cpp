#include "media/still_writer.h"

#include "media/media_error.h"
#include "media/png_still.h"
#include "media/raw_frame.h"

namespace ruvex::media {

StillWriter::StillWriter(const std::filesystem::path& path, const WriteOptions& options)
    : files_(path), kind_(fileKind(path)), options_(options) {
    checkFrameSize(options.size, options.depth, path.string());
    const auto depth = rawDepth(kind_);
    if (depth && *depth != options.depth) {
        throw MediaError("Cannot write " + path.string() + ": frames of " +
                         (options.depth == Depth::Bits8 ? "8" : "16") +
                         " bits a channel do not fit that kind of raw file. Use " +
                         (options.depth == Depth::Bits8 ? ".rgba8" : ".s214") +
                         ", or another depth.");
    }
}

void StillWriter::write(std::int64_t number, const Frame& frame) {
    if (!files_.isPattern() && written_ > 0) {
        throw MediaError(files_.text() +
                         " holds one frame only. For more, put a number into its "
                         "name, as in shot.%05d.png.");
    }
    const std::filesystem::path file = files_.file(number);
    if (rawDepth(kind_)) {
        writeRawFrame(file, frame);
    } else {
        writePng(file, frame, options_.pixelAspect);
    }
    ++written_;
}

}  // namespace ruvex::media
