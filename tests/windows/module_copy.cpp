#include "tests/windows/module_copy.h"

#include <stdexcept>
#include <string>

#include "sdk/registry/registry.h"

namespace ruvex::test {
namespace {

/// Its name has a blank and an umlaut.
std::filesystem::path newFolder() {
    const auto name = L"ruvex m\u00FCdule " + std::to_wstring(GetCurrentProcessId());
    const auto folder = std::filesystem::temp_directory_path() / name;
    std::filesystem::create_directories(folder);
    return folder;
}

}  // namespace

ModuleCopy::ModuleCopy(const std::filesystem::path& module)
    : file_(newFolder() / module.filename()) {
    std::filesystem::copy_file(module, file_, std::filesystem::copy_options::overwrite_existing);
}

ModuleCopy::~ModuleCopy() {
    std::error_code ignored;
    std::filesystem::remove_all(file_.parent_path(), ignored);
}

std::filesystem::path registeredModule() {
    DSRegistryContents all;
    if (DSReadRegistry(&all) != S_OK || all.classes.empty()) {
        throw std::runtime_error("the module is not registered");
    }
    return all.classes.front().module;
}

RegisteredInTheEnd::~RegisteredInTheEnd() {
    callModule(module_, "DllRegisterServer");
}

long callModule(const std::filesystem::path& file, const char* function) {
    const HMODULE module = LoadLibraryW(file.c_str());
    if (!module) return HRESULT_FROM_WIN32(GetLastError());
    const auto called =
        reinterpret_cast<HRESULT (*)()>(reinterpret_cast<void*>(GetProcAddress(module, function)));
    const HRESULT status = called ? called() : E_NOINTERFACE;
    FreeLibrary(module);
    return status;
}

}  // namespace ruvex::test
