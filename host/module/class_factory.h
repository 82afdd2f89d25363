// The class factory of a class that the module serves.

#pragma once

#include <mutex>

#include "host/base/module_use.h"
#include "sdk/com/com_object.h"
#include "sdk/com/guarded.h"

namespace ruvex {

/// Creates objects of class T. `Face` is the base class of T whose IUnknown is the object's. May be
/// called from any thread.
template <class T, class Face>
class CDsClassFactory : public ComObject<IClassFactory> {
public:
    /// Also gives IMarshal.
    HRESULT QueryInterface(const GUID& id, void** out) override;
    /// CLASS_E_NOAGGREGATION for an `outer` other than null.
    HRESULT CreateInstance(IUnknown* outer, const GUID& id, void** out) override;
    HRESULT LockServer(BOOL lock) override;
    ~CDsClassFactory() override;

protected:
    /// Creates an object with one reference. If memory ran out, returns 0 and null in `*object`.
    virtual HRESULT CreateObject(T** object);

private:
    HRESULT queryMarshaler(const GUID& id, void** out);

    /// The first member, so that it is destroyed last: the module may be unloaded as soon as its
    /// count is 0.
    ModuleUse use_;
    /// Recursive, since the constructor of an object may create another object of the class.
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
