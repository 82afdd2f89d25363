// V_Ruvex.ofx of the bundle for Windows: opens the plug-in, V_Ruvex_openfx.dll beside it, and
// passes its functions on.
//
// Hosts open V_Ruvex.ofx in a way that searches the libraries it needs everywhere but in its own
// folder. So this file needs none of them, and opens the plug-in in the way that searches there.

#include <filesystem>
#include <windows.h>

#include "adapters/openfx/plug_in.h"

namespace {

namespace fs = std::filesystem;

/// The file that this code is in; empty if it cannot be found out.
fs::path thisFile() {
    static constexpr char here = 0;
    constexpr DWORD kByAddress =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    constexpr DWORD kLongestPath = 32768;
    HMODULE handle = nullptr;
    if (!GetModuleHandleExW(kByAddress, reinterpret_cast<LPCWSTR>(&here), &handle)) return {};
    std::wstring path(kLongestPath, L'\0');
    const DWORD length = GetModuleFileNameW(handle, path.data(), kLongestPath);
    if (length == 0 || length == kLongestPath) return {};
    path.resize(length);
    return path;
}

/// The plug-in, which stays loaded as long as the process; null if it cannot be opened.
HMODULE openPlugIn() {
    const fs::path file = thisFile().replace_filename(L"V_Ruvex_openfx.dll");
    return LoadLibraryExW(file.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
}

template <class Function>
Function* plugInFunction(const char* name) {
    try {
        static const HMODULE plugIn = openPlugIn();
        if (!plugIn) return nullptr;
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(plugIn, name)));
    } catch (...) {
        return nullptr;
    }
}

}  // namespace

RUVEX_OPENFX_EXPORT int OfxGetNumberOfPlugins() {
    const auto function = plugInFunction<int()>("OfxGetNumberOfPlugins");
    return function ? function() : 0;
}

RUVEX_OPENFX_EXPORT OfxPlugin* OfxGetPlugin(int index) {
    const auto function = plugInFunction<OfxPlugin*(int)>("OfxGetPlugin");
    return function ? function(index) : nullptr;
}

RUVEX_OPENFX_EXPORT OfxStatus OfxSetHost(const OfxHost* host) {
    const auto function = plugInFunction<OfxStatus(const OfxHost*)>("OfxSetHost");
    return function ? function(host) : kOfxStatFailed;
}
