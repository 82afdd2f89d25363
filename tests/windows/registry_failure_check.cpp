#include <windows.h>

// Needs the one before.
#include <sddl.h>

#include "sdk/com/utf8.h"
#include "sdk/registry/registry_key.h"
#include "sdk/registry/registry_store.h"
#include "tests/windows/checks.h"

namespace ruvex::test {
namespace {

constexpr GUID kClass = guidFromText("77A1C006-0000-4000-8000-000000000001");
constexpr GUID kFamilies[] = {guidFromText("77A1C006-0000-4000-8000-000000000011"),
                              guidFromText("77A1C006-0000-4000-8000-000000000012")};

const DSRegisteredClass kEntry{kClass, 2, L"first", L"C:\\modules\\first.dll"};
const DSRegisteredClass kOther{kClass, 4, L"other", L"C:\\modules\\other.dll"};

std::wstring braced(const GUID& id) {
    return L"{" + fromUtf8(toText(id)) + L"}";
}

const std::wstring kHost = L"Software\\V_Ruvex";
const std::wstring kHostKey = kHost + L"\\Classes\\" + braced(kClass);
const std::wstring kSystemKey = L"Software\\Classes\\CLSID\\" + braced(kClass);

std::wstring familyKey(const GUID& family) {
    return kHost + L"\\Families\\" + braced(kClass) + L"\\" + braced(family);
}

DSRegisteredFamily inFamily(const GUID& family) {
    return {kClass, family, 1, L"name"};
}

constexpr DWORD kToWrite = KEY_SET_VALUE | KEY_CREATE_SUB_KEY | DELETE;
constexpr DWORD kToRead = KEY_QUERY_VALUE | KEY_ENUMERATE_SUB_KEYS;

/// Nobody has these rights to the key as long as this lives.
class Denied {
public:
    Denied(std::wstring path, DWORD rights) : path_(std::move(path)) {
        set(L"D:(D;;" + std::to_wstring(rights) + L";;;WD)(A;;KA;;;WD)");
    }
    ~Denied() { set(L"D:(A;;KA;;;WD)"); }

private:
    void set(const std::wstring& rights) const {
        HKEY key = nullptr;
        RegOpenKeyExW(HKEY_LOCAL_MACHINE, path_.c_str(), 0, WRITE_DAC, &key);
        PSECURITY_DESCRIPTOR descriptor = nullptr;
        ConvertStringSecurityDescriptorToSecurityDescriptorW(rights.c_str(), SDDL_REVISION_1,
                                                             &descriptor, nullptr);
        RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, descriptor);
        LocalFree(descriptor);
        RegCloseKey(key);
    }

    std::wstring path_;
};

/// A key that can hold none but such as end with the system, as itself.
void makeVolatile(const std::wstring& path) {
    HKEY key = nullptr;
    RegCreateKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                    KEY_READ | KEY_WRITE, nullptr, &key, nullptr);
    RegCloseKey(key);
}

DSRegistryContents contentsOf(DSRegistryStore& store) {
    DSRegistryContents all;
    store.read(all);
    return all;
}

bool comHasFirst() {
    const RegistryKey key = RegistryKey::open(kSystemKey);
    const RegistryKey server = RegistryKey::open(kSystemKey + L"\\InprocServer32");
    return key && server && key.text(L"") == L"first" &&
           server.text(L"") == L"C:\\modules\\first.dll" &&
           server.text(L"ThreadingModel") == L"Both";
}

void checkNewClass(Checks& checks, DSRegistryStore& store) {
    makeVolatile(kHost);
    checks.expect(store.addClass(kEntry) == REGDB_E_WRITEREGDB, "a class is not entered by half");
    checks.expect(!registryKeyExists(kSystemKey), "COM knows nothing of it");
    removeRegistryTree(kHost);
}

void checkKnownClass(Checks& checks, DSRegistryStore& store) {
    checks.expect(store.addClass(kEntry) == S_OK, "a class is entered");
    const DSRegistryContents before = contentsOf(store);
    {
        const Denied sealed(kHostKey, kToWrite);
        checks.expect(store.addClass(kOther) == REGDB_E_WRITEREGDB, "one is not replaced by half");
        checks.expect(comHasFirst(), "COM has the old one");
        checks.expect(contentsOf(store) == before, "the host's entries are as before");
        checks.expect(store.removeClass(kClass) == REGDB_E_WRITEREGDB,
                      "a class is not removed in part");
        checks.expect(comHasFirst(), "COM still has it");
        checks.expect(contentsOf(store) == before, "and the host does");
    }
    {
        const Denied hidden(kHostKey, kToRead);
        DSRegistryContents all = before;
        checks.expect(store.read(all) == REGDB_E_READREGDB, "what is not to be read is no reading");
        checks.expect(all == before, "a failed read gives nothing");
        checks.expect(store.addClass(kOther) == REGDB_E_READREGDB, "a class is not replaced");
    }
    checks.expect(comHasFirst() && contentsOf(store) == before, "all is as it was");
}

void checkFamilies(Checks& checks, DSRegistryStore& store) {
    const DSRegisteredFamily first = inFamily(kFamilies[0]);
    const DSRegisteredFamily both[] = {inFamily(kFamilies[1]), first};
    checks.expect(store.addFamilies({&first, 1}) == S_OK, "a family is entered");
    {
        const Denied sealed(familyKey(kFamilies[0]), kToWrite);
        checks.expect(store.addFamilies(both) == REGDB_E_WRITEREGDB,
                      "families are entered together");
        checks.expect(contentsOf(store).families == std::vector{first},
                      "families are not entered in part");
    }
    checks.expect(store.addFamilies(both) == S_OK, "without the obstacle they are");
    const DSRegistryContents before = contentsOf(store);
    const GUID order[] = {kFamilies[1], kFamilies[0]};
    {
        const Denied sealed(familyKey(kFamilies[0]), kToWrite);
        checks.expect(store.removeFamilies(kClass, order) == REGDB_E_WRITEREGDB,
                      "they are removed together");
        checks.expect(contentsOf(store) == before, "families are not removed in part");
    }
    checks.expect(store.removeFamilies(kClass, order) == S_OK, "and without it they go");
}

}  // namespace

void checkRegistryFailures(Checks& checks) {
    const auto store = DSSystemRegistry();
    checkNewClass(checks, *store);
    checkKnownClass(checks, *store);
    checkFamilies(checks, *store);
    checks.expect(store->removeClass(kClass) == S_OK, "the class goes too");
    checks.expect(!registryKeyExists(kSystemKey) && !registryKeyExists(kHost), "nothing is left");
}

}  // namespace ruvex::test
