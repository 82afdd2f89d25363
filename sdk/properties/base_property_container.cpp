#include "sdk/properties/base_property_container.h"

#include <algorithm>

#include "sdk/com/guarded.h"

CDSBasePropertyContainer::CDSBasePropertyContainer(const CDSBasePropertyContainer& source)
    : ComObject(source) {}

CDSBasePropertyContainer::~CDSBasePropertyContainer() = default;

const CDSPropertiesMap* CDSBasePropertyContainer::InitStaticPropertyMap(
    DSStaticPropertiesMap& storage, std::span<const CDSPropertiesMapEntry> entries) {
    std::call_once(storage.once, [&] { storage.map.emplace(entries); });
    return &*storage.map;
}

const CDSPropertiesMapEntry* CDSBasePropertyContainer::FindProperty(const GUID& id) {
    const CDSPropertiesMap* map = GetPropertyMap();
    return map ? map->find(id) : nullptr;
}

HRESULT CDSBasePropertyContainer::GetPropertyCount(ULONG* count) {
    if (!count) return E_POINTER;
    const CDSPropertiesMap* map = GetPropertyMap();
    *count = map ? static_cast<ULONG>(map->entries().size()) : 0;
    return S_OK;
}

HRESULT CDSBasePropertyContainer::GetPropertyDef(ULONG index, const CDSParamDef** definition) {
    if (!definition) return E_POINTER;
    *definition = nullptr;
    const CDSPropertiesMap* map = GetPropertyMap();
    if (!map || index >= map->entries().size()) return E_INVALIDARG;
    *definition = &map->entries()[index].definition;
    return S_OK;
}

VARIANT CDSBasePropertyContainer::ReadPlainValue(const CDSPropertiesMapEntry& entry) {
    const void* member = entry.member(*this, entry.index);
    switch (entry.definition.type) {
        case VT_R8:
            return DSVariantFromReal(*static_cast<const double*>(member));
        case VT_BOOL:
            return DSVariantFromBool(*static_cast<const std::int32_t*>(member) != 0);
        default:
            return DSVariantFromLong(*static_cast<const std::int32_t*>(member));
    }
}

void CDSBasePropertyContainer::WritePlainValue(const CDSPropertiesMapEntry& entry,
                                               const VARIANT& value) {
    void* member = entry.member(*this, entry.index);
    switch (entry.definition.type) {
        case VT_R8:
            *static_cast<double*>(member) = value.dblVal;
            break;
        case VT_BOOL:
            // The system's booleans have 16 bits; a caller may leave the others unset.
            *static_cast<std::int32_t*>(member) = static_cast<std::uint16_t>(value.lVal) != 0;
            break;
        default:
            *static_cast<std::int32_t*>(member) = value.lVal;
    }
}

HRESULT CDSBasePropertyContainer::GetPlainValue(const GUID& id, VARIANT* value) {
    if (!value) return E_POINTER;
    const CDSPropertiesMapEntry* entry = FindProperty(id);
    if (!entry) return E_INVALIDARG;
    *value = ReadPlainValue(*entry);
    return S_OK;
}

HRESULT CDSBasePropertyContainer::GetValue(const GUID& id, double, VARIANT* value) {
    return CDSBasePropertyContainer::GetPlainValue(id, value);
}

HRESULT CDSBasePropertyContainer::SetValue(const GUID& id, double, const VARIANT* value) {
    if (!value) return E_POINTER;
    const CDSPropertiesMapEntry* entry = FindProperty(id);
    if (!entry || !entry->definition.accepts(*value)) return E_INVALIDARG;
    WritePlainValue(*entry, *value);
    const VARIANT stored = ReadPlainValue(*entry);
    return OnPropertyChanged(id, entry->definition.classification, &stored);
}

HRESULT CDSBasePropertyContainer::Advise(IDSPropertyObserver* observer, ULONG* cookie) {
    if (!observer || !cookie) return E_POINTER;
    *cookie = 0;
    return ruvex::guarded([&] {
        observers_.push_back({lastCookie_ + 1, observer});
        *cookie = ++lastCookie_;
        return S_OK;
    });
}

HRESULT CDSBasePropertyContainer::Unadvise(ULONG cookie) {
    const auto removed =
        std::erase_if(observers_, [cookie](const Observer& o) { return o.cookie == cookie; });
    return removed > 0 ? S_OK : E_INVALIDARG;
}

HRESULT CDSBasePropertyContainer::OnPropertyChanged(const GUID& id, ULONG classification,
                                                    const DSVARIANT* value) {
    if (value && id == GUID_AllProperties) return E_INVALIDARG;
    if (observers_.empty()) return S_OK;
    // An observer may release the last reference to this object.
    const ComPtr<IDSProperties> object = this;
    // An observer may add or remove observers, so continue by cookie (cookies rise) and not by
    // iterator. Observers added during the loop are not notified.
    const ULONG last = lastCookie_;
    ULONG notified = 0;
    for (;;) {
        const auto next = std::ranges::upper_bound(observers_, notified, {}, &Observer::cookie);
        if (next == observers_.end() || next->cookie > last) return S_OK;
        notified = next->cookie;
        const ComPtr<IDSPropertyObserver> target = next->target;
        target->PropertyChanged(id, value, object.get(), nullptr,
                                static_cast<unsigned short>(classification));
    }
}
