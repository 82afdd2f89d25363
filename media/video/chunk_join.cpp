#include "media/video/chunk_join.h"

#include "media/av_library.h"
#include "media/video/chunk_form.h"

namespace ruvex::media {

ChunkJoin::ChunkJoin(const std::filesystem::path& path, const WriteOptions& options)
    : stop_(options.stop),
      coded_(chunkForm(path, options).coded),
      writer_(path, options),
      packet_(newAvPacket()),
      picture_(newAvFrame()) {}

void ChunkJoin::add(const ChunkFile& chunk, const std::string& digest) {
    ChunkReader reader(chunk, !coded_);
    if (coded_) {
        addPackets(reader);
    } else {
        addPictures(reader);
    }
    if (reader.finish() != digest) {
        throw ChunkError(chunk, "Chunk " + chunk.frames + ", " + chunk.file.string() +
                                    ", is not what was rendered: it has been damaged or replaced. "
                                    "Render it again.");
    }
}

void ChunkJoin::addPackets(ChunkReader& chunk) {
    chunk.checkCoding(writer_.coder());
    while (chunk.next(*packet_)) {
        throwIfStopped();
        writer_.writePacket(*packet_);
    }
}

void ChunkJoin::addPictures(ChunkReader& chunk) {
    while (chunk.next(*picture_, writer_.coder())) {
        throwIfStopped();
        writer_.writePicture(*picture_);
    }
}

void ChunkJoin::throwIfStopped() const {
    if (stop_.stop_requested()) throw Stopped();
}

}  // namespace ruvex::media
