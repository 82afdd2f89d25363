// The manual of an installation below a prefix: the module is in lib/ruvex, the manual in
// share/doc/ruvex.

#include <filesystem>

#include "host/base/module_use.h"
#include "pages/manual.h"
#include "sdk/com/guarded.h"
#include "sdk/window/window.h"

namespace ruvex {

void OpenManual() {
    if (!moduleInstance || !moduleInstance->file) return;
    // Without memory, and for a folder whose name is not UTF-8, nothing is opened.
    guarded([] {
        const std::filesystem::path module = moduleInstance->file;
        const auto prefix = module.parent_path().parent_path().parent_path();
        const std::wstring file = (prefix / "share/doc/ruvex/manual.pdf").wstring();
        ShellExecuteW(nullptr, L"open", file.c_str(), nullptr, nullptr, SW_SHOWDEFAULT);
        return S_OK;
    });
}

}  // namespace ruvex
