// Reading the frames of a clip by number.

#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

#include "media/clip_info.h"
#include "media/file_kind.h"
#include "media/held_memory.h"
#include "media/pixels/alpha.h"

namespace ruvex::media {

/// What the user says about an input that the input does not say itself.
struct ReadOptions {
    std::optional<FrameSize> size{};  ///< Required for raw frames, refused for other inputs.
    std::optional<Depth> depth{};     ///< Depth of the frames read; default: the input's own.
    /// Whether the input's colours are premultiplied; default: premultiplied for EXR, else
    /// straight. Frames read are always straight.
    std::optional<AlphaForm> alpha{};
    /// Format of standard input: Y4m, RawRgba8 or RawS214; default: RawRgba8 if `size` is given,
    /// else Y4m.
    std::optional<FileKind> format{};
    /// Field order, overriding what the input says.
    std::optional<FieldOrder> fields{};
    /// Frames a second for a video of variable frame rate; default: as chooseFrameRate finds.
    /// Ignored for other inputs.
    std::optional<Rational> rate{};
    /// A file with FrameReader::index of the same video, which then is not read whole when it is
    /// opened. Ignored if there is none, or it is damaged, of another clip or another version of
    /// this program's FFmpeg libraries. Ignored for other inputs.
    std::filesystem::path index{};
    /// A request to stop makes opening and reading throw Stopped where they would wait.
    std::stop_token stop{};
};

/// Whether a frame may be asked for again: then it may be kept, which costs a copy and the memory.
enum class Use { Again, Once };

/// Reads a clip: a video, a still, numbered stills, raw frames or a stream. Not thread-safe.
class FrameReader {
public:
    virtual ~FrameReader() = default;
    FrameReader(const FrameReader&) = delete;
    FrameReader& operator=(const FrameReader&) = delete;

    /// Its `depth` is the input's own, which may differ from that of the frames read.
    virtual const ClipInfo& info() const = 0;

    /// Stores frame `number` in `frame`, whose memory is reused where it fits. Frames may be read
    /// in any order; a picture does not depend on what was read before. False if `number` is
    /// outside the clip. Throws MediaError if a frame of the clip cannot be read, as of a stream a
    /// frame from before one that was read once.
    bool read(std::int64_t number, Frame& frame, Use use = Use::Again);

    /// What was found out about the input by reading all of it, to be stored in a file for
    /// ReadOptions::index. Empty for inputs that are not read whole.
    virtual std::vector<std::byte> index() const { return {}; }

    /// What this holds for pictures, beside the memory of a decoder.
    HeldMemory held() const;

protected:
    explicit FrameReader(std::optional<Depth> depth) : depth_(depth) {}

    /// Of the frames that `read` gives.
    Depth depthOfFrames() const { return depth_.value_or(info().depth); }

private:
    /// Stores frame `number`, from info().first to info().last, at the input's own depth or at
    /// depthOfFrames(). False if a stream has ended before it.
    virtual bool readOwn(std::int64_t number, Frame& frame, Use use) = 0;
    /// What the kind of reader holds.
    virtual void addHeld(HeldMemory& held) const { static_cast<void>(held); }

    std::optional<Depth> depth_;
    Frame own_;  ///< A frame at the input's own depth, where frames are of another one.
};

/// Opens `path` as the kind of file that its extension says; see fileKind. "-" is standard input,
/// which can be opened once only. Throws MediaError.
std::unique_ptr<FrameReader> openReader(const std::filesystem::path& path,
                                        const ReadOptions& options = {});

}  // namespace ruvex::media
