// The store in the system's registry. Classes are registered where the system's CoCreateInstance
// looks for them. A key of the host has the same classes, with what only the host needs: the order
// in which they were registered, the identifier as a text, and the families of each effect.

#include <algorithm>
#include <utility>

#include "sdk/com/utf8.h"
#include "sdk/registry/registry_change.h"
#include "sdk/registry/registry_store.h"

namespace {

using ruvex::RegistryKey;

const std::wstring kSystemClasses = L"Software\\Classes\\CLSID\\";
const std::wstring kHost = L"Software\\V_Ruvex";
const std::wstring kClasses = kHost + L"\\Classes";
const std::wstring kFamilies = kHost + L"\\Families";

std::wstring braced(const GUID& id) {
    return L"{" + ruvex::fromUtf8(ruvex::toText(id)) + L"}";
}

std::optional<GUID> fromBraced(const std::wstring& text) {
    const std::string narrow = ruvex::toUtf8(text);
    if (narrow.size() != ruvex::kGuidTextLength + 2) return std::nullopt;
    return ruvex::parseGuid(narrow.substr(1, ruvex::kGuidTextLength));
}

std::wstring systemClass(const GUID& id) {
    return kSystemClasses + braced(id);
}
std::wstring hostClass(const GUID& id) {
    return kClasses + L"\\" + braced(id);
}
std::wstring familiesOf(const GUID& id) {
    return kFamilies + L"\\" + braced(id);
}

/// An entry with its number in the order of registration, which the system does not preserve.
template <class Entry>
using Placed = std::pair<DWORD, Entry>;

template <class Entry>
std::vector<Entry> inOrder(std::vector<Placed<Entry>> placed) {
    std::ranges::sort(placed, {}, &Placed<Entry>::first);
    std::vector<Entry> entries;
    for (auto& one : placed) entries.push_back(std::move(one.second));
    return entries;
}

template <class Entry>
DWORD nextPlace(const std::vector<Placed<Entry>>& placed) {
    DWORD next = 0;
    for (const auto& one : placed) next = std::max(next, one.first + 1);
    return next;
}

std::vector<Placed<DSRegisteredClass>> readClasses() {
    std::vector<Placed<DSRegisteredClass>> placed;
    const RegistryKey all = RegistryKey::open(kClasses);
    if (!all) return placed;
    for (const std::wstring& name : all.names()) {
        const auto id = fromBraced(name);
        const RegistryKey key = RegistryKey::open(kClasses + L"\\" + name);
        if (!id || !key) continue;
        placed.push_back(
            {key.number(L"Order").value_or(0),
             {*id, static_cast<UINT>(key.number(L"StringId").value_or(0)),
              key.text(L"Description").value_or(L""), key.text(L"Module").value_or(L"")}});
    }
    return placed;
}

void readFamiliesOf(const std::wstring& className,
                    std::vector<Placed<DSRegisteredFamily>>& placed) {
    const auto classId = fromBraced(className);
    const std::wstring path = kFamilies + L"\\" + className;
    const RegistryKey all = RegistryKey::open(path);
    if (!classId || !all) return;
    for (const std::wstring& name : all.names()) {
        const auto family = fromBraced(name);
        const RegistryKey key = RegistryKey::open(path + L"\\" + name);
        if (!family || !key) continue;
        placed.push_back(
            {key.number(L"Order").value_or(0),
             {*classId, *family, static_cast<ULONG>(key.number(L"Version").value_or(0)),
              key.text(L"Name").value_or(L"")}});
    }
}

std::vector<Placed<DSRegisteredFamily>> readFamilies() {
    std::vector<Placed<DSRegisteredFamily>> placed;
    const RegistryKey all = RegistryKey::open(kFamilies);
    if (!all) return placed;
    for (const std::wstring& name : all.names()) readFamiliesOf(name, placed);
    return placed;
}

bool writeSystemClass(const DSRegisteredClass& entry) {
    const std::wstring path = systemClass(entry.classId);
    const RegistryKey key = RegistryKey::create(path);
    const RegistryKey server = RegistryKey::create(path + L"\\InprocServer32");
    return key && server && key.set(L"", entry.description) &&
           server.set(L"", entry.module.wstring()) && server.set(L"ThreadingModel", L"Both");
}

bool writeHostClass(const DSRegisteredClass& entry) {
    const auto known = RegistryKey::open(hostClass(entry.classId));
    const auto place = known ? known.number(L"Order") : std::nullopt;
    const DWORD order = place ? *place : nextPlace(readClasses());
    const RegistryKey key = RegistryKey::create(hostClass(entry.classId));
    return key && key.set(L"StringId", entry.stringId) &&
           key.set(L"Description", entry.description) &&
           key.set(L"Module", entry.module.wstring()) && key.set(L"Order", order);
}

bool writeFamily(const DSRegisteredFamily& entry, DWORD order) {
    const RegistryKey key =
        RegistryKey::create(familiesOf(entry.classId) + L"\\" + braced(entry.family));
    return key && key.set(L"Version", entry.version) && key.set(L"Name", entry.name) &&
           key.set(L"Order", order);
}

/// Deletes the host's keys if no effect is registered any more.
void removeEmptyKeys() {
    for (const std::wstring& path : {kClasses, kFamilies, kHost}) {
        ruvex::removeRegistryKeyIfEmpty(path);
    }
}

template <class Operation>
HRESULT reading(Operation operation) {
    try {
        return operation();
    } catch (const ruvex::RegistryUnreadable&) {
        return REGDB_E_READREGDB;
    }
}

/// Runs a transaction over these keys: the change is kept only if the operation succeeds.
template <class Operation>
HRESULT changing(std::initializer_list<std::wstring> places, Operation operation) {
    return reading([&] {
        HRESULT status = S_OK;
        {
            ruvex::RegistryChange change(places);
            status = operation();
            if (SUCCEEDED(status)) change.keep();
        }
        removeEmptyKeys();
        return status;
    });
}

HRESULT written(bool done) {
    return done ? S_OK : REGDB_E_WRITEREGDB;
}

bool writeFamilies(std::span<const DSRegisteredFamily> entries) {
    DWORD order = nextPlace(readFamilies());
    return std::ranges::all_of(
        entries, [&](const DSRegisteredFamily& entry) { return writeFamily(entry, order++); });
}

HRESULT removeFamily(const std::wstring& path) {
    if (!ruvex::registryKeyExists(path)) return REGDB_E_CLASSNOTREG;
    return written(ruvex::removeRegistryTree(path));
}

class WindowsRegistry final : public DSRegistryStore {
public:
    HRESULT addClass(const DSRegisteredClass& entry) override {
        return changing({systemClass(entry.classId), hostClass(entry.classId)},
                        [&] { return written(writeSystemClass(entry) && writeHostClass(entry)); });
    }

