#include "tools/page_host/whole_file.h"

#include <system_error>
#include <windows.h>

#include "runtime/error.h"
#include "sdk/com/utf8.h"

namespace ruvex::page_host {
namespace {

/// Removes a file at the end, unless it has been renamed by then.
class UnfinishedFile {
public:
    explicit UnfinishedFile(const std::filesystem::path& file) : path_(file.wstring() + L".new") {}
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;
    ~UnfinishedFile() { DeleteFileW(path_.c_str()); }

    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

}  // namespace

void writeWholeFile(const std::filesystem::path& file,
                    const std::function<void(const std::filesystem::path& unfinished)>& write) {
    const UnfinishedFile unfinished(file);
    write(unfinished.path());
    if (!MoveFileExW(unfinished.path().c_str(), file.c_str(), MOVEFILE_REPLACE_EXISTING)) {
        const std::error_code error(static_cast<int>(GetLastError()), std::system_category());
        throw runtime::Error("cannot write " + toUtf8(file.wstring()) + ": " + error.message());
    }
}

}  // namespace ruvex::page_host
