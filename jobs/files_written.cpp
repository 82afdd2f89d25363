#include "jobs/files_written.h"

#include <string>
#include <unistd.h>

#include "files/numbered_path.h"
#include "jobs/job_error.h"
#include "media/file_kind.h"

namespace ruvex::jobs {
namespace {

namespace fs = std::filesystem;

bool isStream(const fs::path& path) {
    return media::fileKind(path) == media::FileKind::Stream;
}

}  // namespace

bool isSequence(const fs::path& path) {
    return media::isStill(media::fileKind(path)) && files::NumberedPath(path).isPattern();
}

void FilesWritten::add(const Identity& identity, const fs::path& file) {
    if (identity) files_.emplace(*identity, file);
}

void FilesWritten::add(const fs::path& file) {
    add(files::identityOf(file), file);
}

void FilesWritten::addOutput(const fs::path& output, FrameRange frames) {
    const files::NumberedPath names(output);
    if (isStream(output)) return add(files::identityOf(STDOUT_FILENO), "standard output");
    if (!isSequence(output)) return add(names.plain());
    for (const std::int64_t number : names.numbers()) {
        if (number >= frames.first && number <= frames.last) add(names.file(number));
    }
}

void FilesWritten::check(const Identity& identity, const fs::path& file, const char* what) const {
    const auto found = identity ? files_.find(*identity) : files_.end();
    if (found == files_.end()) return;
    throw JobError(JobField::Output, "Writing " + found->second.string() + " would replace the " +
                                         what + ", " + file.string() + ". Choose another name.");
}

void FilesWritten::checkKept(const fs::path& file, const char* what) const {
    check(files::identityOf(file), file, what);
}

void FilesWritten::checkInputKept(const fs::path& input, const fs::path& mask) const {
    checkClipKept(input);
    checkKept(files::NumberedPath(mask).plain(), "mask");
}

void FilesWritten::checkClipKept(const fs::path& input) const {
    constexpr const char* kInput = "input";
    const files::NumberedPath names(input);
    if (isStream(input)) return check(files::identityOf(STDIN_FILENO), "standard input", kInput);
    if (!isSequence(input)) return checkKept(names.plain(), kInput);
    if (files_.empty()) return;
    for (const std::int64_t number : names.numbers()) {
        checkKept(names.file(number), kInput);
    }
}

}  // namespace ruvex::jobs
