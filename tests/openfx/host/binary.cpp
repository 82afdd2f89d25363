#include "tests/openfx/host/binary.h"

#include <stdexcept>
#include <string>

#ifdef _WIN32
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace ruvex::ofxhost {
namespace {

#ifdef _WIN32
constexpr const char* kSystemFolder = "Win64";
#else
constexpr const char* kSystemFolder = "Linux-x86-64";
#endif

std::filesystem::path binaryOf(const std::filesystem::path& fileOrBundle) {
    if (!std::filesystem::is_directory(fileOrBundle)) return fileOrBundle;
    const auto folder = fileOrBundle / "Contents" / kSystemFolder;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".ofx") return entry.path();
    }
    throw std::runtime_error("no .ofx file in " + folder.string());
}

}  // namespace

#ifdef _WIN32

struct Binary::Library {
    explicit Library(const std::filesystem::path& file) : handle(LoadLibraryW(file.c_str())) {
        if (handle) return;
        throw std::runtime_error("cannot load " + file.string() + ": error " +
                                 std::to_string(GetLastError()));
    }
    ~Library() { FreeLibrary(handle); }

    void* find(const char* name) const {
        return reinterpret_cast<void*>(GetProcAddress(handle, name));
    }

    HMODULE handle;
};

#else

struct Binary::Library {
    explicit Library(const std::filesystem::path& file)
        : handle(dlopen(std::filesystem::absolute(file).c_str(), RTLD_NOW | RTLD_LOCAL)) {
        if (!handle) throw std::runtime_error(std::string("cannot load ") + dlerror());
    }
    ~Library() { dlclose(handle); }

    void* find(const char* name) const { return dlsym(handle, name); }

    void* handle;
};

#endif

Binary::Binary(const std::filesystem::path& fileOrBundle)
    : file_(binaryOf(fileOrBundle)), library_(std::make_unique<Library>(file_)) {
    count_ = reinterpret_cast<int (*)()>(library_->find("OfxGetNumberOfPlugins"));
    get_ = reinterpret_cast<OfxPlugin* (*)(int)>(library_->find("OfxGetPlugin"));
    if (!count_ || !get_) {
        throw std::runtime_error(file_.string() + " lacks the functions of OpenFX");
    }
}

Binary::~Binary() = default;

}  // namespace ruvex::ofxhost
