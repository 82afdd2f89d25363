// Registering more than once, from another folder, and what is left in the end.

#include <algorithm>

#include "sdk/com/utf8.h"
#include "sdk/registry/registry.h"
#include "tests/windows/checks.h"
#include "tests/windows/module_copy.h"
#include "tests/windows/registry_snapshot.h"

namespace ruvex::test {
namespace {

constexpr const char* kRegister = "DllRegisterServer";
constexpr const char* kUnregister = "DllUnregisterServer";

void expectSame(Checks& checks, const RegistrySnapshot& a, const RegistrySnapshot& b,
                const char* what) {
    const auto paths = differences(a, b);
    for (const std::wstring& path : paths) std::printf("%s\n", toUtf8(path).c_str());
    checks.expect(paths.empty(), what);
}

DSRegistryContents registered() {
    DSRegistryContents all;
    DSReadRegistry(&all);
    return all;
}

bool haveSameKeys(const RegistrySnapshot& a, const RegistrySnapshot& b) {
    return std::ranges::equal(a, b, {}, &RegistrySnapshot::value_type::first,
                              &RegistrySnapshot::value_type::first);
}

bool allFrom(const DSRegistryContents& contents, const std::filesystem::path& module) {
    return std::ranges::all_of(contents.classes, [&](const DSRegisteredClass& entry) {
        return std::filesystem::equivalent(entry.module, module);
    });
}

void checkTwice(Checks& checks, const std::filesystem::path& module,
                const RegistrySnapshot& without) {
    checks.expect(callModule(module, kRegister) == S_OK, "the module is registered");
    const RegistrySnapshot with = readSoftwareKeys();
    const DSRegistryContents contents = registered();
    checks.expect(!differences(without, with).empty(), "which changes the registry");
    checks.expect(callModule(module, kRegister) == S_OK, "it is registered again");
    checks.expect(haveSameKeys(readSoftwareKeys(), with) && registered() == contents,
                  "which enters nothing more");
    checks.expect(callModule(module, kUnregister) == S_OK, "it is unregistered");
    expectSame(checks, readSoftwareKeys(), without, "and all is as before");
    checks.expect(callModule(module, kUnregister) == REGDB_E_CLASSNOTREG,
                  "once more it is not there");
    expectSame(checks, readSoftwareKeys(), without, "which changes nothing");
}

void checkFromElsewhere(Checks& checks, const std::filesystem::path& module,
                        const RegistrySnapshot& without) {
    const ModuleCopy copy(module);
    callModule(module, kRegister);
    const RegistrySnapshot with = readSoftwareKeys();
    checks.expect(callModule(copy.file(), kRegister) == S_OK, "a copy is registered");
    checks.expect(haveSameKeys(readSoftwareKeys(), with), "in the same keys");
    checks.expect(registered().classes.size() == 10 && allFrom(registered(), copy.file()),
                  "in place of the first one");
    checks.expect(callModule(module, kUnregister) == S_OK, "the first one removes both");
    expectSame(checks, readSoftwareKeys(), without, "and all is as before the first");
}

}  // namespace

void checkRegistration(Checks& checks) {
    const std::filesystem::path module = registeredModule();
    const RegisteredInTheEnd registeredAgain(module);
    checks.expect(callModule(module, kUnregister) == S_OK, "the module is unregistered");
    const RegistrySnapshot without = readSoftwareKeys();
    checks.expect(without.size() > 100, "the registry has other keys");
    checkTwice(checks, module, without);
    checkFromElsewhere(checks, module, without);
}

}  // namespace ruvex::test
