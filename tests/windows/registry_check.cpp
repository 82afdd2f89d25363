#include "sdk/com/utf8.h"
#include "sdk/registry/registry.h"
#include "sdk/registry/registry_key.h"
#include "tests/windows/checks.h"

namespace ruvex::test {
namespace {

// Against the order of the system, which lists by name.
constexpr GUID kFirst = guidFromText("77A1C005-0000-4000-8000-000000000009");
constexpr GUID kSecond = guidFromText("77A1C005-0000-4000-8000-000000000001");
constexpr GUID kFamilies[] = {guidFromText("77A1C005-0000-4000-8000-000000000018"),
                              guidFromText("77A1C005-0000-4000-8000-000000000011")};

const std::wstring kText = L"\u00FCber, \U0001F4FA\\\t\"x\"";

std::wstring systemKey(const GUID& id) {
    return L"Software\\Classes\\CLSID\\{" + fromUtf8(toText(id)) + L"}";
}

DSRegistryContents contents() {
    DSRegistryContents all;
    DSReadRegistry(&all);
    return all;
}

void checkClasses(Checks& checks, DSRegistryStore& store) {
    const DSRegisteredClass first{kFirst, 2, kText, L"C:\\modules\\first.dll"};
    const DSRegisteredClass second{kSecond, 4, L"", L"C:\\modules\\second.dll"};
    checks.expect(store.addClass(first) == S_OK, "a class is entered");
    checks.expect(store.addClass(second) == S_OK, "another is");
    checks.expect(contents().classes == std::vector{first, second}, "they are read in their order");
    const auto server = RegistryKey::open(systemKey(kFirst) + L"\\InprocServer32");
    checks.expect(server && server.text(L"") == L"C:\\modules\\first.dll", "COM finds the file");
    checks.expect(server && server.text(L"ThreadingModel") == L"Both", "and may call it anywhere");
    const DSRegisteredClass again{kFirst, 6, L"again", L"C:\\elsewhere.dll"};
    checks.expect(store.addClass(again) == S_OK, "a class is entered again");
    checks.expect(contents().classes == std::vector{again, second}, "and replaced in its place");
}

void checkFamilies(Checks& checks) {
    checks.expect(DSRegisterObjectFamilies(kFirst, 2, kFamilies, 7, kText.c_str(), nullptr) == S_OK,
                  "families are entered");
    const std::vector<DSRegisteredFamily> expected = {{kFirst, kFamilies[0], 7, kText},
                                                      {kFirst, kFamilies[1], 7, kText}};
    checks.expect(contents().families == expected, "they are read in their order");
    checks.expect(DSUnregisterObjectFamilies(kSecond, 2, kFamilies, nullptr) == REGDB_E_CLASSNOTREG,
                  "a class without families has none to remove");
    checks.expect(DSUnregisterObjectFamilies(kFirst, 1, kFamilies, nullptr) == S_OK,
                  "one family is removed");
    checks.expect(contents().families == std::vector{expected[1]}, "the other one stays");
    checks.expect(DSUnregisterObjectFamilies(kFirst, 2, kFamilies, nullptr) == S_OK,
                  "what is left is removed");
}

}  // namespace

void checkRegistry(Checks& checks) {
    checks.expect(contents().empty(), "nothing is registered at first");
    checks.expect(DSUnregisterCOMEffect(kFirst) == REGDB_E_CLASSNOTREG,
                  "a class that is not registered cannot be removed");
    checkClasses(checks, *DSSystemRegistry());
    checkFamilies(checks);
    checks.expect(DSUnregisterCOMEffect(kFirst) == S_OK, "a class is removed");
    checks.expect(DSUnregisterCOMEffect(kFirst) == REGDB_E_CLASSNOTREG,
                  "a class can be removed once");
    checks.expect(!registryKeyExists(systemKey(kFirst)), "COM's key is gone");
    checks.expect(registryKeyExists(systemKey(kSecond)), "the other class's is there");
    checks.expect(DSUnregisterCOMEffect(kSecond) == S_OK, "it is removed too");
    checks.expect(contents().empty(), "nothing is registered in the end");
    checks.expect(!registryKeyExists(L"Software\\V_Ruvex"), "and no key is left");
}

}  // namespace ruvex::test
