// The module's file is replaced while a host runs, as an update does.

#include <fstream>
#include <windows.h>

#include "host/base/class_ids.h"
#include "pages/resources/resource_ids.h"
#include "tests/windows/checks.h"
#include "tests/windows/module_copy.h"
#include "tests/windows/opened_pages.h"

namespace ruvex::test {
namespace {

std::filesystem::path loadedModule() {
    wchar_t file[MAX_PATH] = L"";
    if (const HMODULE module = GetModuleHandleW(L"V_Ruvex.dll")) {
        GetModuleFileNameW(module, file, MAX_PATH);
    }
    return file;
}

/// Lets COM unload what is not in use.
void unloadUnused() {
    CoFreeUnusedLibrariesEx(0, 0);
}

/// Makes an effect, opens its main page and edits it there.
void checkUse(Checks& checks, const std::filesystem::path& module) {
    PageHost host;
    checks.expect(std::filesystem::equivalent(loadedModule(), module),
                  "COM loads the registered file");
    const Page main = host.open(kRuvexPageId);
    type(main, IDC_TV_CONTRAST, "12");
    checks.expect(host.value(ParameterId::TvContrast) == 12.0, "its pages work");
}

/// A later version of the same module: one byte longer, which the system's loader ignores.
bool replace(const std::filesystem::path& file, const std::filesystem::path& original) {
    std::error_code error;
    std::filesystem::copy_file(original, file, std::filesystem::copy_options::overwrite_existing,
                               error);
    if (error) return false;
    std::ofstream end(file, std::ios::binary | std::ios::app);
    end.put('\0');
    end.close();
    return end.good();
}

void checkReplacing(Checks& checks, const std::filesystem::path& original) {
    const ModuleCopy copy(original);
    checks.expect(callModule(copy.file(), "DllRegisterServer") == S_OK, "a copy is registered");
    checkUse(checks, copy.file());
    checks.expect(!replace(copy.file(), original), "a loaded file cannot be replaced");
    unloadUnused();
    checks.expect(loadedModule().empty(), "COM unloads it when nothing of it is left");
    checks.expect(replace(copy.file(), original), "then it can be replaced");
    checks.expect(file_size(copy.file()) == file_size(original) + 1, "by another");
    checkUse(checks, copy.file());
    unloadUnused();
    checks.expect(loadedModule().empty(), "which is unloaded in its turn");
}

}  // namespace

void checkReplacement(Checks& checks) {
    const std::filesystem::path original = registeredModule();
    const RegisteredInTheEnd registeredAgain(original);
    unloadUnused();
    checks.expect(loadedModule().empty(), "no module is loaded yet");
    checkReplacing(checks, original);
}

}  // namespace ruvex::test
