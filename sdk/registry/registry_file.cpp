// A registry in a file, for systems without a registry.

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <unistd.h>
#include <utility>

#include "sdk/registry/registry_contents.h"

namespace {

namespace fs = std::filesystem;

/// Owns a file descriptor, or none.
class Descriptor {
public:
    Descriptor(const fs::path& file, int flags)
        : number_(open(file.c_str(), flags | O_CLOEXEC, 0666)) {}
    ~Descriptor() {
        if (number_ >= 0) close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    explicit operator bool() const { return number_ >= 0; }
    int number() const { return number_; }

private:
    int number_;
};

bool readAll(const Descriptor& file, std::string& text) {
    char part[4096];
    ssize_t count = 0;
    while ((count = read(file.number(), part, sizeof part)) != 0) {
        if (count > 0) {
            text.append(part, static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

bool writeAll(const Descriptor& file, std::string_view text) {
    while (!text.empty()) {
        const ssize_t count = write(file.number(), text.data(), text.size());
        if (count < 0 && errno != EINTR) return false;
        if (count > 0) text.remove_prefix(static_cast<std::size_t>(count));
    }
    return fsync(file.number()) == 0;
}

/// Writes the file atomically: it is replaced as a whole, or unchanged. False on failure.
bool replace(const fs::path& file, std::string_view text) {
    fs::path partial = file;
    partial += '.';
    partial += std::to_string(getpid());
    const Descriptor out(partial, O_WRONLY | O_CREAT | O_TRUNC);
    if (!out) return false;
    std::error_code error;
    if (writeAll(out, text)) {
        fs::rename(partial, file, error);
        if (!error) return true;
    }
    fs::remove(partial, error);
    return false;
}

class FileRegistry final : public DSRegistryStore {
public:
    explicit FileRegistry(fs::path file) : file_(std::move(file)) {}

    HRESULT addClass(const DSRegisteredClass& entry) override {
        return edit([&](DSRegistryContents& all) { return ruvex::addClass(all, entry); });
    }
    HRESULT removeClass(const GUID& classId) override {
        return edit([&](DSRegistryContents& all) { return ruvex::removeClass(all, classId); });
    }
    HRESULT addFamilies(std::span<const DSRegisteredFamily> entries) override {
        return edit([&](DSRegistryContents& all) { return ruvex::addFamilies(all, entries); });
    }
    HRESULT removeFamilies(const GUID& classId, std::span<const GUID> families) override {
        return edit(
            [&](DSRegistryContents& all) { return ruvex::removeFamilies(all, classId, families); });
    }
    HRESULT read(DSRegistryContents& contents) override;

private:
    /// Makes one change while the folder is locked against other processes. The file itself can't
    /// be locked, since every change replaces it.
    template <class Edit>
    HRESULT edit(Edit change);
    HRESULT write(const DSRegistryContents& contents);

    fs::path file_;
};

HRESULT FileRegistry::read(DSRegistryContents& contents) {
    const Descriptor in(file_, O_RDONLY);
    if (!in && errno != ENOENT && errno != ENOTDIR) return REGDB_E_READREGDB;
    std::string text;
    if (in && !readAll(in, text)) return REGDB_E_READREGDB;
    auto parsed = in ? ruvex::parseRegistry(text) : DSRegistryContents();
    if (!parsed) return REGDB_E_INVALIDVALUE;
    contents = std::move(*parsed);
    return S_OK;
}

template <class Edit>
HRESULT FileRegistry::edit(Edit change) {
    const fs::path folder = fs::absolute(file_).parent_path();
    std::error_code error;
    fs::create_directories(folder, error);
    const Descriptor held(folder, O_RDONLY | O_DIRECTORY);
    if (!held || flock(held.number(), LOCK_EX) != 0) return REGDB_E_WRITEREGDB;
    DSRegistryContents contents;
    HRESULT status = read(contents);
    if (SUCCEEDED(status)) status = change(contents);
    return FAILED(status) ? status : write(contents);
}

HRESULT FileRegistry::write(const DSRegistryContents& contents) {
    std::error_code error;
    if (contents.empty()) {
        fs::remove(file_, error);
        return error ? REGDB_E_WRITEREGDB : S_OK;
    }
    return replace(file_, ruvex::registryText(contents)) ? S_OK : REGDB_E_WRITEREGDB;
}

/// The user's data folder (XDG_DATA_HOME, or .local/share in the home folder); without a home
/// folder the current folder.
fs::path dataFolder() {
    const auto folder = [](const char* name) {
        const char* value = std::getenv(name);
        return fs::path(value ? value : "");
    };
    fs::path data = folder("XDG_DATA_HOME");
    if (data.is_absolute()) return data;
    const fs::path home = folder("HOME");
    return home.empty() ? fs::path() : home / ".local" / "share";
}

}  // namespace

std::shared_ptr<DSRegistryStore> DSFileRegistry(fs::path file) {
    return std::make_shared<FileRegistry>(std::move(file));
}

std::shared_ptr<DSRegistryStore> DSSystemRegistry() {
    const char* named = std::getenv("RUVEX_REGISTRY");
    return DSFileRegistry(named && *named ? fs::path(named) : dataFolder() / "ruvex" / "registry");
}
