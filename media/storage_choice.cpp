#include "media/storage_choice.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <algorithm>
#include <iterator>
#include <string_view>

#include "media/av_functions.h"
#include "media/video/video_codec.h"

namespace ruvex::media {
namespace {

/// The presets of the encoders of H.264 and H.265, from the fastest on.
constexpr std::string_view kEncoderSpeeds[] = {
    "ultrafast", "superfast", "veryfast", "faster", "fast", "medium", "slow", "slower", "veryslow"};

/// Frames a second that MXF has a code for.
constexpr Rational kMxfRates[] = {{24000, 1001}, {24, 1},       {25, 1},  {30000, 1001},
                                  {30, 1},       {48000, 1001}, {48, 1},  {50, 1},
                                  {60000, 1001}, {60, 1},       {100, 1}, {120, 1}};

bool hasEncoderSpeed(const VideoCodec* codec) {
    return codec != nullptr &&
           (codec->family == CodecFamily::H264 || codec->family == CodecFamily::H265);
}

std::string codecFault(const std::filesystem::path& path, const StorageChoice& choice,
                       const VideoCodec* codec) {
    if (!choice.codec || codec != nullptr) return "";
    if (fileKind(path) != FileKind::Video) return "A codec can be chosen for video files only.";
    return "'" + *choice.codec + "' is not a codec for this kind of file. Use one of " +
           codecsFor(path) + ".";
}

std::string qualityFault(FileKind kind, const StorageChoice& choice, const VideoCodec* codec) {
    const bool lossy = kind == FileKind::Jpeg || (codec != nullptr && codec->quality > 0);
    if (!choice.quality || lossy) return "";
    if (codec != nullptr && !codec->exact) {
        return std::string("A quality cannot be chosen for ") + codec->title +
               ": its bit rate is fixed. Choose another --codec.";
    }
    return "A quality cannot be chosen: the format is lossless.";
}

std::string speedFault(const StorageChoice& choice, const VideoCodec* codec) {
    if (!choice.encoderSpeed) return "";
    if (!hasEncoderSpeed(codec)) {
        return "An encoder speed can be chosen for H.264 and H.265 only.";
    }
    if (std::ranges::find(kEncoderSpeeds, *choice.encoderSpeed) != std::end(kEncoderSpeeds)) {
        return "";
    }
    std::string names;
    for (const std::string_view name : kEncoderSpeeds) {
        names.append(names.empty() ? "" : ", ").append(name);
    }
    return "'" + *choice.encoderSpeed + "' is not an encoder speed. Use one of " + names + ".";
}

std::string threadsFault(FileKind kind, const StorageChoice& choice) {
    if (!choice.encoderThreads) return "";
    if (kind != FileKind::Video) {
        return "A number of encoder threads can be chosen for video files only.";
    }
    if (*choice.encoderThreads >= 1 && *choice.encoderThreads <= kMostEncoderThreads) return "";
    return "The number of encoder threads has to be from 1 to " +
           std::to_string(kMostEncoderThreads) + ".";
}

std::string exrFault(FileKind kind, const StorageChoice& choice) {
    const bool chosen = choice.exrPixels || choice.exrCompression;
    return chosen && kind != FileKind::Exr
               ? "The pixel type and the compression of EXR can be chosen for .exr files only."
               : "";
}

std::string mxfRateFault(const Rational& rate) {
    if (std::ranges::find(kMxfRates, rate) != std::end(kMxfRates)) return "";
    std::string rates;
    for (const Rational& known : kMxfRates) {
        rates.append(rates.empty() ? "" : ", ").append(toText(known));
    }
    return "MXF cannot hold " + toText(rate) + " frames a second, only one of " + rates + ".";
}

/// Whether the codec has one chroma sample for two pixels of a line, at all sizes.
bool is422(const VideoCodec& codec) {
    return codec.format != AV_PIX_FMT_NONE && av_pix_fmt_desc_get(codec.format)->log2_chroma_w > 0;
}

std::string sizeFault(const VideoCodec& codec, FrameSize size) {
    if (size.width < codec.leastSize.width || size.height < codec.leastSize.height) {
        return std::string(codec.title) + " cannot hold frames of " + toText(size) +
               ": they have to be at least " + toText(codec.leastSize) + ". Choose another codec.";
    }
    if (is422(codec) && size.width % 2 != 0) {
        return std::string(codec.title) + " cannot hold frames of " + toText(size) +
               ": it stores 4:2:2, which needs an even width. Choose another codec.";
    }
    return "";
}

}  // namespace

StorageChoice storageOf(const WriteOptions& options) {
    return {.codec = options.codec,
            .quality = options.quality,
            .encoderSpeed = options.encoderSpeed,
            .encoderThreads = options.encoderThreads,
            .exrPixels = options.exrPixels,
            .exrCompression = options.exrCompression};
}

std::string storageFault(const std::filesystem::path& path, const StorageChoice& choice) {
    const FileKind kind = fileKind(path);
    const VideoCodec* codec =
        kind == FileKind::Video ? findVideoCodec(path, choice.codec) : nullptr;
    for (const std::string& fault :
         {codecFault(path, choice, codec), qualityFault(kind, choice, codec),
          speedFault(choice, codec), threadsFault(kind, choice), exrFault(kind, choice)}) {
        if (!fault.empty()) return fault;
    }
    return "";
}

std::string pictureFault(const std::filesystem::path& path, const WriteOptions& options) {
    if (fileKind(path) != FileKind::Video) return "";
    const std::string rate = isMxf(path) ? mxfRateFault(options.rate) : "";
    const VideoCodec* codec = findVideoCodec(path, options.codec);
    return rate.empty() && codec != nullptr ? sizeFault(*codec, options.size) : rate;
}

std::string qualityDoubt(const std::filesystem::path& path, const StorageChoice& choice) {
    /// Qualities up to this one look like rate factors, few of which are higher.
    constexpr int kHighestDoubted = 30;
    const bool doubted = choice.quality && *choice.quality <= kHighestDoubted;
    if (!doubted || fileKind(path) != FileKind::Video ||
        !hasEncoderSpeed(findVideoCodec(path, choice.codec))) {
        return "";
    }
    const std::string typed = std::to_string(*choice.quality);
    return typed +
           " is a low quality: the scale is 1 to 100, and 100 is the best. For what "
           "encoders call CRF " +
           typed + ", give " + std::to_string(qualityOfRateFactor(*choice.quality)) + ".";
}

bool limitsRate(const VideoCodec& codec, const StorageChoice& choice) {
    const bool variable = codec.family == CodecFamily::H264 || codec.family == CodecFamily::H265;
    return variable && !choice.quality && choice.encoderThreads.value_or(1) == 1;
}

std::string unlimitedRate(const std::filesystem::path& path, const StorageChoice& choice) {
    const VideoCodec* codec =
        fileKind(path) == FileKind::Video ? findVideoCodec(path, choice.codec) : nullptr;
    if (!hasEncoderSpeed(codec) || choice.quality || limitsRate(*codec, choice)) return "";
    return std::string(codec->title) +
           " is coded without a limit of its bit rate, which would give other bytes each time with "
           "several encoder threads. One thread keeps the limit.";
}

}  // namespace ruvex::media