    HRESULT removeClass(const GUID& classId) override {
        return changing({systemClass(classId), hostClass(classId)}, [&] {
            if (!ruvex::registryKeyExists(hostClass(classId))) return REGDB_E_CLASSNOTREG;
            return written(ruvex::removeRegistryTree(systemClass(classId)) &&
                           ruvex::removeRegistryTree(hostClass(classId)));
        });
    }

    HRESULT addFamilies(std::span<const DSRegisteredFamily> entries) override {
        if (entries.empty()) return S_OK;
        return changing({familiesOf(entries.front().classId)},
                        [&] { return written(writeFamilies(entries)); });
    }

    HRESULT removeFamilies(const GUID& classId, std::span<const GUID> families) override {
        return changing({familiesOf(classId)}, [&] {
            HRESULT status = REGDB_E_CLASSNOTREG;
            for (const GUID& family : families) {
                const HRESULT one = removeFamily(familiesOf(classId) + L"\\" + braced(family));
                if (one == REGDB_E_WRITEREGDB) return one;
                if (one == S_OK) status = S_OK;
            }
            ruvex::removeRegistryKeyIfEmpty(familiesOf(classId));
            return status;
        });
    }

    HRESULT read(DSRegistryContents& contents) override {
        return reading([&] {
            contents = {inOrder(readClasses()), inOrder(readFamilies())};
            return S_OK;
        });
    }
};

}  // namespace

std::shared_ptr<DSRegistryStore> DSSystemRegistry() {
    return std::make_shared<WindowsRegistry>();
}
