#include "media/streams/stream_reader.h"

#include <algorithm>

#include "media/file_kind.h"
#include "media/media_error.h"
#include "media/streams/y4m_stream.h"

namespace ruvex::media {
namespace {

constexpr std::size_t kMostKeptBytes = std::size_t{512} << 20;
/// So that the previous frame can be read again whatever the size.
constexpr std::size_t kFewestKeptFrames = 2;

/// How many frames of this size are kept.
std::size_t mostFrames(const Frame& frame) {
    return std::max(kMostKeptBytes / std::max<std::size_t>(frame.bytes().size(), 1),
                    kFewestKeptFrames);
}

std::unique_ptr<StreamSource> openSource(InputStream stream, const ReadOptions& options) {
    const bool raw = options.format ? *options.format != FileKind::Y4m : options.size.has_value();
    if (!raw) {
        return std::make_unique<Y4mStream>(std::move(stream), options.fields);
    }
    if (!options.size) {
        throw MediaError(stream.name() + " holds raw frames: give their size (--size WxH).");
    }
    const auto depth = rawDepth(options.format.value_or(FileKind::RawRgba8));
    return std::make_unique<RawStream>(std::move(stream), *options.size, *depth);
}

}  // namespace

RawStream::RawStream(InputStream stream, FrameSize size, Depth depth) : stream_(std::move(stream)) {
    checkFrameSize(size, depth, stream_.name());
    info_.size = size;
    info_.depth = depth;
    info_.last = kEndless;
    info_.lastKnown = false;
    info_.hasAlpha = true;
    info_.bits = depth == Depth::Bits8 ? 8 : 16;
}

std::optional<Frame> RawStream::next() {
    Frame frame(info_.size, info_.depth);
    if (!stream_.readFrame(frame.bytes())) {
        return std::nullopt;
    }
    return frame;
}

StreamReader::StreamReader(int descriptor, std::string name, const ReadOptions& options)
    : FrameReader(options.depth),
      name_(name),
      alpha_(options.alpha),
      source_(openSource(InputStream(descriptor, std::move(name), options.stop), options)) {
    if (!advance()) {
        throw MediaError("Cannot read " + name_ + ": it has no frames.");
    }
}

bool StreamReader::advance() {
    auto frame = ended_ ? std::nullopt : source_->next();
    if (!frame) {
        ended_ = true;
        return false;
    }
    if (alpha_ == AlphaForm::Premultiplied && info().hasAlpha) {
        frame = unpremultiplied(*frame, depthOfFrames());
    }
    if (kept_.size() >= mostFrames(*frame)) {
        kept_.pop_front();
    }
    kept_.push_back(std::move(*frame));
    ++count_;
    return true;
}

bool StreamReader::readOwn(std::int64_t number, Frame& frame) {
    while (count_ <= number) {
        if (!advance()) {
            return false;
        }
    }
    const std::int64_t first = count_ - static_cast<std::int64_t>(kept_.size());
    if (number < first) {
        throw MediaError("Cannot go back to frame " + std::to_string(number) + " of " + name_ +
                         ": only the frames from " + std::to_string(first) +
                         " on are still in memory. Render from a file.");
    }
    frame = kept_[static_cast<std::size_t>(number - first)];
    return true;
}

}  // namespace ruvex::media
