// page_host: shows the property pages and the viewer of the registered module, on Windows.

// clang-format off
#include <windows.h>
#include <commctrl.h>  // needs the names of windows.h
#include <ole2.h>
// clang-format on

#include <cstdio>
#include <exception>

#include "tools/page_host/main_window.h"

namespace ruvex::page_host {
namespace {

/// The system's components for pictures and the module are COM objects.
class ComScope {
public:
    ComScope() { OleInitialize(nullptr); }
    ComScope(const ComScope&) = delete;
    ComScope& operator=(const ComScope&) = delete;
    ~ComScope() { OleUninitialize(); }
};

void show(const std::vector<std::wstring>& words, int showCommand) {
    const Arguments arguments = parseArguments(words);
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_TAB_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&classes);
    const ComScope com;
    MainWindow window(arguments.picture
                          ? readPicture(*arguments.picture)
                          : makeTestCard(arguments.testCard.width, arguments.testCard.height),
                      arguments.report);
    window.run(showCommand);
}

}  // namespace
}  // namespace ruvex::page_host

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int showCommand) {
    using namespace ruvex::page_host;
    try {
        show({__wargv + 1, __wargv + __argc}, showCommand);
    } catch (const UsageError& error) {
        showError(nullptr, std::string(error.what()) + "\n\n" + kUsage);
        return 2;
    } catch (const std::exception& error) {
        showError(nullptr, error.what());
        return 1;
    }
    // Tells a script that the program has not crashed. Started without a console, the program has
    // no standard output, which is no failure.
    std::puts("end: page_host");
    return 0;
}
