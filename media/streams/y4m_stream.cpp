#include "media/streams/y4m_stream.h"

extern "C" {
#include <libavutil/imgutils.h>
}

#include <string_view>

#include "media/av_functions.h"
#include "media/media_error.h"
#include "media/streams/stream_reader.h"

namespace ruvex::media {
namespace {

constexpr std::string_view kFrameMark = "FRAME";

/// A picture with the header's properties, whose planes lie in `bytes`. Y4M has no tag for the
/// matrix, which therefore follows the height (see matrixInUse).
AvFrame pictureIn(std::span<std::byte> bytes, const Y4mHeader& header) {
    AvFrame picture = newAvFrame();
    picture->width = header.size.width;
    picture->height = header.size.height;
    picture->format = header.format;
    av_image_fill_arrays(picture->data, picture->linesize,
                         reinterpret_cast<std::uint8_t*>(bytes.data()), header.format,
                         header.size.width, header.size.height, 1);
    picture->color_range = header.full ? AVCOL_RANGE_JPEG : AVCOL_RANGE_MPEG;
    picture->chroma_location = header.siting;
    picture->interlaced_frame = header.fields != FieldOrder::Progressive ? 1 : 0;
    return picture;
}

/// The bytes of a picture. Throws MediaError if it has more pixels than the libraries support,
/// which is fewer than checkFrameSize accepts.
std::size_t bytesOf(const Y4mHeader& header, const std::string& name) {
    const int bytes =
        av_image_get_buffer_size(header.format, header.size.width, header.size.height, 1);
    if (bytes < 0) {
        throw MediaError("Cannot read " + name + ": its size is " + toText(header.size) +
                         ", more than the FFmpeg libraries support. Use a smaller picture.");
    }
    return static_cast<std::size_t>(bytes);
}

}  // namespace

Y4mStream::Y4mStream(InputStream stream, std::optional<FieldOrder> fields)
    : stream_(std::move(stream)) {
    const auto line = readLine();
    if (!line) {
        throw MediaError("Cannot read " + stream_.name() + ": it is empty.");
    }
    header_ = parseY4mHeader(*line, stream_.name());
    header_.fields = fields.value_or(header_.fields);
    frameBytes_ = bytesOf(header_, stream_.name());
    bytes_.resize(frameBytes_ + AV_INPUT_BUFFER_PADDING_SIZE);
    picture_ = pictureIn(bytes_, header_);
    convert_.emplace(*picture_, stream_.name());
    info_.size = header_.size;
    info_.depth = convert_->depth();
    info_.rate = header_.rate;
    info_.last = kEndless;
    info_.lastKnown = false;
    info_.hasAlpha = convert_->hasAlpha();
    info_.pixelAspect = header_.pixelAspect;
    info_.colour.full = header_.full;
    info_.fields = header_.fields;
    info_.bits = convert_->bits();
    info_.chroma = convert_->chroma();
}

std::optional<std::string> Y4mStream::readLine() {
    std::string line;
    std::byte next{};
    while (stream_.read({&next, 1}) == 1) {
        if (next == std::byte{'\n'}) {
            return line;
        }
        line += static_cast<char>(next);
        if (line.size() > kLongestY4mLine) {
            throw MediaError("Cannot read " + stream_.name() +
                             " as Y4M: a line is too long. For raw frames, give their size (--size "
                             "WxH).");
        }
    }
    if (!line.empty()) {
        throw MediaError(stream_.name() + " is cut off or not Y4M: it ends within a line.");
    }
    return std::nullopt;
}

bool Y4mStream::next(Frame& frame) {
    const auto line = readLine();
    if (!line) return false;
    const bool tags = line->size() > kFrameMark.size() && (*line)[kFrameMark.size()] == ' ';
    if (!line->starts_with(kFrameMark) || (line->size() > kFrameMark.size() && !tags)) {
        throw MediaError(stream_.name() + " is damaged: a frame does not begin with FRAME.");
    }
    if (!stream_.readFrame(std::span(bytes_).first(frameBytes_))) {
        throw MediaError(stream_.name() + " ends within a frame.");
    }
    convert_->convert(*picture_, frame);
    return true;
}

}  // namespace ruvex::media
