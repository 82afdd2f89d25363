#include "looks/look_folders.h"

#include <cstdlib>

#include "sdk/com/dynamic_library.h"

namespace ruvex::looks {
namespace {

namespace fs = std::filesystem;

#ifdef _WIN32

fs::path userFolder() {
    const wchar_t* value = _wgetenv(L"APPDATA");
    const fs::path data(value != nullptr ? value : L"");
    return data.is_absolute() ? data / "ruvex" / "looks" : fs::path();
}

#else

/// An absolute path in a variable of the environment; empty if there is none.
fs::path absoluteFromEnvironment(const char* name) {
    const char* value = std::getenv(name);
    const fs::path folder(value != nullptr ? value : "");
    return folder.is_absolute() ? folder : fs::path();
}

fs::path userFolder() {
    fs::path data = absoluteFromEnvironment("XDG_DATA_HOME");
    if (data.empty()) {
        const fs::path home = absoluteFromEnvironment("HOME");
        if (home.empty()) return {};
        data = home / ".local" / "share";
    }
    return data / "ruvex" / "looks";
}

#endif

}  // namespace

fs::path shippedLookFolder(const fs::path& file) {
    if (file.empty()) return {};
    const fs::path folder = file.parent_path();
    const fs::path above = folder.parent_path();
    const fs::path shared = fs::path("share") / "ruvex" / "looks";
    const fs::path bundled = above / "Resources" / "looks";
    for (const fs::path& found :
         {folder / "looks", bundled, above / shared, above.parent_path() / shared}) {
        std::error_code ignored;
        if (fs::is_directory(found, ignored)) return found;
    }
    return {};
}

LookFolders lookFolders(const fs::path& module) {
    static constexpr char here = 0;
    LookFolders folders{.shipped = shippedLookFolder(DSDynamicLibrary::fileOfCode(&here)),
                        .user = userFolder()};
    if (folders.shipped.empty()) folders.shipped = shippedLookFolder(module);
    return folders;
}

}  // namespace ruvex::looks
