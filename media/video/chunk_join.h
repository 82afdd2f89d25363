// A video made of chunks.

#pragma once

#include "media/video/chunk_reader.h"
#include "media/video/video_writer.h"

namespace ruvex::media {

/// Writes the file that a VideoWriter with these options would have written of the chunks' frames.
/// What the chunks hold already coded is not coded again.
class ChunkJoin {
public:
    /// Throws as openWriter does.
    ChunkJoin(const std::filesystem::path& path, const WriteOptions& options);

    /// Appends the next chunk. Throws ChunkError if it is missing, damaged or not the one with this
    /// digest, MediaError if the result cannot be written, and Stopped if a stop is requested.
    /// Nothing else may then be called.
    void add(const ChunkFile& chunk, const std::string& digest);

    /// Completes the file.
    void finish() { writer_.finish(); }

    std::vector<std::string> remarks() const { return writer_.remarks(); }

private:
    void addPackets(ChunkReader& chunk);
    void addPictures(ChunkReader& chunk);
    void throwIfStopped() const;

    std::stop_token stop_;
    bool coded_;  ///< Whether the chunks hold packets of the file.
    VideoWriter writer_;
    AvPacket packet_;
    AvFrame picture_;
};

}  // namespace ruvex::media
