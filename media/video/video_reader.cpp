#include "media/video/video_reader.h"

#include <algorithm>
#include <iterator>

#include "media/av_functions.h"
#include "media/media_error.h"

namespace ruvex::media {
namespace {

/// The number of a picture that is not in the index.
constexpr std::int64_t kNotShown = -1;
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

/// The stored list of pictures, or else one of the file's.
PictureTable tableOf(const std::filesystem::path& path,
                     const std::optional<files::FileStamp>& stamp,
                     const std::filesystem::path& index) {
    if (stamp && !index.empty()) {
        if (auto table = readStoredTable(index, *stamp)) return *std::move(table);
    }
    return listPictures(path);
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

void FrameCache::keep(std::int64_t number, const Frame& frame, std::size_t most) {
    const std::size_t bytes = std::max<std::size_t>(frame.bytes().size(), 1);
    const std::size_t room = std::clamp<std::size_t>(kMostCachedBytes / bytes, 1, most);
    while (entries_.size() > room) entries_.pop_back();
    if (entries_.size() < room) entries_.emplace_back();
    entries_.splice(entries_.begin(), entries_, std::prev(entries_.end()));
    entries_.front().number = number;
    entries_.front().frame = frame;
}

void FrameCache::addHeld(HeldMemory& held) const {
    for (const Entry& entry : entries_) held.add(entry.frame);
}

VideoReader::VideoReader(const std::filesystem::path& path, const ReadOptions& options)
    : FrameReader(options.depth),
      path_(path),
      alpha_(options.alpha),
      fields_(options.fields),
      stamp_(files::stampOf(path)),
      index_(tableOf(path, stamp_, options.index), options.rate),
      decoder_(path),
      picture_(newAvFrame()) {
    if (!decoder_.next(*picture_)) {
        throw MediaError("Cannot read " + path.string() + ": its video cannot be decoded.");
    }
    index_.startAt(picture_->pts);
    describe(*picture_);
    info_.tags = readTags(decoder_.file(), decoder_.stream());
    at_ = 0;
    shown_ = 0;
}

std::vector<std::byte> VideoReader::index() const {
    return stamp_ ? storedTable(index_.table(), *stamp_) : std::vector<std::byte>();
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

void VideoReader::toFrame(Frame& into) {
    const bool divides = alpha_ == AlphaForm::Premultiplied && convert_->hasAlpha();
    const bool turns = !orientation_.upright();
    picture_->interlaced_frame = fieldsOf(*picture_) != FieldOrder::Progressive ? 1 : 0;
    Frame& converted = divides || turns ? converted_ : into;
    convert_->convert(*picture_, converted);
    Frame& straight = divides && turns ? straight_ : divides ? into : converted;
    if (divides) unpremultiply(converted, depthOfFrames(), straight);
    if (turns) setUpright(straight, orientation_, into);
}

std::int64_t VideoReader::numberOfPicture() const {
    return index_.timed() ? index_.numberAt(picture_->pts).value_or(kNotShown) : at_ + 1;
}

bool VideoReader::advance() {
    shown_ = kNotShown;
    if (!decoder_.next(*picture_)) return false;
    shown_ = numberOfPicture();
    if (shown_ != kNotShown) at_ = shown_;
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

bool VideoReader::reach(std::int64_t number) {
    while (at_ < number && advance()) {
    }
    return shown_ == number;
}

void VideoReader::decode(std::int64_t number, std::int64_t wanted) {
    if (shown_ == number) return;
    goBefore(number);
    if (reach(number)) return;
    // A file's table of key frames may be wrong, and a decoder may drop frames after a seek.
    // Decoding from the beginning finds every frame.
    goToStart();
    if (reach(number)) return;
    throw MediaError(path_.string() + " is damaged: frame " + std::to_string(wanted) +
                     " cannot be decoded.");
}

void VideoReader::addHeld(HeldMemory& held) const {
    cache_.addHeld(held);
    held.add(converted_);
    held.add(straight_);
}

bool VideoReader::isShownAgain(std::int64_t number) const {
    return number < info_.last && index_.shownAs(number + 1) == index_.shownAs(number);
}

bool VideoReader::readOwn(std::int64_t number, Frame& frame, Use use) {
    const std::int64_t stored = index_.shownAs(number);
    if (const Frame* kept = cache_.find(stored)) {
        frame = *kept;
        return true;
    }
    decode(stored, number);
    toFrame(frame);
    if (use == Use::Again) {
        cache_.keep(stored, frame);
    } else if (isShownAgain(number)) {
        cache_.keep(stored, frame, 1);
    }
    return true;
}

}  // namespace ruvex::media
