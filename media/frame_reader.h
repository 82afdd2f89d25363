// Frames of a clip, by number.

#pragma once

#include <filesystem>
#include <memory>
#include <optional>

#include "media/clip_info.h"
#include "media/file_kind.h"
#include "media/pixels/alpha.h"

namespace ruvex::media {

/// What the person says about an input that the input does not say itself.
struct ReadOptions {
    std::optional<FrameSize> size{};  ///< For raw frames, which need it; refused for others.
    std::optional<Depth> depth{};     ///< The depth to deliver; the input's own without it.
    /// How colour is stored beside alpha; the usual form of the input's kind without it. Frames
    /// are delivered straight.
    std::optional<AlphaForm> alpha{};
    /// What standard input holds: Y4m, RawRgba8 or RawS214. Without it raw frames of 8 bits if
    /// there is a size, else Y4M.
    std::optional<FileKind> format{};
    /// Whether each frame is two fields, and which comes first, where the input does not say or
    /// says it wrongly.
    std::optional<FieldOrder> fields{};
};

/// Reads a clip: a video, a still, numbered stills, raw frames. One thread at a time.
class FrameReader {
public:
    virtual ~FrameReader() = default;
    FrameReader(const FrameReader&) = delete;
    FrameReader& operator=(const FrameReader&) = delete;

    /// `depth` is the input's own, whatever is delivered.
    virtual const ClipInfo& info() const = 0;

    /// Fills `frame` with frame `number`, in any order: the picture does not depend on what was
    /// read before. False outside the clip; MediaError where a frame of the clip cannot be had.
    /// Memory that `frame` has already is used again.
    bool read(std::int64_t number, Frame& frame);

protected:
    explicit FrameReader(std::optional<Depth> depth) : depth_(depth) {}

private:
    /// Fills `frame` with one between info().first and info().last, at the input's own depth. False
    /// if a stream has ended before it.
    virtual bool readOwn(std::int64_t number, Frame& frame) = 0;

    std::optional<Depth> depth_;
};

/// Opens `path`, by the ending of its name; "-" is standard input, which can be opened but once.
/// Throws MediaError.
std::unique_ptr<FrameReader> openReader(const std::filesystem::path& path,
                                        const ReadOptions& options = {});

}  // namespace ruvex::media
