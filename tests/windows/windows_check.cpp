// Usage: windows_check controls|registry|registered|pages|registration|lives|unregistered
// It starts itself as `windows_check host NUMBER` and `windows_check leave WAY`.

#include <cstdlib>
#include <exception>
#include <objbase.h>
#include <string_view>

#include "tests/windows/checks.h"

int main(int argc, char** argv) {
    using namespace ruvex::test;
    const std::string_view part = argc >= 2 ? argv[1] : "";
    const char* const detail = argc == 3 ? argv[2] : "";
    Checks checks;
    checks.expect(SUCCEEDED(CoInitializeEx(nullptr, COINIT_MULTITHREADED)), "COM starts");
    try {
        if (part == "controls") checkControls(checks);
        if (part == "registry") {
            checkRegistry(checks);
            checkRegistryFailures(checks);
        }
        if (part == "registered") checkRegistered(checks);
        if (part == "pages") checkPages(checks);
        if (part == "registration") checkRegistration(checks);
        if (part == "lives") {
            checkReplacement(checks);
            checkHosts(checks);
            checkLeavingHosts(checks);
        }
        if (part == "host") runHost(checks, std::atoi(detail));
        if (part == "leave") leaveHost(detail);
        if (part == "unregistered") checkUnregistered(checks);
    } catch (const std::exception& error) {
        checks.expect(false, error.what());
    }
    checks.expect(checks.made > 1, "the part is one that there is");
    CoUninitialize();
    std::printf("end: checks=%d failed=%d\n", checks.made, checks.failed);
    return checks.failed == 0 ? 0 : 1;
}
