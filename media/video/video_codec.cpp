#include "media/video/video_codec.h"

extern "C" {
#include <libavcodec/avcodec.h>
}

#include <algorithm>
#include <string_view>

#include "files/words.h"

namespace ruvex::media {
namespace {

constexpr int kBestQuality = 100;
/// Steps of quality in one step of the rate factor.
constexpr int kQualityPerFactor = 2;

/// The encoder of DNxHR takes no smaller pictures.
constexpr FrameSize kLeastDnxhr = {256, 120};

constexpr VideoCodec prores(const char* name, const char* title, int profile) {
    return {.name = name,
            .title = title,
            .family = CodecFamily::ProRes,
            .endings = ".mov .mkv .mxf ",
            .profile = profile,
            .format = AV_PIX_FMT_YUV422P10LE,
            .fieldLines = 2};
}

constexpr VideoCodec dnxhr(const char* name, const char* title, int profile, AVPixelFormat format) {
    return {.name = name,
            .title = title,
            .family = CodecFamily::Dnxhr,
            .endings = ".mxf .mov ",
            .profile = profile,
            .format = format,
            .leastSize = kLeastDnxhr};
}

/// The default qualities show no loss in moving pictures.
constexpr VideoCodec kVideoCodecs[] = {
    {.name = "ffv1",
     .title = "FFV1, without loss",
     .family = CodecFamily::Ffv1,
     .endings = ".mkv ",
     .exact = true,
     .alpha = true,
     .fieldLines = 1,
     .fullRange = true},
    {.name = "prores-4444",
     .title = "ProRes 4444",
     .family = CodecFamily::ProRes,
     .endings = ".mov .mkv .mxf ",
     .profile = FF_PROFILE_PRORES_4444,
     .format = AV_PIX_FMT_YUVA444P10LE,
     .alpha = true,
     .quality = 95,
     .fieldLines = 2},
    prores("prores-422-proxy", "ProRes 422 Proxy", FF_PROFILE_PRORES_PROXY),
    prores("prores-422-lt", "ProRes 422 LT", FF_PROFILE_PRORES_LT),
    prores("prores-422", "ProRes 422", FF_PROFILE_PRORES_STANDARD),
    prores("prores-422-hq", "ProRes 422 HQ", FF_PROFILE_PRORES_HQ),
    dnxhr("dnxhr-lb", "DNxHR LB", FF_PROFILE_DNXHR_LB, AV_PIX_FMT_YUV422P),
    dnxhr("dnxhr-sq", "DNxHR SQ", FF_PROFILE_DNXHR_SQ, AV_PIX_FMT_YUV422P),
    dnxhr("dnxhr-hq", "DNxHR HQ", FF_PROFILE_DNXHR_HQ, AV_PIX_FMT_YUV422P),
    dnxhr("dnxhr-hqx", "DNxHR HQX", FF_PROFILE_DNXHR_HQX, AV_PIX_FMT_YUV422P10LE),
    dnxhr("dnxhr-444", "DNxHR 444", FF_PROFILE_DNXHR_444, AV_PIX_FMT_YUV444P10LE),
    {.name = "h264",
     .title = "H.264",
     .family = CodecFamily::H264,
     .endings = ".mp4 .m4v .mov .mkv ",
     .quality = 64,
     .fieldLines = 4,
     .fullRange = true},
    {.name = "h265",
     .title = "H.265",
     .family = CodecFamily::H265,
     .endings = ".mp4 .m4v .mov .mkv ",
     .quality = 64,
     .fullRange = true},
};

struct Default {
    std::string_view ending;
    std::string_view codec;
};

constexpr Default kDefaults[] = {{".mp4", "h264"},
                                 {".m4v", "h264"},
                                 {".mov", "prores-4444"},
                                 {".mkv", "ffv1"},
                                 {".mxf", "dnxhr-hqx"}};

/// Empty for an extension that cannot be written.
std::string_view defaultCodec(const std::filesystem::path& path) {
    const std::string ending = files::lowerCase(path.extension().string());
    const auto* found = std::ranges::find(kDefaults, ending, &Default::ending);
    return found == std::end(kDefaults) ? "" : found->codec;
}

bool holds(const VideoCodec& codec, const std::filesystem::path& path) {
    const std::string ending = files::lowerCase(path.extension().string()) + " ";
    return ending.size() > 1 && std::string_view(codec.endings).find(ending) != std::string::npos;
}

std::string_view fullName(std::string_view name) {
    return name == "prores" ? "prores-4444" : name;
}

}  // namespace

const VideoCodec* findVideoCodec(const std::filesystem::path& path,
                                 const std::optional<std::string>& name) {
    const std::string_view wanted = name ? fullName(*name) : defaultCodec(path);
    const auto* found = std::ranges::find_if(kVideoCodecs, [&](const VideoCodec& codec) {
        return holds(codec, path) && wanted == codec.name;
    });
    return found == std::end(kVideoCodecs) ? nullptr : found;
}

bool isMxf(const std::filesystem::path& path) {
    return files::lowerCase(path.extension().string()) == ".mxf";
}

std::string codecsFor(const std::filesystem::path& path) {
    std::string names;
    for (const VideoCodec& codec : kVideoCodecs) {
        if (holds(codec, path)) {
            names.append(names.empty() ? "" : ", ").append(codec.name);
        }
    }
    return names;
}

int rateFactor(int quality) {
    return std::max((kBestQuality - quality + 1) / kQualityPerFactor, 1);
}

int qualityOfRateFactor(int factor) {
    return kBestQuality - factor * kQualityPerFactor;
}

}  // namespace ruvex::media
