// The host's class from which pages derive.

#pragma once

#include <atomic>

#include "sdk/pages/base_property_page.h"

/// The reference count of a host's class that implements several interfaces.
class DSSDK_API CDSCOMObject {
protected:
    CDSCOMObject() = default;
    ~CDSCOMObject() = default;

    ULONG addReference() { return ++references_; }
    ULONG releaseReference() { return --references_; }

private:
    std::atomic<ULONG> references_{1};
};

/// A page as a COM object. It starts with one reference, which belongs to the caller of `new`, and
/// deletes itself with the last one. QueryInterface gives IUnknown, IPropertyPage, IDsPropertyPage
/// and IDSPropertyObserver.
class DSSDK_API CDSPropertyPage : public CDSBasePropertyPage, public CDSCOMObject {
public:
    HRESULT QueryInterface(const GUID& id, void** out) override;
    ULONG AddRef() override;
    ULONG Release() override;

protected:
    CDSPropertyPage(UINT dialogId, UINT titleId) : CDSBasePropertyPage(dialogId, titleId) {}
};
