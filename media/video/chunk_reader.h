// Reading the chunks of a video, with a digest of what is read.

#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "media/digest.h"
#include "media/media_error.h"
#include "media/video/video_decoder.h"
#include "media/video/video_file.h"

namespace ruvex::media {

/// A file with some of a video's frames.
struct ChunkFile {
    std::filesystem::path file;
    std::string frames;      ///< Their place in the clip, for messages and the digest: "40-79".
    std::int64_t count = 0;  ///< How many.
};

/// A chunk that has to be rendered again: it is missing, damaged, or not the one that was rendered.
class ChunkError : public MediaError {
public:
    /// The message names the chunk.
    ChunkError(const ChunkFile& chunk, const std::string& message)
        : MediaError(message), file_(chunk.file) {}

    /// Of the chunk.
    const std::filesystem::path& file() const { return file_; }

private:
    std::filesystem::path file_;
};

/// The file's packets or pictures, once from its beginning to its end. All functions throw
/// ChunkError if the file is missing or damaged.
class ChunkReader {
public:
    /// Opens the file, to read packets, or pictures if it `decodes`.
    ChunkReader(ChunkFile chunk, bool decodes);
    ChunkReader(const ChunkReader&) = delete;
    ChunkReader& operator=(const ChunkReader&) = delete;

    /// Checks that the packets are of the codec that `coder` writes, with the same headers.
    void checkCoding(const AVCodecContext& coder) const;

    /// Reads the next packet. False at the end.
    bool next(AVPacket& packet);

    /// Decodes the next picture, which has to have the size and format of those that `coder` takes.
    /// False at the end.
    bool next(AVFrame& picture, const AVCodecContext& coder);

    /// The digest of the chunk's place and of all packets, to be called at the end. Throws unless
    /// there were as many packets, and where they are decoded pictures, as the chunk has frames.
    std::string finish();

private:
    template <class Read>
    auto reading(const Read& read) const;
    void open(bool decodes);
    void take(const AVPacket& packet);
    void checkCount(std::int64_t frames) const;
    [[noreturn]] void refuse(const std::string& what) const;

    ChunkFile chunk_;
    Digest digest_;
    std::int64_t packets_ = 0;
    std::int64_t pictures_ = 0;            ///< That were decoded.
    std::optional<VideoFile> file_;        ///< Where packets are read.
    std::optional<VideoDecoder> decoder_;  ///< Where pictures are read.
};

/// Reads the whole file, and gives ChunkReader::finish.
std::string digestOfChunk(const ChunkFile& chunk);

}  // namespace ruvex::media
