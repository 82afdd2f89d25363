#include "media/sound/pcm_track.h"

extern "C" {
#include <libavutil/channel_layout.h>
#include <libavutil/common.h>
}

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

#include "media/av_functions.h"

namespace ruvex::media {
namespace {

/// Sound whose time stamps differ by less from where it would follow on goes on without a gap,
/// since containers round them, to milliseconds for example. In samples.
constexpr std::int64_t kLeastGap = PcmTrack::kRate / 20;
/// Of the resampler.
constexpr int kMostChannels = 64;
/// No sound is further away from the first picture. In samples, more than 60 years.
constexpr std::int64_t kFurthest = std::int64_t{1} << 46;

/// Whether no value of the format has more than 16 bits.
bool fitsWords(AVSampleFormat format) {
    const AVSampleFormat packed = av_get_packed_sample_fmt(format);
    return packed == AV_SAMPLE_FMT_S16 || packed == AV_SAMPLE_FMT_U8;
}

/// The upper `bits` bits of each value, the lowest byte first.
std::vector<std::uint8_t> upperBytes(const std::vector<std::int32_t>& values, int bits) {
    std::vector<std::uint8_t> bytes;
    bytes.reserve(values.size() * static_cast<std::size_t>(bits / 8));
    for (const std::int32_t value : values) {
        for (int shift = 32 - bits; shift < 32; shift += 8) {
            bytes.push_back(static_cast<std::uint8_t>(value >> shift));
        }
    }
    return bytes;
}

}  // namespace

std::unique_ptr<PcmTrack> PcmTrack::open(const AVStream& from, std::int64_t zero) {
    const AVCodec* codec = avcodec_find_decoder(from.codecpar->codec_id);
    const int channels = from.codecpar->ch_layout.nb_channels;
    if (codec == nullptr || channels < 1 || channels > kMostChannels) return nullptr;
    AvCodec decoder = newAvCodec(codec);
    if (avcodec_parameters_to_context(decoder.get(), from.codecpar) < 0) return nullptr;
    decoder->pkt_timebase = from.time_base;
    if (openCodec(*decoder, *codec) < 0) return nullptr;
    return std::unique_ptr<PcmTrack>(new PcmTrack(from, std::move(decoder), zero));
}

PcmTrack::PcmTrack(const AVStream& from, AvCodec decoder, std::int64_t zero)
    : from_(from),
      decoder_(std::move(decoder)),
      frame_(newAvFrame()),
      zero_(zero),
      channels_(from.codecpar->ch_layout.nb_channels),
      bits_(fitsWords(decoder_->sample_fmt) && from.codecpar->sample_rate == kRate ? 16 : 24) {}

bool PcmTrack::isCopied() const {
    const AVCodecParameters& parameters = *from_.codecpar;
    const bool words = parameters.codec_id == AV_CODEC_ID_PCM_S16LE ||
                       parameters.codec_id == AV_CODEC_ID_PCM_S24LE;
    return words && parameters.sample_rate == kRate;
}

void PcmTrack::describe(AVCodecParameters& parameters) const {
    parameters.codec_type = AVMEDIA_TYPE_AUDIO;
    parameters.codec_id = bits_ == 16 ? AV_CODEC_ID_PCM_S16LE : AV_CODEC_ID_PCM_S24LE;
    parameters.sample_rate = kRate;
    parameters.bits_per_coded_sample = bits_;
    parameters.block_align = sampleBytes();
    parameters.bit_rate = std::int64_t{kRate} * sampleBytes() * 8;
    if (av_channel_layout_copy(&parameters.ch_layout, &from_.codecpar->ch_layout) < 0) {
        throw std::bad_alloc();
    }
}

void PcmTrack::decode(const AVPacket* packet) {
    if (avcodec_send_packet(decoder_.get(), packet) < 0 && packet != nullptr) return;
    while (avcodec_receive_frame(decoder_.get(), frame_.get()) >= 0) {
        if (frame_->ch_layout.nb_channels == channels_ && frame_->sample_rate > 0) {
            convert(*frame_);
        }
    }
    if (packet == nullptr) resample(nullptr, 0);
}

void PcmTrack::convert(const AVFrame& sound) {
    prepare(sound);
    place(sound);
    sectionSamples_ += sound.nb_samples;
    resample(const_cast<const std::uint8_t**>(sound.extended_data), sound.nb_samples);
}

void PcmTrack::prepare(const AVFrame& sound) {
    const auto format = static_cast<AVSampleFormat>(sound.format);
    if (resampler_ && format == format_ && sound.sample_rate == rate_) return;
    resample(nullptr, 0);
    AVChannelLayout layout{};
    av_channel_layout_default(&layout, channels_);
    SwrContext* resampler = nullptr;
    // All channels stay in their places, so that both sides may have the same layout. Words of 32
    // bits hold all values of 16 and 24 bits.
    if (swr_alloc_set_opts2(&resampler, &layout, AV_SAMPLE_FMT_S32, kRate, &layout, format,
                            sound.sample_rate, 0, nullptr) < 0) {
        throw std::bad_alloc();
    }
    resampler_.reset(resampler);
    if (swr_init(resampler) < 0) throw std::bad_alloc();
    format_ = format;
    rate_ = sound.sample_rate;
    placed_ = false;
}

void PcmTrack::place(const AVFrame& sound) {
    const std::int64_t following = sectionStart_ + av_rescale(sectionSamples_, kRate, rate_);
    std::int64_t position = following;
    if (sound.pts != AV_NOPTS_VALUE) {
        const std::int64_t stamped = av_sat_sub64(av_rescale_q(sound.pts, from_.time_base, kUnit),
                                                  av_rescale_q(zero_, kMicroseconds, kUnit));
        position = std::clamp(stamped, -kFurthest, kFurthest);
    }
    if (placed_ && std::abs(position - following) < kLeastGap) return;
    resample(nullptr, 0);
    sectionStart_ = position;
    sectionSamples_ = 0;
    next_ = position;
    placed_ = true;
}

void PcmTrack::resample(const std::uint8_t** samples, int count) {
    if (!resampler_) return;
    const int most = swr_get_out_samples(resampler_.get(), count);
    if (most <= 0) return;
    std::vector<std::int32_t> values(static_cast<std::size_t>(most) *
                                     static_cast<std::size_t>(channels_));
    auto* out = reinterpret_cast<std::uint8_t*>(values.data());
    const int made = swr_convert(resampler_.get(), &out, most, samples, count);
    if (made <= 0) return;
    values.resize(static_cast<std::size_t>(made) * static_cast<std::size_t>(channels_));
    append(upperBytes(values, bits_), made);
}

void PcmTrack::append(const std::vector<std::uint8_t>& words, int count) {
    const std::int64_t position = next_;
    next_ += count;
    const std::int64_t late = std::max(decodedTo(), takenTo_) - position;
    const std::int64_t skipped = std::max<std::int64_t>(late, 0);
    if (skipped >= count) return;
    chunks_.push_back({position + skipped, {words.begin() + skipped * sampleBytes(), words.end()}});
}

std::int64_t PcmTrack::decodedTo() const {
    if (chunks_.empty()) return takenTo_;
    const Chunk& last = chunks_.back();
    return last.position + static_cast<std::int64_t>(last.bytes.size()) / sampleBytes();
}

AvPacket PcmTrack::take(int count) {
    AvPacket packet = newAvPacket();
    if (av_new_packet(packet.get(), count * sampleBytes()) < 0) throw std::bad_alloc();
    std::memset(packet->data, 0, static_cast<std::size_t>(packet->size));
    const std::int64_t end = takenTo_ + count;
    while (!chunks_.empty() && chunks_.front().position < end) {
        Chunk& chunk = chunks_.front();
        const auto held = static_cast<std::int64_t>(chunk.bytes.size()) / sampleBytes();
        const std::int64_t wanted = std::min(held, end - chunk.position);
        const auto bytes = wanted * sampleBytes();
        std::copy_n(chunk.bytes.begin(), bytes,
                    packet->data + (chunk.position - takenTo_) * sampleBytes());
        if (wanted < held) {
            chunk.bytes.erase(chunk.bytes.begin(), chunk.bytes.begin() + bytes);
            chunk.position += wanted;
            break;
        }
        chunks_.pop_front();
    }
    takenTo_ = end;
    return packet;
}

}  // namespace ruvex::media
