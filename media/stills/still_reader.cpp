#include "media/stills/still_reader.h"

#include <utility>

#include "media/media_error.h"
#include "media/stills/raw_frame.h"
#include "media/stills/still_file.h"

namespace ruvex::media {
namespace {

files::NumberedPath::Range rangeOf(const files::NumberedPath& files) {
    const auto range = files.existing();
    if (!range) {
        throw MediaError(
            "Cannot read " + files.text() + ": there is no such file. " +
            (files.isPattern() ? "No file name matches the pattern." : "Check the name."));
    }
    return *range;
}

}  // namespace

StillReader::StillReader(const std::filesystem::path& path, const ReadOptions& options)
    : FrameReader(options.depth), alpha_(options.alpha), files_(path), kind_(fileKind(path)) {
    const files::NumberedPath::Range range = rangeOf(files_);
    info_.first = range.first;
    info_.last = range.last;
    if (const auto depth = rawDepth(kind_)) {
        openRaw(options.size, *depth);
    } else {
        openStill();
    }
}

void StillReader::openRaw(std::optional<FrameSize> size, Depth depth) {
    if (!size) {
        throw MediaError(files_.text() + " holds raw frames: give their size (--size WxH).");
    }
    checkFrameSize(*size, depth, files_.text());
    info_.size = *size;
    info_.depth = depth;
    info_.hasAlpha = true;
}

void StillReader::openStill() {
    Still first = readStill(files_.file(info_.first), alpha_);
    info_.size = first.frame.size();
    info_.depth = first.depth;
    info_.hasAlpha = first.hasAlpha;
    info_.pixelAspect = first.pixelAspect;
    if (depthOfFrames() == info_.depth) first_ = std::move(first.frame);
}

void StillReader::addHeld(HeldMemory& held) const {
    held.add(first_);
}

bool StillReader::readOwn(std::int64_t number, Frame& frame, Use) {
    const std::filesystem::path file = files_.file(number);
    if (rawDepth(kind_)) {
        frame = readRawFrame(file, info_.size, info_.depth);
        if (alpha_ == AlphaForm::Premultiplied) {
            frame = unpremultiplied(frame, depthOfFrames());
        }
        return true;
    }
    if (number == info_.first && !first_.bytes().empty()) {
        frame = std::exchange(first_, {});
        return true;
    }
    frame = readStill(file, alpha_, depthOfFrames()).frame;
    if (frame.size() != info_.size) {
        throw MediaError(file.string() + " is " + toText(frame.size()) +
                         ", but the first picture, " + files_.file(info_.first).string() + ", is " +
                         toText(info_.size) + ". All pictures of a sequence need the same size.");
    }
    return true;
}

}  // namespace ruvex::media
