#include "sdk/pages/property_page.h"

#include "sdk/com/com_object.h"

HRESULT CDSPropertyPage::QueryInterface(const GUID& id, void** out) {
    if (!out) return E_POINTER;
    *out = id == IID_IUnknown
               ? static_cast<IPropertyPage*>(this)
               : ruvex::detail::findInterface<IPropertyPage, IDsPropertyPage>(*this, id);
    if (!*out) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG CDSPropertyPage::AddRef() {
    return addReference();
}

ULONG CDSPropertyPage::Release() {
    const ULONG left = releaseReference();
    if (left == 0) delete this;
    return left;
}
