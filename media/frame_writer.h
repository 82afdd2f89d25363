// Writing frames to files.

#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <utility>
#include <vector>

#include "media/clip_info.h"
#include "media/file_kind.h"
#include "media/held_memory.h"
#include "media/pixels/alpha.h"
#include "media/stills/exr_form.h"
#include "media/video/stream_copy.h"

namespace ruvex::media {

/// More threads would take more memory than the pictures that they encode are worth.
inline constexpr int kMostEncoderThreads = 64;

/// The format of a result.
struct WriteOptions {
    FrameSize size;
    Depth depth = Depth::Bits8;  ///< Depth of the frames passed to `write`.
    Rational rate{25, 1};        ///< Frames a second; for video and Y4M.
    Rational pixelAspect{1, 1};  ///< Width of a pixel over its height.
    ColourTags colour{};         ///< For video and Y4M; see matrixInUse for an unspecified matrix.
    HdrMetadata hdr{};           ///< For video.
    /// Whether stored colours are premultiplied; default: premultiplied for EXR, else straight.
    std::optional<AlphaForm> alpha{};
    /// 1 to 100, the best; for lossy formats, each of which has its default. Refused for others.
    std::optional<int> quality{};
    std::optional<std::string> codec{};  ///< For video; a name that findVideoCodec knows.
    /// For H.264 and H.265: the encoder's preset, "ultrafast" to "veryslow"; default: "medium".
    std::optional<std::string> encoderSpeed{};
    /// For video: threads of the encoder, 1 to kMostEncoderThreads; default: by the machine. With a
    /// number the bytes of H.264 and H.265 depend on nothing but the frames and these options: not
    /// on the machine, and not on how threads take turns. See limitsRate.
    std::optional<int> encoderThreads{};
    std::optional<ExrPixels> exrPixels{};            ///< For EXR; default: Float.
    std::optional<ExrCompression> exrCompression{};  ///< For EXR; default: Zip16.
    CopySource copied{};  ///< For video: whose audio, subtitles and so on to copy.
    /// Format of standard output: Y4m, RawRgba8 or RawS214; default: Y4m.
    std::optional<FileKind> format{};
    /// Bits of a component of Y4M for S2.14 frames: 9, 10, 12 or 14; any other value gives 16.
    int bits = 8;
    Chroma chroma = Chroma::Unspecified;          ///< For Y4M; 4:2:0 where unspecified.
    FieldOrder fields = FieldOrder::Progressive;  ///< Field order marked in video and Y4M.
    ClipTags tags{};                              ///< For video.
    /// A request to stop makes opening and writing throw Stopped where they would wait.
    std::stop_token stop{};
    /// Called on the writing thread for each frame that has been written. An encoder holds frames
    /// back, so this may be calls of `write` later, or in `finish`.
    std::function<void()> written{};
};

/// Writes frames in the order of their numbers. A file appears under its final name only when it is
/// complete; the destructor removes an incomplete one.
class FrameWriter {
public:
    virtual ~FrameWriter() = default;
    FrameWriter(const FrameWriter&) = delete;
    FrameWriter& operator=(const FrameWriter&) = delete;

    /// `frame` must have the size and depth of the options. Throws MediaError, and what
    /// WriteOptions::written throws.
    virtual void write(std::int64_t number, const Frame& frame) = 0;

    /// Completes the result; to be called once, after the last frame. Throws MediaError.
    virtual void finish() = 0;

    /// What this holds for pictures, beside the memory of an encoder.
    virtual HeldMemory held() const { return {}; }

    /// Sentences for the user about what the result lacks; mostly none.
    virtual std::vector<std::string> remarks() const { return {}; }

protected:
    explicit FrameWriter(std::function<void()> written) : written_(std::move(written)) {}

    /// To be called for each frame that has been written.
    void reportWritten() const {
        if (written_) written_();
    }

private:
    std::function<void()> written_;
};

/// Opens a writer for the kind of file that the extension says:
/// - video: .mp4, .m4v (default codec H.264), .mov (ProRes 4444, with alpha), .mkv (FFV1, lossless,
///   with alpha), .mxf (DNxHR HQX);
/// - stills: .png, .tif, .tiff, .exr, .dpx, .jpg, .jpeg, and raw frames: .rgba8, .s214, which are
///   converted to the depth of their kind; a single file, or numbered files by a pattern;
/// - streams: .y4m, and "-" for standard output.
/// Throws MediaError, and leaves no file behind, if the file cannot be written like that.
std::unique_ptr<FrameWriter> openWriter(const std::filesystem::path& path,
                                        const WriteOptions& options);

/// Whether openWriter knows the extension.
bool canWrite(const std::filesystem::path& path);

/// The codec or file format of a file of this extension, for messages ("H.264", "PNG"). `path` and
/// `codec` must be valid for openWriter.
std::string codecName(const std::filesystem::path& path,
                      const std::optional<std::string>& codec = {});

/// Whether the result holds alpha. `path` and the options must be valid for openWriter.
bool storesAlpha(const std::filesystem::path& path, const WriteOptions& options);

/// The extensions that openWriter knows, for messages.
std::string writableEndings();

}  // namespace ruvex::media
