#include "media/stills/raw_frame.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "files/read_file.h"
#include "files/whole_file.h"
#include "media/media_error.h"

namespace ruvex::media {

static_assert(std::endian::native == std::endian::little, "raw S2.14 words are little-endian");

namespace {

/// Reading stops at the frame's length or at this many bytes, whichever is more: a device file may
/// never end.
constexpr std::size_t kLeastLimit = std::size_t{1} << 20;

void checkBytes(const std::filesystem::path& file, std::uintmax_t found, const Frame& frame) {
    if (found != frame.bytes().size()) {
        throw MediaError(file.string() + " holds " + std::to_string(found) + " bytes, but a " +
                         toText(frame.size()) + " frame of " +
                         std::to_string(bytesPerPixel(frame.depth())) + " bytes a pixel takes " +
                         std::to_string(frame.bytes().size()) +
                         ". The file is cut off, or its frame has another size.");
    }
}

}  // namespace

Frame readRawFrame(const std::filesystem::path& file, FrameSize size, Depth depth) {
    Frame frame(size, depth);
    std::error_code error;
    const auto found = std::filesystem::file_size(file, error);
    if (!error) {
        checkBytes(file, found, frame);
    }
    // Another program may be writing the file, so the length is checked again.
    std::vector<std::byte> bytes =
        files::readWhole(file, std::max(frame.bytes().size(), kLeastLimit));
    checkBytes(file, bytes.size(), frame);
    frame.bytes() = std::move(bytes);
    return frame;
}

void writeRawFrame(const std::filesystem::path& file, const Frame& frame) {
    files::writeWhole(file, frame.bytes());
}

}  // namespace ruvex::media
