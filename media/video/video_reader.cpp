#include "media/video/video_reader.h"

#include <algorithm>

#include "media/av_functions.h"
#include "media/media_error.h"

namespace ruvex::media {
namespace {

/// The number of a picture that is not in the index.
constexpr std::int64_t kNotShown = -1;
constexpr std::size_t kMostCachedFrames = 8;
constexpr std::size_t kMostCachedBytes = std::size_t{256} << 20;

Rational pixelAspectOf(const AVFrame& picture, const AVStream& stream) {
    for (const AVRational& aspect : {stream.sample_aspect_ratio, picture.sample_aspect_ratio}) {
        if (aspect.num > 0 && aspect.den > 0) {
            return makeRational(aspect.num, aspect.den);
        }
    }
    return {1, 1};
}

/// The display order of the stream's fields, whatever their coding order.
FieldOrder fieldsOf(const AVStream& stream) {
    switch (stream.codecpar->field_order) {
        case AV_FIELD_TT:
        case AV_FIELD_BT:
            return FieldOrder::TopFirst;
        case AV_FIELD_BB:
        case AV_FIELD_TB:
            return FieldOrder::BottomFirst;
        default:
            return FieldOrder::Progressive;
    }
}

}  // namespace

const Frame* FrameCache::find(std::int64_t number) {
    const auto found = std::find_if(entries_.begin(), entries_.end(), [number](const Entry& entry) {
        return entry.number == number;
    });
    if (found == entries_.end()) {
        return nullptr;
    }
    entries_.splice(entries_.begin(), entries_, found);
    return &entries_.front().frame;
}

void FrameCache::keep(std::int64_t number, Frame frame) {
    const std::size_t bytes = std::max<std::size_t>(frame.bytes().size(), 1);
    const std::size_t most =
        std::clamp<std::size_t>(kMostCachedBytes / bytes, 1, kMostCachedFrames);
    while (entries_.size() >= most) {
        entries_.pop_back();
    }
    entries_.push_front({number, std::move(frame)});
}

VideoReader::VideoReader(const std::filesystem::path& path, const ReadOptions& options)
    : FrameReader(options.depth),
      path_(path),
      alpha_(options.alpha),
      fields_(options.fields),
      index_(path, options.rate),
      decoder_(path),
      picture_(newAvFrame()) {
    if (!decoder_.next(*picture_)) {
        throw MediaError("Cannot read " + path.string() + ": its video cannot be decoded.");
    }
    index_.startAt(picture_->pts);
    describe(*picture_);
    info_.tags = readTags(decoder_.file(), decoder_.stream());
    at_ = 0;
    cache_.keep(0, toFrame());
}

void VideoReader::describe(const AVFrame& first) {
    convert_.emplace(first, path_);
    orientation_ = orientationOf(decoder_.stream());
    if (orientation_.upright()) {
        orientation_ = orientationOf(first);
    }
    info_.size = setUpright(FrameSize{first.width, first.height}, orientation_);
    info_.depth = convert_->depth();
    info_.rate = index_.rate();
    info_.uneven = index_.uneven();
    info_.pictures = index_.pictures();
    info_.leftOut = index_.leftOut();
    info_.last = index_.count() - 1;
    info_.hasAlpha = convert_->hasAlpha();
    info_.pixelAspect = setUpright(pixelAspectOf(first, decoder_.stream()), orientation_);
    info_.colour = {first.color_primaries, first.color_trc, first.colorspace,
                    first.color_range == AVCOL_RANGE_JPEG};
    const AVStream& stream = decoder_.stream();
    info_.hdr = readHdr(first, stream);
    const std::int64_t start = first.pts == AV_NOPTS_VALUE ? stream.start_time : first.pts;
    info_.start =
        start == AV_NOPTS_VALUE ? 0 : av_rescale_q(start, stream.time_base, {1, AV_TIME_BASE});
    info_.bits = convert_->bits();
    info_.chroma = convert_->chroma();
    info_.fields = setUpright(fieldsOf(first), first.height, orientation_);
}

/// By the user, else by the picture's own mark, else by the container's.
FieldOrder VideoReader::fieldsOf(const AVFrame& picture) const {
    if (!fields_ && picture.interlaced_frame != 0) {
        return picture.top_field_first != 0 ? FieldOrder::TopFirst : FieldOrder::BottomFirst;
    }
    return fields_.value_or(media::fieldsOf(decoder_.stream()));
}

Frame VideoReader::toFrame() {
    picture_->interlaced_frame = fieldsOf(*picture_) != FieldOrder::Progressive ? 1 : 0;
    Frame frame = convert_->convert(*picture_);
    if (alpha_ == AlphaForm::Premultiplied && convert_->hasAlpha()) {
        frame = unpremultiplied(frame, depthOfFrames());
    }
    return setUpright(std::move(frame), orientation_);
}

std::int64_t VideoReader::numberOfPicture() const {
    return index_.timed() ? index_.numberAt(picture_->pts).value_or(kNotShown) : at_ + 1;
}

bool VideoReader::advance(std::int64_t from) {
    if (!decoder_.next(*picture_)) {
        return false;
    }
    const std::int64_t number = numberOfPicture();
    if (number != kNotShown) {
        at_ = number;
    }
    if (number >= from) {
        cache_.keep(number, toFrame());
    }
    return true;
}

void VideoReader::goToStart() {
    at_ = -1;
    decoder_.rewind();
}

void VideoReader::goBefore(std::int64_t number) {
    const std::int64_t key = index_.keyBefore(number);
    const bool ahead = at_ < number;
    // Without a key frame in between, seeking would lead back to here or before.
    if (ahead && (!index_.timed() || key <= at_ + 1)) {
        return;
    }
    if (!index_.timed() || key == 0 || !decoder_.seek(index_.timeOf(key))) {
        goToStart();
        return;
    }
    at_ = -1;
}

const Frame* VideoReader::reach(std::int64_t number) {
    while (at_ < number && advance(number)) {
    }
    return cache_.find(number);
}

const Frame& VideoReader::find(std::int64_t wanted) {
    const std::int64_t number = index_.shownAs(wanted);
    if (const Frame* kept = cache_.find(number)) {
        return *kept;
    }
    goBefore(number);
    if (const Frame* found = reach(number)) {
        return *found;
    }
    // A file's table of key frames may be wrong, and a decoder may drop frames after a seek.
    // Decoding from the beginning finds every frame.
    goToStart();
    if (const Frame* found = reach(number)) {
        return *found;
    }
    throw MediaError(path_.string() + " is damaged: frame " + std::to_string(wanted) +
                     " cannot be decoded.");
}

bool VideoReader::readOwn(std::int64_t number, Frame& frame) {
    frame = find(number);
    return true;
}

}  // namespace ruvex::media
