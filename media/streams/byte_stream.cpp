#include "media/streams/byte_stream.h"

#include <cerrno>
#include <cstring>
#include <unistd.h>

#include "files/whole_file.h"
#include "media/media_error.h"

namespace ruvex::media {

std::size_t InputStream::read(std::span<std::byte> bytes) {
    std::size_t filled = 0;
    while (filled < bytes.size()) {
        const ssize_t got = ::read(fd_, bytes.data() + filled, bytes.size() - filled);
        if (got == 0) {
            break;
        }
        if (got < 0 && errno != EINTR) {
            throw MediaError("Cannot read " + name_ + ": " + std::strerror(errno) + ".");
        }
        filled += got > 0 ? static_cast<std::size_t>(got) : 0;
    }
    return filled;
}

bool InputStream::readFrame(std::span<std::byte> bytes) {
    const std::size_t got = read(bytes);
    if (got != 0 && got != bytes.size()) {
        throw MediaError(name_ + " ends within a frame: only " + std::to_string(got) + " of its " +
                         std::to_string(bytes.size()) +
                         " bytes arrived. It is cut off, or its frames have another size.");
    }
    return got != 0;
}

void OutputStream::write(std::span<const std::byte> bytes) {
    const int failed = files::writeAll(fd_, bytes);
    if (failed == EPIPE) {
        throw MediaError("Cannot write " + name_ + ": the program that reads it has ended.");
    }
    if (failed != 0) {
        throw MediaError(files::writeFailure(name_, failed));
    }
}

}  // namespace ruvex::media
