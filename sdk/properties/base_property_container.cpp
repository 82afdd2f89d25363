#include "sdk/properties/base_property_container.h"

#include <algorithm>
#include <cmath>

#include "sdk/com/guarded.h"

namespace {

/// Reads and writes the class member that holds a property's plain value.
class Member {
public:
    Member(CDSBasePropertyContainer& container, const CDSPropertiesMapEntry& entry)
        : type_(entry.definition.type), address_(entry.member(container, entry.index)) {}

    VARIANT read() const {
        switch (type_) {
            case VT_R8:
                return DSVariantFromReal(*static_cast<double*>(address_));
            case VT_BOOL:
                return DSVariantFromBool(*static_cast<std::int32_t*>(address_) != 0);
            default:
                return DSVariantFromLong(*static_cast<std::int32_t*>(address_));
        }
    }

    void write(const VARIANT& value) const {
        switch (type_) {
            case VT_R8:
                *static_cast<double*>(address_) = value.dblVal;
                break;
            case VT_BOOL:
                *static_cast<std::int32_t*>(address_) = value.lVal != 0 ? 1 : 0;
                break;
            default:
                *static_cast<std::int32_t*>(address_) = value.lVal;
        }
    }

private:
    VARTYPE type_;
    void* address_;
};

bool isAcceptable(const CDSParamDef& definition, const VARIANT& value) {
    if (value.vt != definition.type) return false;
    return value.vt != VT_R8 || std::isfinite(value.dblVal);
}

}  // namespace

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

HRESULT CDSBasePropertyContainer::GetValue(const GUID& id, double, VARIANT* value) {
    if (!value) return E_POINTER;
    const CDSPropertiesMapEntry* entry = FindProperty(id);
    if (!entry) return E_INVALIDARG;
    *value = Member(*this, *entry).read();
    return S_OK;
}

HRESULT CDSBasePropertyContainer::SetValue(const GUID& id, double, const VARIANT* value) {
    if (!value) return E_POINTER;
    const CDSPropertiesMapEntry* entry = FindProperty(id);
    if (!entry || !isAcceptable(entry->definition, *value)) return E_INVALIDARG;
    Member(*this, *entry).write(*value);
    return OnPropertyChanged(id, entry->definition.classification);
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

HRESULT CDSBasePropertyContainer::OnPropertyChanged(const GUID& id, ULONG classification) {
    // An observer may add or remove observers, so continue by cookie (cookies rise) and not by
    // iterator. Observers added during the loop are not notified.
    const ULONG last = lastCookie_;
    ULONG told = 0;
    for (;;) {
        const auto next = std::ranges::upper_bound(observers_, told, {}, &Observer::cookie);
        if (next == observers_.end() || next->cookie > last) return S_OK;
        told = next->cookie;
        const ComPtr<IDSPropertyObserver> target = next->target;
        target->PropertyChanged(id, classification);
    }
}
