#include "media/raw_frame.h"

#include <bit>

#include "media/media_error.h"
#include "media/partial_file.h"

namespace ruvex::media {

static_assert(std::endian::native == std::endian::little, "raw words are stored as they lie");

Frame readRawFrame(const std::filesystem::path& file, FrameSize size, Depth depth) {
    Frame frame(size, depth);
    std::error_code error;
    const auto found = std::filesystem::file_size(file, error);
    if (!error && found != frame.bytes().size()) {
        throw MediaError(file.string() + " holds " + std::to_string(found) + " bytes, but a " +
                         toText(size) + " frame of " + std::to_string(bytesPerPixel(depth)) +
                         " bytes a pixel takes " + std::to_string(frame.bytes().size()) +
                         ". The file is cut off, or the size is another one.");
    }
    frame.bytes() = readWhole(file);
    return frame;
}

void writeRawFrame(const std::filesystem::path& file, const Frame& frame) {
    writeWhole(file, frame.bytes());
}

}  // namespace ruvex::media
