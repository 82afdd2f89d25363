#include "media/video/interframe_settings.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "media/storage_choice.h"

namespace ruvex::media {
namespace {

/// Limits the bit rate, which snow and shash would otherwise raise to several times what players
/// and networks take. Small pictures need more bits for a pixel.
void limitRate(AVCodecContext& coder, const WriteOptions& options) {
    constexpr double kMostBitsPerPixel = 1.0;
    constexpr double kLeastLimit = 8e6;     // Bits a second.
    constexpr double kMostLimit = 2e9;      // That the libraries' fields can hold.
    constexpr double kBufferSeconds = 0.5;  // Over which the limit is kept.
    const double pixels = static_cast<double>(options.size.width) * options.size.height;
    const double wanted = kMostBitsPerPixel * pixels * options.rate.value();
    const double limit = std::clamp(wanted, kLeastLimit, kMostLimit);
    coder.rc_max_rate = static_cast<std::int64_t>(limit);
    coder.rc_buffer_size = static_cast<int>(limit * kBufferSeconds);
}

/// The encoder marks the first frames as top field first if only the frames say the order.
std::string fieldSetting(const AVCodecContext& coder) {
    if (coder.field_order == AV_FIELD_TT) return "tff=1";
    return coder.field_order == AV_FIELD_BB ? "bff=1" : "";
}

/// With a number of threads the encoder also keeps to methods that give the same bytes on every
/// processor.
void setH264(AVCodecContext& coder, const WriteOptions& options) {
    std::string settings = fieldSetting(coder);
    if (options.encoderThreads) {
        coder.thread_count = *options.encoderThreads;
        settings.append(settings.empty() ? "" : ":").append("cpu-independent=1");
    }
    if (!settings.empty()) av_opt_set(coder.priv_data, "x264-params", settings.c_str(), 0);
}

/// Where the number of threads is fixed, they share the rows of one frame: threads that each have a
/// frame of their own give other bytes now and then, even without a limit of the rate. The text
/// about the encoder in the first frame is left out, since it names the processor.
void setH265(AVCodecContext& coder, const WriteOptions& options) {
    // The encoder would print a banner to the terminal for each file.
    std::string settings = "log-level=none";
    if (options.encoderThreads) {
        coder.thread_count = 1;
        const int threads = *options.encoderThreads;
        settings += ":info=0:pools=" + (threads > 1 ? std::to_string(threads) : "none");
    }
    av_opt_set(coder.priv_data, "x265-params", settings.c_str(), 0);
}

}  // namespace

void setInterframe(AVCodecContext& coder, const VideoCodec& codec, const WriteOptions& options) {
    const int factor = rateFactor(options.quality.value_or(codec.quality));
    av_opt_set_int(coder.priv_data, "crf", factor, 0);
    if (limitsRate(codec, storageOf(options))) limitRate(coder, options);
    if (options.encoderSpeed) {
        av_opt_set(coder.priv_data, "preset", options.encoderSpeed->c_str(), 0);
    }
    if (codec.family == CodecFamily::H264) {
        setH264(coder, options);
    } else {
        setH265(coder, options);
    }
}

}  // namespace ruvex::media
