#include "media/video/video_writer.h"

#include <cerrno>
#include <string_view>

#include "files/whole_file.h"
#include "files/words.h"
#include "media/av_library.h"
#include "media/media_error.h"
#include "media/pixels/rgb_lines.h"
#include "media/storage_choice.h"
#include "media/video/video_encoder.h"

namespace ruvex::media {
namespace {

/// Frames. No codec here reorders over more, so that a decoding time further before its display
/// time is wrong.
constexpr int kMostReordered = 16;
/// The libraries return -errno for an error of the system; their own codes are four characters in a
/// negative 32-bit number, and so far below any errno.
constexpr int kErrnoLimit = 4096;

std::string extensionOf(const std::filesystem::path& path) {
    return files::lowerCase(path.extension().string());
}

/// The libraries' name of the container.
const char* containerOf(const std::string& extension) {
    if (extension == ".mkv") {
        return "matroska";
    }
    if (extension == ".mxf") {
        return "mxf";
    }
    return extension == ".mov" ? "mov" : "mp4";
}

const VideoCodec& codecOf(const std::filesystem::path& path, const WriteOptions& options) {
    const VideoCodec* codec = findVideoCodec(path, options.codec);
    const std::string fault = storageFault(path, storageOf(options));
    if (codec == nullptr || !fault.empty()) {
        throw MediaError("Cannot write " + path.string() + ". " + fault);
    }
    return *codec;
}

}  // namespace

bool VideoWriter::canWrite(const std::filesystem::path& path) {
    return findVideoCodec(path) != nullptr;
}

VideoWriter::VideoWriter(const std::filesystem::path& path, const WriteOptions& options)
    : FrameWriter(options.written),
      path_(path),
      codec_(codecOf(path, options)),
      alpha_(options.alpha),
      fields_(options.fields),
      file_(path),
      packet_(newAvPacket()) {
    quietLibraries();
    takeLibraryError();
    checkFrameSize(options.size, options.depth, path.string());
    AVFormatContext* format = nullptr;
    check(
        avformat_alloc_output_context2(&format, nullptr, containerOf(extensionOf(path)), nullptr));
    format_.reset(format);
    // Without random identifiers, so that the same frames give the same file.
    format_->flags |= AVFMT_FLAG_BITEXACT;
    openCoder(options);
    openContainer(options);
}

HeldMemory VideoWriter::held() const {
    HeldMemory held = pictures_->held();
    held.add(premultiplied_);
    return held;
}

std::vector<std::string> VideoWriter::remarks() const {
    std::vector<std::string> remarks = copy_->losses();
    if (sound_) remarks.insert(remarks.end(), sound_->remarks().begin(), sound_->remarks().end());
    if (fields_ != FieldOrder::Progressive && !isInterlaced(*coder_)) {
        remarks.push_back(path_.string() + " is not marked as interlaced: its codec, " +
                          codec_.title + ", cannot code these frames as interlaced.");
    }
    return remarks;
}

VideoWriter::~VideoWriter() {
    if (format_) {
        avio_closep(&format_->pb);
    }
}

void VideoWriter::openCoder(const WriteOptions& options) {
    const bool globalHeader = (format_->oformat->flags & AVFMT_GLOBALHEADER) != 0;
    coder_ = openEncoder(codec_, path_, options, globalHeader);
    pictures_.emplace(options.size.width, options.size.height, coder_->pix_fmt);
    if (!codec_.exact) {
        convert_.emplace(options.size, YuvForm{coder_->pix_fmt, coder_->colorspace,
                                               coder_->color_range == AVCOL_RANGE_JPEG,
                                               AVCHROMA_LOC_LEFT, isInterlaced(*coder_)});
    }
}

void VideoWriter::openContainer(const WriteOptions& options) {
    AVStream* stream = avformat_new_stream(format_.get(), nullptr);
    if (stream == nullptr) {
        throw std::bad_alloc();
    }
    check(avcodec_parameters_from_context(stream->codecpar, coder_.get()));
    // The MXF muxer looks for the profile here, where the encoder of ProRes does not put it.
    stream->codecpar->profile = codec_.profile;
    stream->time_base = coder_->time_base;
    stream->avg_frame_rate = coder_->framerate;
    stream->sample_aspect_ratio = coder_->sample_aspect_ratio;
    writeTags(options.tags, *format_, *stream);
    writeHdr(options.hdr, *stream);
    addBeside(options.copied);
    check(avio_open(&format_->pb, ("file:" + file_.path().string()).c_str(), AVIO_FLAG_WRITE));
    check(avformat_write_header(format_.get(), nullptr));
}

void VideoWriter::addBeside(CopySource source) {
    if (isMxf(path_)) {
        sound_.emplace(source, path_.string(), *format_);
        source.sound = false;
    }
    copy_.emplace(source, path_.string(), av_rescale_q(1, coder_->time_base, kMicroseconds),
                  *format_);
}

void VideoWriter::writeBeside(std::int64_t time) {
    check(copy_->writeUntil(time));
    if (sound_) check(sound_->writeUntil(time));
}

AVFrame& VideoWriter::toPicture(const Frame& frame) {
    if (alpha_ != AlphaForm::Premultiplied) {
        return pack(frame);
    }
    // The product has more bits than an 8-bit frame, which deep YUV can hold.
    const bool deep = !codec_.exact && bitsPerComponent(coder_->pix_fmt) > 8;
    premultiply(frame, deep ? Depth::S214 : frame.depth(), premultiplied_);
    return pack(premultiplied_);
}

AVFrame& VideoWriter::pack(const Frame& frame) {
    AVFrame& picture = pictures_->take();
    if (convert_) {
        convert_->convert(frame, picture);
    } else {
        packRgb(frame, picture);
    }
    return picture;
}

void VideoWriter::write(std::int64_t, const Frame& frame) {
    AVFrame& picture = toPicture(frame);
    picture.pts = sent_++;
    // The ProRes encoder takes the marks of its frames from these fields.
    picture.color_primaries = coder_->color_primaries;
    picture.color_trc = coder_->color_trc;
    picture.colorspace = coder_->colorspace;
    picture.color_range = coder_->color_range;
    picture.interlaced_frame = isInterlaced(*coder_) ? 1 : 0;
    picture.top_field_first = coder_->field_order == AV_FIELD_TT ? 1 : 0;
    encode(&picture);
    writeBeside(av_rescale_q(sent_, coder_->time_base, kMicroseconds));
}

void VideoWriter::encode(const AVFrame* picture) {
    check(avcodec_send_frame(coder_.get(), picture));
    for (;;) {
        const int code = avcodec_receive_packet(coder_.get(), packet_.get());
        if (code == AVERROR(EAGAIN) || code == AVERROR_EOF) {
            return;
        }
        check(code);
        packet_->stream_index = 0;
        packet_->duration = 1;
        // The H.265 encoder leaves decoding times undefined for clips that are too short for
        // reordering. Their frames are decoded in display order.
        if (packet_->dts > packet_->pts || packet_->dts < packet_->pts - kMostReordered) {
            packet_->dts = packet_->pts;
        }
        const AVRational unit = format_->streams[0]->time_base;
        // Rounded up: the container's edit list would round a fraction of a millisecond down.
        const std::int64_t lead = av_rescale_q_rnd(copy_->lead(), kMicroseconds, unit, AV_ROUND_UP);
        av_packet_rescale_ts(packet_.get(), coder_->time_base, unit);
        packet_->pts += lead;
        packet_->dts += lead;
        check(av_interleaved_write_frame(format_.get(), packet_.get()));
        check(format_->pb->error);
        reportWritten();
    }
}

void VideoWriter::finish() {
    encode(nullptr);
    check(copy_->writeUntil(INT64_MAX));
    // The muxer drops the last picture if the samples of its time are not complete, by its own
    // count of samples for each picture, and what is left over after the last picture.
    if (sound_)
        check(sound_->writeUntil(av_rescale_q(sent_ + 1, coder_->time_base, kMicroseconds)));
    check(av_write_trailer(format_.get()));
    avio_flush(format_->pb);
    check(format_->pb->error);
    check(avio_closep(&format_->pb));
    file_.commit();
}

void VideoWriter::check(int code) const {
    if (code >= 0) {
        return;
    }
    const bool isErrno = code > -kErrnoLimit;
    const std::string reason = takeLibraryReason(code);
    throw MediaError(isErrno ? files::writeFailure(path_, AVUNERROR(code))
                             : "Cannot write " + path_.string() + ": " + reason + ".");
}

}  // namespace ruvex::media
