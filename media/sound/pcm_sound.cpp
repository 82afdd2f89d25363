#include "media/sound/pcm_sound.h"

extern "C" {
#include <libavutil/common.h>
}

#include <algorithm>
#include <new>
#include <utility>

#include "media/av_functions.h"
#include "media/video/stream_loss.h"

namespace ruvex::media {
namespace {

/// Sound of one time may lie so much later in a file than sound of another stream. In samples.
constexpr std::int64_t kInterleaved = 10 * PcmTrack::kRate;
/// Sound that ends so long before the first picture is not decoded. The last packets before it are,
/// since decoders need them. In microseconds.
constexpr std::int64_t kDecodedBefore = 1'000'000;
/// Samples in a packet of the output.
constexpr std::int64_t kPacketSamples = 2048;

bool isAudio(const AVStream& stream) {
    return stream.codecpar->codec_type == AVMEDIA_TYPE_AUDIO;
}

std::string conversion(const AVStream& from, const PcmTrack& track, const std::string& name) {
    return std::string("Audio coded as ") + avcodec_get_name(from.codecpar->codec_id) + " of " +
           std::to_string(from.codecpar->sample_rate) + " Hz is converted to PCM of " +
           std::to_string(track.bits()) + " bits and 48000 Hz in " + name + ".";
}

}  // namespace

PcmSound::PcmSound(const CopySource& source, const std::string& name, AVFormatContext& output)
    : source_(source), output_(output), packet_(newAvPacket()) {
    if (source.path.empty() || !source.sound) return;
    AVFormatContext* input = nullptr;
    const std::string url = "file:" + source.path.string();
    if (avformat_open_input(&input, url.c_str(), nullptr, nullptr) < 0) return;
    input_.reset(input);
    if (avformat_find_stream_info(input, nullptr) >= 0) addTracks(name);
}

void PcmSound::addTracks(const std::string& name) {
    for (unsigned i = 0; i < input_->nb_streams; ++i) {
        AVStream& from = *input_->streams[i];
        auto track = isAudio(from) ? PcmTrack::open(from, source_.zero) : nullptr;
        if (isAudio(from) && !track) remarks_.push_back(lossSentence(from, name));
        from.discard = track ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
        tracks_.push_back(track ? addTrack(from, std::move(track), name) : Output{});
    }
}

PcmSound::Output PcmSound::addTrack(const AVStream& from, std::unique_ptr<PcmTrack> track,
                                    const std::string& name) {
    AVStream* to = avformat_new_stream(&output_, nullptr);
    if (to == nullptr) throw std::bad_alloc();
    track->describe(*to->codecpar);
    to->time_base = PcmTrack::kUnit;
    if (!track->isCopied()) remarks_.push_back(conversion(from, *track, name));
    return {to->index, std::move(track)};
}

bool PcmSound::decodeNext() {
    av_packet_unref(packet_.get());
    if (av_read_frame(input_.get(), packet_.get()) < 0) {
        for (const Output& output : tracks_) {
            if (output.track) output.track->decode(nullptr);
        }
        return false;
    }
    const auto index = static_cast<std::size_t>(packet_->stream_index);
    if (index >= tracks_.size() || !tracks_[index].track) return true;
    const AVRational unit = input_->streams[index]->time_base;
    const std::int64_t end =
        av_rescale_q(av_sat_add64(packet_->pts, packet_->duration), unit, kMicroseconds);
    const bool early = packet_->pts != AV_NOPTS_VALUE && end < source_.zero - kDecodedBefore;
    if (!early) tracks_[index].track->decode(packet_.get());
    return true;
}

void PcmSound::decodeUntil(std::int64_t position) {
    const auto lags = [position](const Output& output) {
        return output.track && output.track->decodedTo() < position;
    };
    const auto isFarBeyond = [position](const Output& output) {
        return output.track && output.track->decodedTo() > position + kInterleaved;
    };
    while (!ended_ && std::ranges::any_of(tracks_, lags) &&
           std::ranges::none_of(tracks_, isFarBeyond)) {
        ended_ = !decodeNext();
    }
}

int PcmSound::write(Output& output, std::int64_t position) {
    while (output.track->takenTo() < position) {
        const std::int64_t start = output.track->takenTo();
        const std::int64_t count = std::min(position - start, kPacketSamples);
        const AvPacket packet = output.track->take(static_cast<int>(count));
        packet->stream_index = output.stream;
        packet->pts = packet->dts = start;
        packet->duration = count;
        av_packet_rescale_ts(packet.get(), PcmTrack::kUnit,
                             output_.streams[output.stream]->time_base);
        const int code = av_interleaved_write_frame(&output_, packet.get());
        if (code < 0) return code;
    }
    return 0;
}

int PcmSound::writeUntil(std::int64_t time) {
    const std::int64_t position =
        av_rescale_q_rnd(time, kMicroseconds, PcmTrack::kUnit, AV_ROUND_UP);
    decodeUntil(position);
    for (Output& output : tracks_) {
        const int code = output.track ? write(output, position) : 0;
        if (code < 0) return code;
    }
    return 0;
}

}  // namespace ruvex::media
