// Writing frames in sequence, to a pipe or a .y4m file.

#pragma once

#include "files/partial_file.h"
#include "media/frame_writer.h"
#include "media/pixels/yuv_convert.h"
#include "media/streams/byte_stream.h"
#include "media/streams/y4m_header.h"

namespace ruvex::media {

/// Writes Y4M without alpha, with the chroma subsampling, bits and range of the options, or raw
/// frames. A frame is written to the descriptor at once. A file gets its final name at the end.
class StreamWriter : public FrameWriter {
public:
    /// Writes to `descriptor`, which the caller owns, and ignores SIGPIPE for the rest of the
    /// process. `name` is for messages. Throws MediaError.
    StreamWriter(int descriptor, std::string name, const WriteOptions& options);
    /// Writes a Y4M file. Throws MediaError.
    StreamWriter(const std::filesystem::path& path, const WriteOptions& options);

    void write(std::int64_t number, const Frame& frame) override;
    void finish() override;
    HeldMemory held() const override;
    std::vector<std::string> remarks() const override;

private:
    void begin();
    void prepareY4m();
    /// The frame with the alpha form, and for raw frames the depth, of the stream.
    const Frame& stored(const Frame& frame);
    void writeY4m(const Frame& frame);

    WriteOptions options_;
    std::optional<files::PartialFile> file_;
    OutputStream stream_;
    Y4mHeader header_;
    std::optional<FrameToYuv> convert_;
    Frame changed_;                 ///< A frame of another alpha form or depth.
    std::vector<std::byte> bytes_;  ///< A picture as it is written, after its mark.
    AvFrame picture_;               ///< The planes in `bytes_`.
};

}  // namespace ruvex::media
