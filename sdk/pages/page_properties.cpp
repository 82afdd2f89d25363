// Reading and writing the inspected object's properties.

#include <algorithm>

#include "sdk/pages/base_property_page.h"

namespace {

void storeBound(const CDSPPGControlMapEntry& entry, CDSBasePropertyPage& page,
                const VARIANT& value) {
    void* const bound = entry.boundVariable(page);
    if (entry.boundType == VT_R8) {
        *static_cast<double*>(bound) = value.dblVal;
    } else {
        *static_cast<std::int32_t*>(bound) = value.lVal;
    }
}

VARIANT boundValue(const CDSPPGControlMapEntry& entry, CDSBasePropertyPage& page) {
    const void* const bound = entry.boundVariable(page);
    if (entry.boundType == VT_R8) return DSVariantFromReal(*static_cast<const double*>(bound));
    const std::int32_t number = *static_cast<const std::int32_t*>(bound);
    return entry.boundType == VT_BOOL ? DSVariantFromBool(number != 0) : DSVariantFromLong(number);
}

}  // namespace

IDSProperties* CDSBasePropertyPage::properties() const {
    return objects_.empty() ? nullptr : objects_.front().properties.get();
}

const CDSParamDef* CDSBasePropertyPage::definitionOf(const GUID& id) const {
    ULONG count = 0;
    if (!properties() || FAILED(properties()->GetPropertyCount(&count))) return nullptr;
    for (ULONG i = 0; i < count; ++i) {
        const CDSParamDef* definition = nullptr;
        if (SUCCEEDED(properties()->GetPropertyDef(i, &definition)) && definition->id == id) {
            return definition;
        }
    }
    return nullptr;
}

bool CDSBasePropertyPage::followsProperty(const CDSPPGControlMapEntry& entry) const {
    if (!entry.boundVariable || entry.property == GUID_NoProperty) return false;
    const CDSParamDef* const definition = definitionOf(entry.property);
    return !definition || definition->capabilities != DSCAPS_USER_INTERFACE;
}

double CDSBasePropertyPage::secondsOf(double time) const {
    double seconds = 0.0;
    if (time != DSTIME_CURRENT) return time;
    return site_ && SUCCEEDED(site_->GetTime(&seconds)) ? seconds : 0.0;
}

HRESULT CDSBasePropertyPage::read(const GUID& id, VARIANT* value, double time) const {
    if (!value) return E_POINTER;
    return properties() ? properties()->GetValue(id, secondsOf(time), value) : E_UNEXPECTED;
}

HRESULT CDSBasePropertyPage::write(const GUID& id, const VARIANT* value, UNDO_STYLE style,
                                   double time) {
    if (!value) return E_POINTER;
    if (!properties()) return E_UNEXPECTED;
    const double seconds = secondsOf(time);
    // The write notifies this page, which may be closed by that.
    const ComPtr<IUnknown> object = GetInspectedObject();
    const ComPtr<IDSProperties> kept = properties();
    const ComPtr<IDSPageSite> site = site_;
    return site ? site->WriteProperty(object.get(), id, seconds, value, style)
                : kept->SetValue(id, seconds, value);
}

HRESULT CDSBasePropertyPage::SetPlainProperty(const GUID& id, const VARIANT* value, const DSPARAMS*,
                                              UNDO_STYLE style) {
    return write(id, value, style, DSTIME_CURRENT);
}

HRESULT CDSBasePropertyPage::GetPlainProperty(const GUID& id, VARIANT* value, const DSPARAMS*) {
    return read(id, value, DSTIME_CURRENT);
}

HRESULT CDSBasePropertyPage::SetAnimatedProperty(const GUID& id, const VARIANT* value,
                                                 const DSPARAMS*, UNDO_STYLE style, double time) {
    return write(id, value, style, time);
}

HRESULT CDSBasePropertyPage::GetAnimatedProperty(const GUID& id, VARIANT* value, const DSPARAMS*,
                                                 double time) {
    return read(id, value, time);
}

HRESULT CDSBasePropertyPage::PropertyChanged(const GUID& id, const DSVARIANT* value, IUnknown*,
                                             const DSPARAMS*, unsigned short) {
    const bool all = id == GUID_AllProperties;
    for (const CDSPPGControlMapEntry& entry : GetControlMap()->entries()) {
        if ((!all && entry.property != id) || !followsProperty(entry)) continue;
        if (!all && value && value->vt == entry.propertyType) {
            storeBound(entry, *this, *value);
            showEntry(entry);
        } else {
            updateEntry(entry, DSTIME_CURRENT);
        }
    }
    return S_OK;
}

HRESULT CDSBasePropertyPage::UpdateAnimatedControls(double time) {
    for (const CDSPPGControlMapEntry& entry : GetControlMap()->entries()) {
        if ((entry.flags & DSENTRY_ANIMATABLE) != 0 && followsProperty(entry)) {
            updateEntry(entry, time);
        }
    }
    return S_OK;
}

void CDSBasePropertyPage::updateEntry(const CDSPPGControlMapEntry& entry, double time) {
    VARIANT value{};
    if (FAILED(read(entry.property, &value, time)) || value.vt != entry.propertyType) return;
    storeBound(entry, *this, value);
    showEntry(entry);
}

void CDSBasePropertyPage::fillFromProperties() {
    for (const CDSPPGControlMapEntry& entry : GetControlMap()->entries()) {
        if (followsProperty(entry)) updateEntry(entry, DSTIME_CURRENT);
        showEntry(entry);
    }
}

void CDSBasePropertyPage::writeEntry(const CDSPPGControlMapEntry& entry, UNDO_STYLE style) {
    if (!followsProperty(entry)) return;
    const VARIANT value = boundValue(entry, *this);
    write(entry.property, &value, style, DSTIME_CURRENT);
}
