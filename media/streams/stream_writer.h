// Frames one after the other, for a pipe or a .y4m file.

#pragma once

#include "files/partial_file.h"
#include "media/frame_writer.h"
#include "media/pixels/yuv_convert.h"
#include "media/streams/byte_stream.h"
#include "media/streams/y4m_header.h"

namespace ruvex::media {

/// Y4M without alpha, with the colour differences, bits and range that the options name (4:2:0
/// where they name none), or raw frames. To a pipe each frame goes out at once; a file gets its
/// name at the end.
class StreamWriter : public FrameWriter {
public:
    /// To `descriptor`, which stays the caller's. Throws MediaError.
    StreamWriter(int descriptor, std::string name, const WriteOptions& options);
    /// To a file of Y4M.
    StreamWriter(const std::filesystem::path& path, const WriteOptions& options);

    void write(std::int64_t number, const Frame& frame) override;
    void finish() override;

private:
    void begin();
    void writeStored(const Frame& frame);
    void writeY4m(const Frame& frame);

    WriteOptions options_;
    std::optional<files::PartialFile> file_;
    OutputStream stream_;
    Y4mHeader header_;
    std::optional<FrameToYuv> convert_;
    std::vector<std::byte> bytes_;
};

}  // namespace ruvex::media
