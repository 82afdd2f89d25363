// One audio stream of a clip, decoded and converted to PCM of 48 kHz.

#pragma once

extern "C" {
#include <libswresample/swresample.h>
}

#include <cstdint>
#include <deque>
#include <memory>
#include <vector>

#include "media/av_library.h"

namespace ruvex::media {

/// Samples of an audio stream by their positions: sample 0 belongs to a time of the clip, and there
/// are 48000 a second. A sample has a value for each channel of the stream. Sound of 48 kHz and 16
/// bits keeps its values, all other has 24 bits, of which sound of 48 kHz and 24 bits keeps its
/// own.
class PcmTrack {
public:
    static constexpr int kRate = 48000;
    static constexpr AVRational kUnit = {1, kRate};  ///< Of positions, in seconds.

    /// Null if there is no decoder for the stream, or if it has more than 64 channels. `zero` is
    /// the time of sample 0, in microseconds of the clip's time stamps. `from` has to outlive the
    /// track.
    static std::unique_ptr<PcmTrack> open(const AVStream& from, std::int64_t zero);

    /// Whether the stream holds such PCM already, so that its samples are only copied.
    bool isCopied() const;
    /// 16 or 24.
    int bits() const { return bits_; }
    /// Describes the PCM as the stream of an output.
    void describe(AVCodecParameters& parameters) const;

    /// Decodes a packet of the stream; null at its end. Samples of packets that are damaged are
    /// left silent.
    void decode(const AVPacket* packet);

    /// The position after the last sample that is decoded.
    std::int64_t decodedTo() const;
    /// The position of the next sample to take.
    std::int64_t takenTo() const { return takenTo_; }
    /// The next `count` samples as little-endian words, channels interleaved. Silence where nothing
    /// is decoded.
    AvPacket take(int count);

private:
    struct FreeResampler {
        void operator()(SwrContext* resampler) const { swr_free(&resampler); }
    };
    /// Successive samples.
    struct Chunk {
        std::int64_t position;
        std::vector<std::uint8_t> bytes;
    };

    PcmTrack(const AVStream& from, AvCodec decoder, std::int64_t zero);

    int sampleBytes() const { return channels_ * bits_ / 8; }
    void convert(const AVFrame& sound);
    /// Makes the resampler fit the format of `sound`.
    void prepare(const AVFrame& sound);
    /// Moves to the position of `sound` unless it follows the sound before it.
    void place(const AVFrame& sound);
    /// Converts `count` samples of the format of prepare(); null takes what the resampler holds.
    void resample(const std::uint8_t** samples, int count);
    void append(const std::vector<std::uint8_t>& words, int count);

    const AVStream& from_;
    AvCodec decoder_;
    AvFrame frame_;
    std::int64_t zero_;
    int channels_;
    int bits_;
    std::unique_ptr<SwrContext, FreeResampler> resampler_;
    AVSampleFormat format_ = AV_SAMPLE_FMT_NONE;  ///< That the resampler takes.
    int rate_ = 0;                                ///< That the resampler takes.
    std::int64_t sectionStart_ = 0;    ///< Position at which sound without gaps has begun.
    std::int64_t sectionSamples_ = 0;  ///< Samples since then, at the rate of the stream.
    bool placed_ = false;
    std::int64_t next_ = 0;  ///< Position of the next sample that is converted.
    std::deque<Chunk> chunks_;
    std::int64_t takenTo_ = 0;
};

}  // namespace ruvex::media
