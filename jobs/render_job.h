// A render as a value: what is to be done, before any file is looked at.

#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "jobs/clip_ends.h"
#include "jobs/comparison.h"
#include "jobs/frame_range.h"
#include "jobs/job_error.h"
#include "jobs/result_alpha.h"
#include "looks/look.h"
#include "looks/parameter_change.h"
#include "media/frame_reader.h"
#include "media/storage_choice.h"

namespace ruvex::jobs {

/// More would only hold more frames in memory.
inline constexpr int kMostFramesAtOnce = 256;

/// A project frame beyond these limits shrinks lengths so far that a picture would hold millions of
/// creeping lines, each too close to the next to be seen.
inline constexpr double kLeastPixelAspect = 0.1;
inline constexpr double kMostPixelAspect = 10.0;
inline constexpr int kLongestProjectSide = looks::kLongestProjectSide;

/// Plain values. An optional without a value leaves the choice to the input or to the usual value
/// of the result's kind.
struct RenderJob {
    std::filesystem::path input{};                  ///< "-" is standard input.
    std::optional<media::FileKind> inputFormat{};   ///< Of standard input.
    std::optional<media::FrameSize> size{};         ///< Of raw frames.
    std::optional<media::Rational> rate{};          ///< Frames a second.
    std::optional<media::AlphaForm> alpha{};        ///< Of input and output.
    std::optional<media::FieldOrder> fieldOrder{};  ///< Of the input.
    std::filesystem::path output{};                 ///< "-" is standard output.
    std::optional<media::FileKind> outputFormat{};  ///< Of standard output.
    /// The result is scaled to this size after it has been rendered; the input's size without it.
    std::optional<media::FrameSize> outputSize{};
    std::optional<ResultAlpha> resultAlpha{};   ///< By input and output without it; see planRender.
    std::optional<std::string> codec{};         ///< Of video: "ffv1".
    std::optional<int> quality{};               ///< Of lossy kinds: 1 to 100, the best.
    std::optional<std::string> encoderSpeed{};  ///< Of H.264 and H.265: "veryfast".
    /// Of video, 1 to media::kMostEncoderThreads. With it the bytes of H.264 and H.265 are the same
    /// on every machine; see media::WriteOptions.
    std::optional<int> encoderThreads{};
    std::optional<media::ExrPixels> exrPixels{};
    std::optional<media::ExrCompression> exrCompression{};
    bool mute = false;                    ///< Write no sound.
    std::optional<FrameRange> frames{};   ///< All of the clip without it.
    std::optional<media::Depth> depth{};  ///< Of the chain.
    std::optional<int> workers{};         ///< Shares of a picture's rows.
    std::optional<media::FrameSize>
        projectSize{};         ///< Up to kLongestProjectSide; the input's size without it.
    double pixelAspect = 1.0;  ///< Width of a project pixel over its height, from kLeastPixelAspect
                               ///< to kMostPixelAspect.
    std::optional<Region> region{};  ///< The whole picture without it.
    bool fields = false;             ///< Render each field by itself.
    std::filesystem::path mask{};    ///< Empty: no mask.
    ClipEnds ends = ClipEnds::Blank;
    std::optional<Comparison> comparison{};  ///< Without it the result is the render alone.
    int framesAtOnce = 1;                    ///< 1 to kMostFramesAtOnce; no picture depends on it.
    bool resume = false;                     ///< Keep the files of a sequence that are complete.
    std::vector<looks::ParameterChange> parameters{};

    friend bool operator==(const RenderJob&, const RenderJob&) = default;
};

/// How the job's result is to be stored.
media::StorageChoice storageOf(const RenderJob& job);

/// How the job's input is to be read.
media::ReadOptions readingOf(const RenderJob& job);

/// Throws JobError unless the job gives a size exactly where its input holds raw frames, and one
/// that a frame can have.
void checkRawSize(const RenderJob& job);

/// Checks everything that needs no look at the input. Throws JobError for the first fault.
void checkJob(const RenderJob& job);

}  // namespace ruvex::jobs
