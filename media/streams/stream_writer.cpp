#include "media/streams/stream_writer.h"

extern "C" {
#include <libavutil/imgutils.h>
}

#include <csignal>

#include "media/av_functions.h"
#include "media/file_kind.h"
#include "media/media_error.h"
#include "media/pixels/frame_convert.h"
#include "media/video/stream_loss.h"

namespace ruvex::media {
namespace {

/// Bits of a component; see WriteOptions::bits.
int bitsFor(const WriteOptions& options) {
    if (options.depth == Depth::Bits8) {
        return 8;
    }
    return options.bits > 8 && y4mFormat(Chroma::C420, options.bits) ? options.bits : 16;
}

Y4mHeader headerFor(const WriteOptions& options) {
    const Chroma chroma = options.chroma == Chroma::Unspecified ? Chroma::C420 : options.chroma;
    Y4mHeader header;
    header.size = options.size;
    header.rate = options.rate;
    header.pixelAspect = options.pixelAspect;
    header.fields = options.fields;
    header.format = *y4mFormat(chroma, bitsFor(options));
    header.siting = chroma == Chroma::C420 ? AVCHROMA_LOC_LEFT : AVCHROMA_LOC_UNSPECIFIED;
    header.full = options.colour.full;
    return header;
}

}  // namespace

StreamWriter::StreamWriter(int descriptor, std::string name, const WriteOptions& options)
    : FrameWriter(options.written),
      options_(options),
      stream_(descriptor, std::move(name), options.stop) {
    // Without this, a reader that ends early would kill the process instead of failing the write.
    std::signal(SIGPIPE, SIG_IGN);
    begin();
}

StreamWriter::StreamWriter(const std::filesystem::path& path, const WriteOptions& options)
    : FrameWriter(options.written),
      options_(options),
      file_(path),
      stream_(file_->descriptor(), path.string()) {
    options_.format = FileKind::Y4m;
    begin();
}

void StreamWriter::begin() {
    checkFrameSize(options_.size, options_.depth, stream_.name());
    if (rawDepth(options_.format.value_or(FileKind::Y4m))) {
        return;
    }
    header_ = headerFor(options_);
    const int matrix = matrixInUse(options_.colour.matrix, options_.size.height);
    convert_.emplace(options_.size, YuvForm{header_.format, matrix, header_.full, header_.siting,
                                            options_.fields != FieldOrder::Progressive});
    bytes_.resize(static_cast<std::size_t>(
        av_image_get_buffer_size(header_.format, options_.size.width, options_.size.height, 1)));
    stream_.write(formatY4mHeader(header_));
}

void StreamWriter::write(std::int64_t, const Frame& frame) {
    const Depth depth = rawDepth(options_.format.value_or(FileKind::Y4m)).value_or(frame.depth());
    if (options_.alpha == AlphaForm::Premultiplied) {
        writeStored(premultiplied(frame, depth));
    } else if (depth != frame.depth()) {
        writeStored(convertDepth(frame, depth));
    } else {
        writeStored(frame);
    }
    reportWritten();
}

void StreamWriter::writeStored(const Frame& frame) {
    if (rawDepth(options_.format.value_or(FileKind::Y4m))) {
        stream_.write(frame.bytes());
    } else {
        writeY4m(frame);
    }
}

void StreamWriter::writeY4m(const Frame& frame) {
    const AvFrame picture = convert_->convert(frame);
    av_image_copy_to_buffer(reinterpret_cast<std::uint8_t*>(bytes_.data()),
                            static_cast<int>(bytes_.size()), picture->data, picture->linesize,
                            header_.format, picture->width, picture->height, 1);
    stream_.write("FRAME\n");
    stream_.write(bytes_);
}

std::vector<std::string> StreamWriter::remarks() const {
    if (options_.copied.path.empty()) return {};
    return lossesOf(options_.copied, stream_.name());
}

void StreamWriter::finish() {
    if (file_) {
        file_->commit();
    }
}

}  // namespace ruvex::media
