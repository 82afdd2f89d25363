// Reading the pictures of a Y4M stream as frames.

#pragma once

#include "media/pixels/yuv_convert.h"
#include "media/streams/stream_reader.h"
#include "media/streams/y4m_header.h"

namespace ruvex::media {

class Y4mStream : public StreamSource {
public:
    /// Reads the header. `fields` overrides its field order. Throws MediaError.
    Y4mStream(InputStream stream, std::optional<FieldOrder> fields);

    const ClipInfo& info() const override { return info_; }
    bool next(Frame& frame) override;
    void addHeld(HeldMemory& held) const override { held.add(bytes_.capacity()); }

private:
    /// The next line, without its line end, which is skipped; empty at the end of the stream.
    /// Throws MediaError if it is too long or the stream ends within it.
    std::optional<std::string> readLine();

    InputStream stream_;
    Y4mHeader header_;
    std::size_t frameBytes_ = 0;
    /// A picture as it is stored, with planes one after the other, and what the libraries' vector
    /// code may read behind it.
    std::vector<std::byte> bytes_;
    AvFrame picture_;  ///< The planes in `bytes_`.
    std::optional<PictureToFrame> convert_;
    ClipInfo info_;
};

}  // namespace ruvex::media
