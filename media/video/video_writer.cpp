#include "media/video/video_writer.h"

#include "media/av_library.h"
#include "media/media_error.h"
#include "media/storage_choice.h"
#include "media/video/video_encoder.h"

namespace ruvex::media {
namespace {

const VideoCodec& codecOf(const std::filesystem::path& path, const WriteOptions& options) {
    const VideoCodec* codec = findVideoCodec(path, options.codec);
    const std::string fault = storageFault(path, storageOf(options));
    if (codec == nullptr || !fault.empty()) {
        throw MediaError("Cannot write " + path.string() + ". " + fault);
    }
    return *codec;
}

/// To be called before anything else, so that the first error that is found is of this file.
PictureEncoder openEncoderOf(const std::filesystem::path& path, const WriteOptions& options,
                             const VideoCodec& codec) {
    quietLibraries();
    takeLibraryError();
    checkFrameSize(options.size, options.depth, path.string());
    return {codec, path, options, needsGlobalHeader(path)};
}

}  // namespace

bool VideoWriter::canWrite(const std::filesystem::path& path) {
    return findVideoCodec(path) != nullptr;
}

VideoWriter::VideoWriter(const std::filesystem::path& path, const WriteOptions& options)
    : VideoWriter(path, options, codecOf(path, options)) {}

VideoWriter::VideoWriter(const std::filesystem::path& path, const WriteOptions& options,
                         const VideoCodec& codec)
    : FrameWriter(options.written),
      path_(path),
      codec_(codec),
      fields_(options.fields),
      encoder_(openEncoderOf(path, options, codec)),
      container_(path, codec, encoder_.coder(), options),
      packet_(newAvPacket()) {}

std::vector<std::string> VideoWriter::remarks() const {
    std::vector<std::string> remarks = container_.remarks();
    if (fields_ != FieldOrder::Progressive && !isInterlaced(encoder_.coder())) {
        remarks.push_back(path_.string() + " is not marked as interlaced: its codec, " +
                          codec_.title + ", cannot code these frames as interlaced.");
    }
    return remarks;
}

void VideoWriter::write(std::int64_t, const Frame& frame) {
    encoder_.send(frame);
    ++frames_;
    writeReady();
}

void VideoWriter::writePicture(AVFrame& picture) {
    encoder_.send(picture);
    ++frames_;
    writeReady();
}

void VideoWriter::writePacket(AVPacket& packet) {
    packet.pts = frames_;
    packet.dts = frames_++;
    container_.write(packet);
    reportWritten();
}

void VideoWriter::writeReady() {
    while (encoder_.receive(*packet_)) {
        container_.write(*packet_);
        reportWritten();
    }
}

void VideoWriter::finish() {
    encoder_.drain();
    writeReady();
    container_.finish(frames_);
}

}  // namespace ruvex::media
