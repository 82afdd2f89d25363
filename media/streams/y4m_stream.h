// The pictures of a Y4M stream as frames.

#pragma once

#include "media/pixels/yuv_convert.h"
#include "media/streams/stream_reader.h"
#include "media/streams/y4m_header.h"

namespace ruvex::media {

class Y4mStream : public StreamSource {
public:
    /// Reads the first line. Throws MediaError.
    Y4mStream(InputStream stream, std::optional<FieldOrder> fields);

    const ClipInfo& info() const override { return info_; }
    std::optional<Frame> next() override;

private:
    /// Up to the line end, which is taken too; nothing at the end of the stream.
    std::optional<std::string> readLine();

    InputStream stream_;
    Y4mHeader header_;
    std::vector<std::byte> bytes_;
    AvFrame picture_;
    std::optional<PictureToFrame> convert_;
    ClipInfo info_;
};

}  // namespace ruvex::media
