#include "media/partial_file.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <sys/file.h>
#include <unistd.h>

#include "media/media_error.h"
#include "media/numbered_path.h"

namespace ruvex::media {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPartial = ".partial-";

constexpr std::size_t kPartOfPipe = 65536;

/// A younger file may not be locked yet by who makes it.
constexpr std::chrono::seconds kAgeOfAbandoned{1};

/// Hidden, and unlike any other process's and any other file's of this one.
fs::path partialName(const fs::path& final) {
    static std::atomic<unsigned> count = 0;
    std::string name = ".";
    name += final.filename().string();
    name += kPartial + std::to_string(getpid()) + "-" + std::to_string(count++);
    return final.parent_path() / name;
}

class Descriptor {
public:
    Descriptor(const fs::path& path, int flags) : fd_(open(path.c_str(), flags, 0666)) {}
    ~Descriptor() {
        if (fd_ >= 0) {
            ::close(fd_);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int get() const { return fd_; }
    /// 0, or what a delayed write came to.
    int close() {
        const int result = ::close(fd_) == 0 ? 0 : errno;
        fd_ = -1;
        return result;
    }

private:
    int fd_;
};

/// The name that a temporary file was to get; empty for other files.
std::string finalNameOf(const std::string& name) {
    const auto end = name.rfind(kPartial);
    const bool partial = name.starts_with('.') && end != std::string::npos && end > 0;
    return partial ? name.substr(1, end - 1) : std::string();
}

/// Whether the program that made it has ended without taking it away.
bool isAbandoned(const fs::path& file) {
    std::error_code error;
    const auto age = fs::file_time_type::clock::now() - fs::last_write_time(file, error);
    if (error || age < kAgeOfAbandoned) {
        return false;
    }
    const Descriptor opened(file, O_RDONLY | O_CLOEXEC);
    return opened.get() >= 0 && flock(opened.get(), LOCK_EX | LOCK_NB) == 0;
}

}  // namespace

int writeAll(int fd, std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(fd, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) {
            return errno;
        }
        bytes = bytes.subspan(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
    }
    return 0;
}

std::string writeFailure(const fs::path& file, int code) {
    const std::string start = "Cannot write " + file.string() + ": ";
    if (code == ENOSPC || code == EDQUOT) {
        return start + "the disk is full. Free some space, or write to another disk.";
    }
    if (code == EFBIG) {
        return start + "the file would be larger than is allowed there.";
    }
    if (code == ENOENT || code == ENOTDIR) {
        return start + "the folder does not exist. Make it first.";
    }
    return start + std::strerror(code) + ".";
}

PartialFile::PartialFile(const fs::path& final) : final_(final), partial_(partialName(final)) {
    std::error_code ignored;
    // The rename would put a file in place of a folder or a device.
    if (fs::exists(final_, ignored) && !fs::is_regular_file(final_, ignored)) {
        partial_.clear();
        throw MediaError("Cannot write " + final_.string() +
                         ": something that is not a file has that name. Choose another name.");
    }
    lock_ = open(partial_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (lock_ < 0) {
        throw MediaError(writeFailure(final_, errno));
    }
    // Where a file system has no locks, what is left behind has to be removed by hand.
    flock(lock_, LOCK_EX | LOCK_NB);
}

PartialFile::~PartialFile() {
    std::error_code ignored;
    if (!partial_.empty()) {
        fs::remove(partial_, ignored);
    }
    if (lock_ >= 0) {
        close(lock_);
    }
}

void PartialFile::write(std::span<const std::byte> bytes) {
    Descriptor file(partial_, O_WRONLY | O_TRUNC | O_CLOEXEC);
    int failed = file.get() < 0 ? errno : writeAll(file.get(), bytes);
    failed = failed != 0 ? failed : file.close();
    if (failed != 0) {
        throw MediaError(writeFailure(final_, failed));
    }
}

void PartialFile::commit() {
    std::error_code error;
    fs::rename(partial_, final_, error);
    if (error) {
        throw MediaError(writeFailure(final_, error.value()));
    }
    partial_.clear();
}

void removeAbandoned(const fs::path& final) {
    const NumberedPath ours(final);
    const fs::path folder = final.has_parent_path() ? final.parent_path() : fs::path(".");
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        if (ours.fits(finalNameOf(entry->path().filename().string())) && isAbandoned(*entry)) {
            std::error_code ignored;
            fs::remove(*entry, ignored);
        }
    }
}

void writeWhole(const fs::path& file, std::span<const std::byte> bytes) {
    PartialFile partial(file);
    partial.write(bytes);
    partial.commit();
}

std::vector<std::byte> readWhole(const fs::path& file, std::size_t most) {
    std::error_code error;
    std::ifstream stream(file, std::ios::binary);
    if (!stream || fs::is_directory(file, error)) {
        throw MediaError("Cannot read " + file.string() + ": " +
                         (fs::exists(file, error) ? "it is not a readable file."
                                                  : "there is no such file. Check the name."));
    }
    // A pipe has no size that is known beforehand.
    const auto size = fs::is_regular_file(file, error) ? fs::file_size(file, error) : 0;
    std::vector<std::byte> bytes(size < most ? size + 1 : 0);
    std::size_t held = 0;
    while (stream && held <= most) {
        bytes.resize(std::max(bytes.size(), held + kPartOfPipe));
        stream.read(reinterpret_cast<char*>(bytes.data() + held),
                    static_cast<std::streamsize>(bytes.size() - held));
        held += static_cast<std::size_t>(stream.gcount());
    }
    if (held > most) {
        throw MediaError("Cannot read " + file.string() + ": it is larger than " +
                         std::to_string(most >> 20) + " MB, which is too much for its kind.");
    }
    if (stream.bad() || held < size) {
        throw MediaError("Cannot read " + file.string() + ": it ends before its size says.");
    }
    bytes.resize(held);
    return bytes;
}

}  // namespace ruvex::media
