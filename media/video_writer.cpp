#include "media/video_writer.h"

extern "C" {
#include <libavutil/opt.h>
}

#include <algorithm>
#include <cerrno>

#include "media/library_log.h"
#include "media/media_error.h"
#include "media/rgb_lines.h"
#include "media/text.h"

namespace ruvex::media {
namespace {

/// Finer than the eye tells apart on moving pictures; snow and shash cost bits, but keep their
/// edge.
constexpr const char* kQuality = "14";
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

AVPixelFormat exactFormat(Depth depth) {
    return depth == Depth::Bits8 ? AV_PIX_FMT_BGRA : AV_PIX_FMT_RGBA64LE;
}

/// Colour differences at half the size need whole halves.
AVPixelFormat yuvFormat(FrameSize size) {
    const bool even = size.width % 2 == 0 && size.height % 2 == 0;
    return even ? AV_PIX_FMT_YUV420P : AV_PIX_FMT_YUV444P;
}

AVColorSpace yuvMatrix(const WriteOptions& options) {
    const int matrix = matrixInUse(options.colour.matrix, options.size.height);
    const bool chosen = matrix != options.colour.matrix;
    const bool pal = chosen && options.size.height == kPalLines && matrix == AVCOL_SPC_SMPTE170M;
    return pal ? AVCOL_SPC_BT470BG : static_cast<AVColorSpace>(matrix);
}

const AVCodec* coderFor(bool exact, const std::filesystem::path& path) {
    const AVCodec* codec =
        exact ? avcodec_find_encoder(AV_CODEC_ID_FFV1) : avcodec_find_encoder_by_name("libx264");
    if (codec == nullptr) {
        throw MediaError("Cannot write " + path.string() + ": the FFmpeg libraries here lack " +
                         (exact ? "FFV1" : "libx264") + ". Install a build with it.");
    }
    return codec;
}

void describe(AVCodecContext& coder, const WriteOptions& options, bool exact) {
    coder.width = options.size.width;
    coder.height = options.size.height;
    coder.framerate = fraction(options.rate);
    coder.time_base = av_inv_q(coder.framerate);
    coder.sample_aspect_ratio = fraction(options.pixelAspect);
    coder.color_primaries = static_cast<AVColorPrimaries>(options.colour.primaries);
    coder.color_trc = static_cast<AVColorTransferCharacteristic>(options.colour.transfer);
    coder.pix_fmt = exact ? exactFormat(options.depth) : yuvFormat(options.size);
    coder.chroma_sample_location = exact ? AVCHROMA_LOC_UNSPECIFIED : AVCHROMA_LOC_LEFT;
    coder.colorspace = exact ? AVCOL_SPC_RGB : yuvMatrix(options);
    coder.color_range = exact ? AVCOL_RANGE_JPEG : AVCOL_RANGE_MPEG;
}

/// Each frame by itself, so that any frame is quickly found again. Large ones in slices with check
/// sums, which threads share; the coder's slices lose pixels where a side is only a few long.
void setExact(AVCodecContext& coder) {
    const bool slices = std::min(coder.width, coder.height) >= kShortestSlicedSide;
    coder.level = slices ? 3 : 1;
    coder.gop_size = 1;
    av_opt_set_int(coder.priv_data, "slicecrc", slices ? 1 : 0, 0);
}

}  // namespace

bool VideoWriter::canWrite(const std::filesystem::path& path) {
    const std::string name = ending(path);
    return name == ".mp4" || name == ".m4v" || name == ".mov" || name == ".mkv";
}

std::string VideoWriter::codecName(const std::filesystem::path& path) {
    return ending(path) == ".mkv" ? "FFV1, without loss" : "H.264";
}

VideoWriter::VideoWriter(const std::filesystem::path& path, const WriteOptions& options)
    : path_(path),
      exact_(ending(path) == ".mkv"),
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

VideoWriter::~VideoWriter() {
    if (format_) {
        avio_closep(&format_->pb);
    }
}

void VideoWriter::openCoder(const WriteOptions& options) {
    const AVCodec* codec = coderFor(exact_, path_);
    coder_ = newAvCodec(codec);
    describe(*coder_, options, exact_);
    coder_->thread_count = 0;
    if (format_->oformat->flags & AVFMT_GLOBALHEADER) {
        coder_->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    }
    if (exact_) {
        setExact(*coder_);
    } else {
        av_opt_set(coder_->priv_data, "crf", kQuality, 0);
        convert_.emplace(options.size, options.depth, YuvForm{coder_->pix_fmt, coder_->colorspace});
    }
    check(avcodec_open2(coder_.get(), codec, nullptr));
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
    encode(picture.get());
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
