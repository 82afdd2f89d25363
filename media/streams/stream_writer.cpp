#include "media/streams/stream_writer.h"

extern "C" {
#include <libavutil/imgutils.h>
}

#include <algorithm>
#include <csignal>
#include <string_view>

#include "media/av_functions.h"
#include "media/file_kind.h"
#include "media/media_error.h"
#include "media/pixels/frame_convert.h"
#include "media/video/stream_loss.h"

namespace ruvex::media {
namespace {

constexpr std::string_view kMarkLine = "FRAME\n";
constexpr std::size_t kPlanesAt = 64;
constexpr std::size_t kMarkAt = kPlanesAt - kMarkLine.size();

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
    prepareY4m();
    stream_.write(formatY4mHeader(header_));
}

/// The mark stands right before the planes, which begin at an address that suits vector code: the
/// picture is converted into the bytes that are written, with one call.
void StreamWriter::prepareY4m() {
    const auto [width, height] = options_.size;
    const int bytes = av_image_get_buffer_size(header_.format, width, height, 1);
    bytes_.resize(kPlanesAt + static_cast<std::size_t>(bytes));
    std::ranges::copy(std::as_bytes(std::span(kMarkLine)), bytes_.begin() + kMarkAt);
    picture_ = newAvFrame();
    picture_->width = width;
    picture_->height = height;
    picture_->format = header_.format;
    av_image_fill_arrays(picture_->data, picture_->linesize,
                         reinterpret_cast<std::uint8_t*>(bytes_.data() + kPlanesAt), header_.format,
                         width, height, 1);
}

void StreamWriter::write(std::int64_t, const Frame& frame) {
    if (convert_) {
        writeY4m(stored(frame));
    } else {
        stream_.write(stored(frame).bytes());
    }
    reportWritten();
}

const Frame& StreamWriter::stored(const Frame& frame) {
    const Depth depth = rawDepth(options_.format.value_or(FileKind::Y4m)).value_or(frame.depth());
    const bool multiplies = options_.alpha == AlphaForm::Premultiplied;
    if (!multiplies && depth == frame.depth()) return frame;
    if (multiplies) {
        premultiply(frame, depth, changed_);
    } else {
        convertDepth(frame, depth, changed_);
    }
    return changed_;
}

void StreamWriter::writeY4m(const Frame& frame) {
    convert_->convert(frame, *picture_);
    stream_.write(std::span(bytes_).subspan(kMarkAt));
}

HeldMemory StreamWriter::held() const {
    HeldMemory held;
    held.add(changed_);
    held.add(bytes_.capacity());
    return held;
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
