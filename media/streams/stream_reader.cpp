#include "media/streams/stream_reader.h"

#include <algorithm>
#include <iterator>

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

bool RawStream::next(Frame& frame) {
    makeRoom(frame, info_.size, info_.depth);
    return stream_.readFrame(frame.bytes());
}

StreamReader::StreamReader(int descriptor, std::string name, const ReadOptions& options)
    : FrameReader(options.depth),
      name_(name),
      alpha_(options.alpha),
      source_(openSource(InputStream(descriptor, std::move(name), options.stop), options)) {
    if (!keepNext()) {
        throw MediaError("Cannot read " + name_ + ": it has no frames.");
    }
}

void StreamReader::addHeld(HeldMemory& held) const {
    for (const Frame& frame : kept_) held.add(frame);
    held.add(next_);
    held.add(premultiplied_);
    source_->addHeld(held);
}

bool StreamReader::readNext(Frame& frame) {
    const bool divides = alpha_ == AlphaForm::Premultiplied && info().hasAlpha;
    if (ended_ || !source_->next(divides ? premultiplied_ : frame)) {
        ended_ = true;
        return false;
    }
    if (divides) unpremultiply(premultiplied_, depthOfFrames(), frame);
    ++count_;
    return true;
}

bool StreamReader::keepNext() {
    if (!readNext(next_)) return false;
    if (kept_.size() < mostFrames(next_)) {
        kept_.emplace_back();
    } else {
        kept_.splice(kept_.end(), kept_, kept_.begin());
        ++firstKept_;
    }
    std::swap(kept_.back(), next_);
    return true;
}

bool StreamReader::readOwn(std::int64_t number, Frame& frame, Use use) {
    if (number < firstKept_) {
        throw MediaError("Cannot go back to frame " + std::to_string(number) + " of " + name_ +
                         ": only the frames from " + std::to_string(firstKept_) +
                         " on are still in memory. Render from a file.");
    }
    if (use == Use::Once && number >= count_) return readStraight(number, frame);
    while (count_ <= number) {
        if (!keepNext()) return false;
    }
    frame = *std::next(kept_.begin(), number - firstKept_);
    return true;
}

bool StreamReader::readStraight(std::int64_t number, Frame& frame) {
    while (count_ <= number) {
        if (!readNext(frame)) return false;
    }
    kept_.clear();
    firstKept_ = count_;
    return true;
}

}  // namespace ruvex::media
