#include "media/stills/still_writer.h"

#include "media/media_error.h"
#include "media/pixels/frame_convert.h"
#include "media/stills/raw_frame.h"
#include "media/stills/still_file.h"

namespace ruvex::media {

StillWriter::StillWriter(const std::filesystem::path& path, const WriteOptions& options)
    : FrameWriter(options.written), files_(path), kind_(fileKind(path)), options_(options) {
    checkFrameSize(options.size, options.depth, path.string());
}

void StillWriter::write(std::int64_t number, const Frame& frame) {
    if (!files_.isPattern() && count_ > 0) {
        throw MediaError(files_.text() +
                         " holds one frame only. For several, use a pattern of numbered files "
                         "such as shot.%05d.png.");
    }
    const std::filesystem::path file = files_.file(number);
    if (const auto depth = rawDepth(kind_)) {
        writeRawFrame(file, options_.alpha == AlphaForm::Premultiplied
                                ? premultiplied(frame, *depth)
                                : convertDepth(frame, *depth));
    } else {
        const ExrForm exr{.pixels = options_.exrPixels.value_or(ExrForm().pixels),
                          .compression = options_.exrCompression.value_or(ExrForm().compression)};
        writeStill(file, frame,
                   {.pixelAspect = options_.pixelAspect,
                    .alpha = options_.alpha,
                    .quality = options_.quality,
                    .exr = exr});
    }
    ++count_;
    reportWritten();
}

}  // namespace ruvex::media
