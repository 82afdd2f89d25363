// The factory of one served class.

#pragma once

#include <mutex>

#include "host/base/module_use.h"
#include "sdk/com/com_object.h"
#include "sdk/com/guarded.h"

namespace ruvex {

/// Makes objects of class T, which the host uses through its `Face`, the base by which T is an
/// IUnknown. Any thread.
template <class T, class Face>
class CDsClassFactory : public ComObject<IClassFactory> {
public:
    /// Adds IMarshal to what it gives.
    HRESULT QueryInterface(const GUID& id, void** out) override;
    /// No aggregation: an `outer` gives CLASS_E_NOAGGREGATION.
    HRESULT CreateInstance(IUnknown* outer, const GUID& id, void** out) override;
    HRESULT LockServer(BOOL lock) override;
    ~CDsClassFactory() override;

protected:
    /// Makes one object, with one reference; 0 also when memory ran out and `*object` is null.
    virtual HRESULT CreateObject(T** object);

private:
    HRESULT queryMarshaler(const GUID& id, void** out);

    /// First, so that it ends last: the module may go at once when its count falls to 0.
    ModuleUse use_;
    /// An object may ask for another of its class while it is made.
    std::recursive_mutex creating_;
    IUnknown* marshaler_ = nullptr;
};

template <class T, class Face>
CDsClassFactory<T, Face>::~CDsClassFactory() {
    if (marshaler_) marshaler_->Release();
}

template <class T, class Face>
HRESULT CDsClassFactory<T, Face>::QueryInterface(const GUID& id, void** out) {
    if (!out) return E_POINTER;
    return id == IID_IMarshal ? queryMarshaler(id, out) : ComObject::QueryInterface(id, out);
}

template <class T, class Face>
HRESULT CDsClassFactory<T, Face>::queryMarshaler(const GUID& id, void** out) {
    const std::lock_guard lock(creating_);
    *out = nullptr;
    if (!marshaler_) {
        const HRESULT status = CoCreateFreeThreadedMarshaler(this, &marshaler_);
        if (FAILED(status)) return status;
    }
    return marshaler_->QueryInterface(id, out);
}

template <class T, class Face>
HRESULT CDsClassFactory<T, Face>::CreateInstance(IUnknown* outer, const GUID& id, void** out) {
    if (!out) return E_POINTER;
    const std::lock_guard lock(creating_);
    *out = nullptr;
    T* made = nullptr;
    if (const HRESULT status = CreateObject(&made); FAILED(status)) return status;
    if (!made) return E_OUTOFMEMORY;
    Face* object = made;
    const HRESULT status = outer ? CLASS_E_NOAGGREGATION : object->QueryInterface(id, out);
    object->Release();
    return status;
}

template <class T, class Face>
HRESULT CDsClassFactory<T, Face>::LockServer(BOOL lock) {
    objectCount += lock ? 1 : -1;
    return S_OK;
}

template <class T, class Face>
HRESULT CDsClassFactory<T, Face>::CreateObject(T** object) {
    *object = nullptr;
    const HRESULT status = guarded([&] {
        *object = new T();
        return S_OK;
    });
    return status == E_OUTOFMEMORY ? S_OK : status;
}

}  // namespace ruvex
