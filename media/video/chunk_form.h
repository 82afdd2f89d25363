// How parts of a video are stored until they are joined.

#pragma once

#include <filesystem>
#include <memory>

#include "media/frame_writer.h"
#include "media/video/video_codec.h"

namespace ruvex::media {

/// Of codecs that code each frame by itself, a chunk holds the packets of the joined file. Of H.264
/// and H.265 it holds the pictures that the encoder takes, without loss.
struct ChunkForm {
    VideoCodec codec;
    const char* extension;  ///< ".mkv", or where that does not hold the codec ".mov".
    bool coded;             ///< Whether packets are those of the joined file.
};

/// The form of chunks of the video file `output`, which must be valid for openWriter.
ChunkForm chunkForm(const std::filesystem::path& output, const WriteOptions& options);

/// Opens a writer for a chunk of `output`; the options are those of the whole video. The file
/// `chunk` has the extension of the form. Pictures alone are stored. Throws MediaError.
std::unique_ptr<FrameWriter> openChunkWriter(const std::filesystem::path& chunk,
                                             const std::filesystem::path& output,
                                             WriteOptions options);

}  // namespace ruvex::media
