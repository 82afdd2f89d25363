#include "files/partial_file.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "files/file_error.h"
#include "files/numbered_path.h"
#include "files/whole_file.h"

namespace ruvex::files {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPartial = ".partial-";

/// A younger file may belong to a program that has not locked it yet.
constexpr std::chrono::seconds kAgeOfAbandoned{1};

/// A hidden name that no other process, and no other file of this one, uses.
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
    /// 0, or the errno of a delayed write that failed.
    int close() {
        const int result = ::close(fd_) == 0 ? 0 : errno;
        fd_ = -1;
        return result;
    }

private:
    int fd_;
};

/// The final name of a temporary file; empty if the name is not a temporary one.
std::string finalNameOf(const std::string& name) {
    const auto end = name.rfind(kPartial);
    const bool partial = name.starts_with('.') && end != std::string::npos && end > 0;
    return partial ? name.substr(1, end - 1) : std::string();
}

/// Whether the program that made the file has ended without removing it.
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

PartialFile::PartialFile(const fs::path& final) : final_(final), partial_(partialName(final)) {
    std::error_code ignored;
    // A rename would replace a folder or a device by a file.
    if (fs::exists(final_, ignored) && !fs::is_regular_file(final_, ignored)) {
        partial_.clear();
        throw FileError("Cannot write " + final_.string() +
                        ": something that is not a file has that name. Choose another name.");
    }
    lock_ = open(partial_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (lock_ < 0) {
        throw FileError(writeFailure(final_, errno));
    }
    // On a file system without locks, abandoned files have to be removed by hand.
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
        throw FileError(writeFailure(final_, failed));
    }
}

void PartialFile::commit() {
    // Some file systems report a failed write only when a descriptor of the file is closed.
    const int copy = dup(lock_);
    if (copy >= 0 && close(copy) != 0) throw FileError(writeFailure(final_, errno));
    std::error_code error;
    fs::rename(partial_, final_, error);
    if (error) {
        throw FileError(writeFailure(final_, error.value()));
    }
    partial_.clear();
}

void removeAbandoned(const fs::path& final) {
    if (!final.has_filename()) return;
    const NumberedPath ours(final);
    std::error_code error;
    fs::directory_iterator entry(folderOf(final), error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const std::string name = finalNameOf(entry->path().filename().string());
        if (!name.empty() && ours.fits(name) && isAbandoned(*entry)) {
            std::error_code ignored;
            fs::remove(*entry, ignored);
        }
    }
}

}  // namespace ruvex::files
