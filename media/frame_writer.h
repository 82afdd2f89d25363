// Frames into files.

#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "media/clip_info.h"
#include "media/file_kind.h"
#include "media/pixels/alpha.h"
#include "media/video/audio_copy.h"

namespace ruvex::media {

/// What a result is to be.
struct WriteOptions {
    FrameSize size;
    Depth depth = Depth::Bits8;  ///< The depth of the frames that will be handed over.
    Rational rate{25, 1};        ///< For video.
    Rational pixelAspect{1, 1};
    ColourTags colour{};  ///< For video; the matrix is chosen by height where unspecified.
    /// How colour is to be stored beside alpha; the usual form of the result's kind without it.
    std::optional<AlphaForm> alpha{};
    /// Of lossy kinds, from 1 to 100, the finest; each has its usual one. Refused for others.
    std::optional<int> quality{};
    std::optional<std::string> codec{};  ///< Of video, by its name in the table of codings.
    AudioSource audio{};                 ///< Sound to be copied into video.
    /// What goes to standard output: Y4m, RawRgba8 or RawS214; Y4M without it.
    std::optional<FileKind> format{};
    int bits = 8;                         ///< Of a component of deep Y4M; 16 where it says 8.
    Chroma chroma = Chroma::Unspecified;  ///< Of Y4M; 4:2:0 where unspecified.
    FieldOrder fields = FieldOrder::Progressive;  ///< For video and Y4M, to be marked so.
    ClipTags tags{};                              ///< For video.
};

/// Takes frames in the order of their numbers. Nothing appears under a final name before it is
/// complete; what is left unfinished goes away with the writer.
class FrameWriter {
public:
    virtual ~FrameWriter() = default;
    FrameWriter(const FrameWriter&) = delete;
    FrameWriter& operator=(const FrameWriter&) = delete;

    /// The frame has the size and depth of the options. Throws MediaError.
    virtual void write(std::int64_t number, const Frame& frame) = 0;

    /// Completes the result. Throws MediaError. Call it once, after the last frame.
    virtual void finish() = 0;

    /// What the person should know of the result: sentences; mostly none.
    virtual std::vector<std::string> remarks() const { return {}; }

protected:
    FrameWriter() = default;
};

/// Throws MediaError, without leaving anything behind, if the ending names no kind that can be
/// written. Video: .mp4, .m4v (H.264), .mov (ProRes 4444,
/// with alpha), .mkv (FFV1, exact, with alpha). Stills: .png, .tif,
/// .tiff, .exr, .dpx, .jpg, .jpeg, .rgba8, .s214, numbered by a pattern or a single one. A raw
/// file's depth is its ending's, whatever the frames'. Streams: .y4m, and "-" for standard output.
std::unique_ptr<FrameWriter> openWriter(const std::filesystem::path& path,
                                        const WriteOptions& options);

/// Whether `openWriter` knows the ending.
bool canWrite(const std::filesystem::path& path);

/// What the frames are coded as in a file of this ending, for messages: "H.264".
std::string codecName(const std::filesystem::path& path,
                      const std::optional<std::string>& codec = {});

/// The endings that can be written, for messages.
std::string writableEndings();

}  // namespace ruvex::media
