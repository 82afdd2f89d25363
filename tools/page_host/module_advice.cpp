#include "tools/page_host/module_advice.h"

#include <algorithm>
#include <filesystem>

#include "sdk/com/utf8.h"
#include "sdk/effect/ruvex_class_id.h"
#include "sdk/registry/registry.h"

namespace ruvex::page_host {
namespace {

/// The registered file of the effect's module; empty if unknown.
std::filesystem::path registeredFile() {
    DSRegistryContents contents;
    if (FAILED(DSReadRegistry(&contents))) return {};
    const auto found =
        std::ranges::find(contents.classes, kRuvexClassId, &DSRegisteredClass::classId);
    return found == contents.classes.end() ? std::filesystem::path() : found->module;
}

bool meansMissingFile(HRESULT status) {
    const HRESULT missing[] = {HRESULT_FROM_WIN32(ERROR_MOD_NOT_FOUND),
                               HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND),
                               HRESULT_FROM_WIN32(ERROR_PATH_NOT_FOUND), CO_E_DLLNOTFOUND};
    return std::ranges::find(missing, status) != std::end(missing);
}

}  // namespace

std::string moduleAdvice(HRESULT status) {
    if (status == REGDB_E_CLASSNOTREG) {
        return "The module V_Ruvex.dll is not registered. Run register.cmd in its folder, or "
               "\"regsvr32 V_Ruvex.dll\" in a command window with administrator rights, and start "
               "this program again.";
    }
    const std::filesystem::path file = registeredFile();
    std::error_code error;
    if (!file.empty() && !std::filesystem::exists(file, error)) {
        return "The module is registered as " + toUtf8(file.wstring()) +
               ", but there is no such file. Run register.cmd in the folder where V_Ruvex.dll is "
               "now; that needs administrator rights.";
    }
    if (meansMissingFile(status)) {
        return "The module " + toUtf8(file.wstring()) +
               " cannot be loaded, because a DLL that it needs is missing. dssdk10.dll, "
               "dsvwr10.dll and il.dll have to be in its folder.";
    }
    return {};
}

}  // namespace ruvex::page_host
