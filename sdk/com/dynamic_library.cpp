#include "sdk/com/dynamic_library.h"

#include "sdk/com/module_entry.h"

#ifdef _WIN32

#include <string_view>

#include "sdk/com/utf8.h"

namespace {

/// The system's sentence for an error, with the error's number.
std::string systemErrorText(DWORD error) {
    constexpr DWORD kFlags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
    wchar_t buffer[1024];
    const DWORD length =
        FormatMessageW(kFlags, nullptr, error, 0, buffer, std::size(buffer), nullptr);
    std::wstring text(buffer, length);
    constexpr std::wstring_view kFilePlaceholder = L"%1";
    if (const auto place = text.find(kFilePlaceholder); place != text.npos) {
        text.replace(place, kFilePlaceholder.size(), L"the file");
    }
    // The sentence ends with a full stop and a new line.
    text.resize(text.find_last_not_of(L". \r\n") + 1);
    if (text.empty()) text = L"system error";
    return ruvex::toUtf8(text) + " (" + std::to_string(error) + ")";
}

}  // namespace

struct DSDynamicLibrary::State {
    HMODULE handle = nullptr;
};

std::unique_ptr<DSDynamicLibrary> DSDynamicLibrary::load(const std::filesystem::path& file,
                                                         std::string& problem) {
    // Libraries that it needs may lie beside it, and not where the program is.
    const auto absolute = std::filesystem::absolute(file);
    HMODULE handle = LoadLibraryExW(absolute.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (!handle) {
        problem = systemErrorText(GetLastError());
        return nullptr;
    }
    auto state = std::make_unique<State>();
    state->handle = handle;
    return std::unique_ptr<DSDynamicLibrary>(new DSDynamicLibrary(std::move(state)));
}

DSDynamicLibrary::~DSDynamicLibrary() {
    FreeLibrary(state_->handle);
}

void* DSDynamicLibrary::find(const char* name) const {
    return reinterpret_cast<void*>(GetProcAddress(state_->handle, name));
}

HINSTANCE DSDynamicLibrary::instance() const {
    return state_->handle;
}

std::filesystem::path DSDynamicLibrary::fileOf(HINSTANCE instance) {
    wchar_t buffer[32768];
    const DWORD length = GetModuleFileNameW(instance, buffer, std::size(buffer));
    if (length == 0 || length == std::size(buffer)) return {};
    return std::filesystem::path(buffer, buffer + length);
}

std::filesystem::path DSDynamicLibrary::fileOfCode(const void* address) {
    HMODULE handle = nullptr;
    constexpr DWORD kByAddress =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    if (!GetModuleHandleExW(kByAddress, static_cast<LPCWSTR>(address), &handle)) return {};
    return fileOf(handle);
}

std::string DSDynamicLibrary::fileName(const std::string& module) {
    return module + ".dll";
}

#else

#include <dlfcn.h>
#include <link.h>
#include <string_view>

struct DSDynamicLibrary::State {
    using EntryPoint = BOOL(HINSTANCE, DWORD, void*);

    void* handle = nullptr;
    EntryPoint* entryPoint = nullptr;
    std::string file;
    DSModuleInstance instance{};

    /// Calls the module's DllMain. True for a module without one.
    bool tell(DWORD reason) {
        return !entryPoint || entryPoint(&instance, reason, nullptr) != FALSE;
    }

    const unsigned char* bytes(const char* name) const {
        return static_cast<const unsigned char*>(dlsym(handle, name));
    }
};

std::unique_ptr<DSDynamicLibrary> DSDynamicLibrary::load(const std::filesystem::path& file,
                                                         std::string& problem) {
    auto state = std::make_unique<State>();
    // An absolute path: dlopen searches the system's folders for a name without a slash.
    state->file = std::filesystem::absolute(file);
    state->handle = dlopen(state->file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!state->handle) {
        problem = dlerror();
        return nullptr;
    }
    state->entryPoint = reinterpret_cast<State::EntryPoint*>(dlsym(state->handle, "DllMain"));
    state->instance = {state->bytes("ruvexResourcesBegin"), state->bytes("ruvexResourcesEnd"),
                       state->file.c_str()};
    if (!state->tell(DLL_PROCESS_ATTACH)) {
        problem = "the module's DllMain returned 0";
        dlclose(state->handle);
        return nullptr;
    }
    return std::unique_ptr<DSDynamicLibrary>(new DSDynamicLibrary(std::move(state)));
}

DSDynamicLibrary::~DSDynamicLibrary() {
    state_->tell(DLL_PROCESS_DETACH);
    dlclose(state_->handle);
}

void* DSDynamicLibrary::find(const char* name) const {
    return dlsym(state_->handle, name);
}

HINSTANCE DSDynamicLibrary::instance() const {
    return &state_->instance;
}

std::filesystem::path DSDynamicLibrary::fileOf(HINSTANCE instance) {
    return instance && instance->file ? instance->file : "";
}

std::filesystem::path DSDynamicLibrary::fileOfCode(const void* address) {
    Dl_info found{};
    void* entry = nullptr;
    if (!dladdr1(address, &found, &entry, RTLD_DL_LINKMAP)) return {};
    // In the loader's list the name of the running program is empty.
    const std::string_view name = static_cast<const link_map*>(entry)->l_name;
    std::error_code error;
    const auto file = std::filesystem::canonical(name.empty() ? "/proc/self/exe" : name, error);
    return error ? std::filesystem::path() : file;
}

std::string DSDynamicLibrary::fileName(const std::string& module) {
    return module + ".so";
}

#endif

DSDynamicLibrary::DSDynamicLibrary(std::unique_ptr<State> state) : state_(std::move(state)) {}
