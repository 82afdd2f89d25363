#include "files/partial_file.h"

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <mutex>
#include <set>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "files/file_error.h"
#include "files/numbered_path.h"
#include "files/partial_name.h"
#include "files/whole_file.h"

namespace ruvex::files {
namespace {

namespace fs = std::filesystem;

/// A younger file may belong to a program that has not locked it yet.
constexpr std::chrono::seconds kAgeOfAbandoned{1};

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

/// Whether the program that made the file has ended without removing it.
bool isAbandoned(const fs::path& file) {
    std::error_code error;
    const auto age = fs::file_time_type::clock::now() - fs::last_write_time(file, error);
    if (error || age < kAgeOfAbandoned) {
        return false;
    }
    // On NFS, only a file that is open for writing can be locked.
    const Descriptor opened(file, O_RDWR | O_CLOEXEC);
    return opened.get() >= 0 && flock(opened.get(), LOCK_EX | LOCK_NB) == 0;
}

/// The temporary files of this process. Never destroyed: threads may use it until the end.
struct Unfinished {
    std::mutex lock;
    std::set<fs::path> files;
};

Unfinished& unfinished() {
    static auto* const all = new Unfinished;
    return *all;
}

/// The file that a link leads to, which does not have to exist; any other file itself. A loop of
/// links ends at one of them.
fs::path linkTarget(fs::path file) {
    constexpr int kMostLinks = 40;
    std::error_code error;
    for (int links = 0; links < kMostLinks && fs::is_symlink(file, error); ++links) {
        // An absolute target replaces the folder.
        file = file.parent_path() / fs::read_symlink(file, error);
    }
    return file;
}

/// Makes a temporary file of `final` and opens it for writing; `name` becomes its name. A
/// descriptor, or below 0 with errno. A process of this number may have died on another machine and
/// left files.
int makePartial(const fs::path& final, fs::path& name) {
    constexpr int kMostLeft = 1000;
    int made = -1;
    for (int tries = 0; made < 0 && tries < kMostLeft; ++tries) {
        name = partialName(final);
        made = open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (made < 0 && errno != EEXIST) break;
    }
    return made;
}

/// Throws FileError unless the file may be replaced: it is missing, or a file that may be written.
void checkReplaceable(const fs::path& file) {
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    if (fs::is_regular_file(status)) {
        // A rename asks for the right to write the folder only.
        const Descriptor opened(file, O_WRONLY | O_CLOEXEC);
        if (opened.get() < 0) throw FileError(writeFailure(file, errno));
    } else if (fs::exists(status)) {
        throw FileError("Cannot write " + file.string() +
                        ": something that is not a file has that name. Choose another name.");
    } else if (fs::is_symlink(file, error)) {
        throw FileError("Cannot write " + file.string() + ": its links lead in a circle.");
    }
}

}  // namespace

PartialFile::PartialFile(const fs::path& final) : final_(linkTarget(final)) {
    checkReplaceable(final_);
    lock_ = makePartial(final_, partial_);
    if (lock_ < 0) {
        const int code = errno;
        partial_.clear();
        throw FileError(writeFailure(final_, code));
    }
    {
        const std::scoped_lock hold(unfinished().lock);
        unfinished().files.insert(partial_);
    }
    // On a file system without locks, abandoned files have to be removed by hand.
    flock(lock_, LOCK_EX | LOCK_NB);
}

PartialFile::~PartialFile() {
    if (!partial_.empty()) {
        std::error_code ignored;
        fs::remove(partial_, ignored);
        const std::scoped_lock hold(unfinished().lock);
        unfinished().files.erase(partial_);
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

void PartialFile::keepMode() const {
    constexpr mode_t kPermissions = 0777;
    struct stat older {};
    // A file system without permissions refuses, and has none to keep.
    if (stat(final_.c_str(), &older) == 0) {
        static_cast<void>(fchmod(lock_, older.st_mode & kPermissions));
    }
}

void PartialFile::commit() {
    keepMode();
    // Some file systems report a failed write only when a descriptor of the file is closed.
    const int copy = dup(lock_);
    if (copy >= 0 && close(copy) != 0) throw FileError(writeFailure(final_, errno));
    std::error_code error;
    fs::rename(partial_, final_, error);
    if (error) {
        throw FileError(writeFailure(final_, error.value()));
    }
    const std::scoped_lock hold(unfinished().lock);
    unfinished().files.erase(partial_);
    partial_.clear();
}

void removeUnfinished() {
    const std::scoped_lock hold(unfinished().lock);
    for (const fs::path& file : unfinished().files) {
        std::error_code ignored;
        fs::remove(file, ignored);
    }
}

void removeAbandoned(const fs::path& final) {
    if (!final.has_filename()) return;
    const NumberedPath names(final);
    const fs::path one = linkTarget(names.plain());
    std::error_code error;
    fs::directory_iterator entry(folderOf(names.isPattern() ? final : one), error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        const bool ours = names.isPattern() ? isPartialOf(name, names) : isPartialOf(name, one);
        if (ours && isAbandoned(*entry)) {
            std::error_code ignored;
            fs::remove(*entry, ignored);
        }
    }
}

}  // namespace ruvex::files
