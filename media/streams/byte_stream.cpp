#include "media/streams/byte_stream.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include "files/whole_file.h"
#include "media/media_error.h"

namespace ruvex::media {
namespace {

/// Waits until reading (POLLIN) or writing (POLLOUT) does not block. Throws Stopped if a stop is
/// requested before.
void waitUntilReady(int descriptor, short direction, const std::stop_token& stop) {
    constexpr int kMillisecondsBetweenLooks = 50;
    pollfd waiting{descriptor, direction, 0};
    while (stop.stop_possible()) {
        const int ready = poll(&waiting, 1, kMillisecondsBetweenLooks);
        if (stop.stop_requested()) throw Stopped();
        if (ready > 0 || (ready < 0 && errno != EINTR)) return;
    }
}

bool isOfKind(int descriptor, mode_t kind) {
    struct stat status {};
    return fstat(descriptor, &status) == 0 && (status.st_mode & S_IFMT) == kind;
}

/// The same pipe once more, so that writing takes what there is room for and does not wait; -1 if
/// the system does not give it. The descriptor itself is shared with other programs, which a change
/// of its flags would affect.
int openWithoutBlocking(int descriptor) {
    const std::string path = "/proc/self/fd/" + std::to_string(descriptor);
    return open(path.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
}

}  // namespace

std::size_t InputStream::read(std::span<std::byte> bytes) {
    std::size_t filled = 0;
    while (filled < bytes.size()) {
        waitUntilReady(fd_, POLLIN, stop_);
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

OutputStream::OutputStream(int descriptor, std::string name, std::stop_token stop)
    : fd_(descriptor), name_(std::move(name)), stop_(std::move(stop)) {
    if (!stop_.stop_possible() || isOfKind(fd_, S_IFREG)) return;
    pipe_ = isOfKind(fd_, S_IFIFO) ? openWithoutBlocking(fd_) : -1;
    // Anything else that is ready takes this many bytes without blocking, as a pipe does.
    if (pipe_ < 0) mostAtOnce_ = PIPE_BUF;
}

OutputStream::~OutputStream() {
    if (pipe_ >= 0) close(pipe_);
}

void OutputStream::write(std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        bytes = bytes.subspan(writeSome(bytes.first(std::min(bytes.size(), mostAtOnce_))));
    }
}

std::size_t OutputStream::writeSome(std::span<const std::byte> bytes) {
    const int descriptor = pipe_ >= 0 ? pipe_ : fd_;
    waitUntilReady(descriptor, POLLOUT, stop_);
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written >= 0) return static_cast<std::size_t>(written);
    if (errno == EPIPE) {
        throw MediaError("Cannot write " + name_ + ": the program that reads it has ended.");
    }
    if (errno != EINTR && errno != EAGAIN) {
        throw MediaError(files::writeFailure(name_, errno));
    }
    return 0;
}

}  // namespace ruvex::media
