#include "media/video_writer.h"

extern "C" {
#include <libavutil/opt.h>
}

#include <algorithm>
#include <cerrno>
#include <string_view>

#include "media/library_log.h"
#include "media/media_error.h"
#include "media/rgb_lines.h"
#include "media/text.h"

namespace ruvex::media {
namespace {

constexpr int kPalLines = 576;
constexpr int kShortestSlicedSide = 64;

std::string ending(const std::filesystem::path& path) {
    return lowerCase(path.extension().string());
}

const char* containerOf(const std::string& ending) {
    if (ending == ".mkv") {
        return "matroska";
    }
    return ending == ".mov" ? "mov" : "mp4";
}

AVRational fraction(const Rational& value) {
    return {static_cast<int>(value.num), static_cast<int>(value.den)};
}

/// Colour differences at half the size need whole halves.
bool isEven(FrameSize size) {
    return size.width % 2 == 0 && size.height % 2 == 0;
}

AVPixelFormat formatFor(const VideoCodec& codec, const WriteOptions& options) {
    const bool deep = options.depth == Depth::S214;
    if (codec.exact) {
        return deep ? AV_PIX_FMT_RGBA64LE : AV_PIX_FMT_BGRA;
    }
    if (codec.alpha) {
        return AV_PIX_FMT_YUVA444P10LE;
    }
    if (deep && codec.name == std::string_view("h265")) {
        return isEven(options.size) ? AV_PIX_FMT_YUV420P10LE : AV_PIX_FMT_YUV444P10LE;
    }
    return isEven(options.size) ? AV_PIX_FMT_YUV420P : AV_PIX_FMT_YUV444P;
}

const VideoCodec& codecOf(const std::filesystem::path& path, const WriteOptions& options) {
    const VideoCodec* codec = findVideoCodec(path, options.codec);
    const std::string fault = storageFault(path, options.codec, options.quality);
    if (codec == nullptr || !fault.empty()) {
        throw MediaError("Cannot write " + path.string() + ". " + fault);
    }
    return *codec;
}

AVColorSpace yuvMatrix(const WriteOptions& options) {
    const int matrix = matrixInUse(options.colour.matrix, options.size.height);
    const bool chosen = matrix != options.colour.matrix;
    const bool pal = chosen && options.size.height == kPalLines && matrix == AVCOL_SPC_SMPTE170M;
    return pal ? AVCOL_SPC_BT470BG : static_cast<AVColorSpace>(matrix);
}

const AVCodec& encoderFor(const VideoCodec& codec, const std::filesystem::path& path) {
    const AVCodec* encoder = avcodec_find_encoder_by_name(codec.encoder);
    if (encoder == nullptr) {
        throw MediaError("Cannot write " + path.string() + ": the FFmpeg libraries here lack " +
                         codec.encoder + ". Install a build with it, or choose another --codec.");
    }
    return *encoder;
}

void describe(AVCodecContext& coder, const WriteOptions& options, const VideoCodec& codec) {
    const bool exact = codec.exact;
    coder.width = options.size.width;
    coder.height = options.size.height;
    coder.framerate = fraction(options.rate);
    coder.time_base = av_inv_q(coder.framerate);
    coder.sample_aspect_ratio = fraction(options.pixelAspect);
    coder.color_primaries = static_cast<AVColorPrimaries>(options.colour.primaries);
    coder.color_trc = static_cast<AVColorTransferCharacteristic>(options.colour.transfer);
    coder.pix_fmt = formatFor(codec, options);
    coder.chroma_sample_location = exact ? AVCHROMA_LOC_UNSPECIFIED : AVCHROMA_LOC_LEFT;
    coder.colorspace = exact ? AVCOL_SPC_RGB : yuvMatrix(options);
    coder.color_range = exact || options.colour.full ? AVCOL_RANGE_JPEG : AVCOL_RANGE_MPEG;
}

/// Each frame by itself, so that any frame is quickly found again. Large ones in slices with check
/// sums, which threads share; the coder's slices lose pixels where a side is only a few long.
void setExact(AVCodecContext& coder) {
    const bool slices = std::min(coder.width, coder.height) >= kShortestSlicedSide;
    coder.level = slices ? 3 : 1;
    coder.gop_size = 1;
    av_opt_set_int(coder.priv_data, "slicecrc", slices ? 1 : 0, 0);
}

/// From 1, coarse, to 100, without a loss that could be seen.
void setQuality(AVCodecContext& coder, const VideoCodec& codec, std::optional<int> quality) {
    const int rest = 100 - quality.value_or(codec.quality);
    if (!codec.alpha) {
        const int factor = std::max((rest + 1) / 2, 1);
        av_opt_set(coder.priv_data, "crf", std::to_string(factor).c_str(), 0);
        // The message that every file would begin with goes to the terminal otherwise.
        av_opt_set(coder.priv_data, "x265-params", "log-level=none", 0);
        return;
    }
    av_opt_set(coder.priv_data, "profile", "4444", 0);
    coder.flags |= AV_CODEC_FLAG_QSCALE;
    coder.global_quality = FF_QP2LAMBDA * std::max(rest / 3, 1);
}

}  // namespace

bool VideoWriter::canWrite(const std::filesystem::path& path) {
    return findVideoCodec(path) != nullptr;
}

VideoWriter::VideoWriter(const std::filesystem::path& path, const WriteOptions& options)
    : path_(path),
      codec_(codecOf(path, options)),
      alpha_(options.alpha),
      file_(path),
      packet_(newAvPacket()) {
    quietLibraries();
    takeLibraryError();
    checkFrameSize(options.size, options.depth, path.string());
    AVFormatContext* format = nullptr;
    check(avformat_alloc_output_context2(&format, nullptr, containerOf(ending(path)), nullptr));
    format_.reset(format);
    // No random identifier: the same frames give the same file.
    format_->flags |= AVFMT_FLAG_BITEXACT;
    openCoder(options);
    openContainer(options);
}

std::vector<std::string> VideoWriter::remarks() const {
    std::vector<std::string> remarks;
    for (const std::string& coding : audio_->leftOut()) {
        remarks.push_back("Sound coded as " + coding + " is left out: " + path_.string() +
                          " cannot hold it.");
    }
    return remarks;
}

VideoWriter::~VideoWriter() {
    if (format_) {
        avio_closep(&format_->pb);
    }
}

void VideoWriter::openCoder(const WriteOptions& options) {
    const AVCodec& encoder = encoderFor(codec_, path_);
    coder_ = newAvCodec(&encoder);
    describe(*coder_, options, codec_);
    coder_->thread_count = 0;
    if (format_->oformat->flags & AVFMT_GLOBALHEADER) {
        coder_->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    }
    if (codec_.exact) {
        setExact(*coder_);
    } else {
        setQuality(*coder_, codec_, options.quality);
        convert_.emplace(options.size, options.depth,
                         YuvForm{coder_->pix_fmt, coder_->colorspace,
                                 coder_->color_range == AVCOL_RANGE_JPEG, AVCHROMA_LOC_LEFT});
    }
    check(avcodec_open2(coder_.get(), &encoder, nullptr));
}

void VideoWriter::openContainer(const WriteOptions& options) {
    AVStream* stream = avformat_new_stream(format_.get(), nullptr);
    if (stream == nullptr) {
        throw std::bad_alloc();
    }
    check(avcodec_parameters_from_context(stream->codecpar, coder_.get()));
    stream->time_base = coder_->time_base;
    stream->avg_frame_rate = fraction(options.rate);
    stream->sample_aspect_ratio = fraction(options.pixelAspect);
    audio_.emplace(options.audio, *format_);
    check(avio_open(&format_->pb, ("file:" + file_.path().string()).c_str(), AVIO_FLAG_WRITE));
    check(avformat_write_header(format_.get(), nullptr));
}

AvFrame VideoWriter::toPicture(const Frame& frame) {
    if (alpha_ != AlphaForm::Premultiplied) {
        return pack(frame);
    }
    Frame multiplied = frame;
    premultiply(multiplied);
    return pack(multiplied);
}

AvFrame VideoWriter::pack(const Frame& frame) {
    if (convert_) {
        return convert_->convert(frame);
    }
    AvFrame picture = newPicture(frame.width(), frame.height(), coder_->pix_fmt);
    packRgb(frame, *picture);
    return picture;
}

void VideoWriter::write(std::int64_t, const Frame& frame) {
    const AvFrame picture = toPicture(frame);
    picture->pts = written_++;
    // One of the encoders marks its frames by these.
    picture->color_primaries = coder_->color_primaries;
    picture->color_trc = coder_->color_trc;
    picture->colorspace = coder_->colorspace;
    picture->color_range = coder_->color_range;
    encode(picture.get());
    check(audio_->writeUntil(av_rescale_q(written_, coder_->time_base, {1, AV_TIME_BASE})));
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
        av_packet_rescale_ts(packet_.get(), coder_->time_base, format_->streams[0]->time_base);
        check(av_interleaved_write_frame(format_.get(), packet_.get()));
        check(format_->pb->error);
    }
}

void VideoWriter::finish() {
    encode(nullptr);
    check(audio_->writeUntil(INT64_MAX));
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
    const bool system = code > -4096;  // the libraries' own codes are four letters each
    const std::string detail = takeLibraryError();
    throw MediaError(system ? writeFailure(path_, AVUNERROR(code))
                            : "Cannot write " + path_.string() + ": " +
                                  (detail.empty() ? libraryReason(code) : detail) + ".");
}

}  // namespace ruvex::media
