// Base classes that implement IUnknown.

#pragma once

#include <atomic>

#include "sdk/com/interface_traits.h"

namespace ruvex::detail {

/// A pointer to the first of `Interfaces` that has, or derives from, interface `id`; else null.
template <class... Interfaces, class Object>
void* findInterface(Object& object, const GUID& id) {
    void* found = nullptr;
    // Stops at the first match.
    ((DSIsInterfaceOf<Interfaces>(id) && (found = static_cast<Interfaces*>(&object))) || ...);
    return found;
}

}  // namespace ruvex::detail

/// Implements IUnknown for a class that implements the listed interfaces. An object starts with one
/// reference, which belongs to the caller of `new`, and deletes itself when the last one is
/// released. AddRef and Release may be called from any thread.
///
/// QueryInterface gives the listed interfaces, their base interfaces, and IUnknown (the one of the
/// first interface). For any other identifier it sets `*out` to null. A class with further
/// interfaces overrides it and calls it for all others.
template <class First, class... Others>
class ComObject : public First, public Others... {
public:
    HRESULT QueryInterface(const GUID& id, void** out) override {
        if (!out) return E_POINTER;
        *out = id == IID_IUnknown ? static_cast<First*>(this)
                                  : ruvex::detail::findInterface<First, Others...>(*this, id);
        if (!*out) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }

    ULONG AddRef() override { return ++references_; }

    ULONG Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

protected:
    ComObject() = default;
    /// The copy is a new object with a reference count of one.
    ComObject(const ComObject&) : ComObject() {}
    ComObject& operator=(const ComObject&) = delete;
    virtual ~ComObject() = default;

private:
    std::atomic<ULONG> references_{1};
};

/// Adds interfaces to `Base`, a class derived from ComObject. They share its reference count.
/// QueryInterface for any interface not in `Added` calls that of `Base`.
template <class Base, class... Added>
class ComObjectWith : public Base, public Added... {
public:
    HRESULT QueryInterface(const GUID& id, void** out) override {
        if (!out) return E_POINTER;
        void* const found = ruvex::detail::findInterface<Added...>(*this, id);
        if (!found) return Base::QueryInterface(id, out);
        *out = found;
        AddRef();
        return S_OK;
    }

    ULONG AddRef() override { return Base::AddRef(); }
    ULONG Release() override { return Base::Release(); }

protected:
    ComObjectWith() = default;
    ComObjectWith(const ComObjectWith&) = default;
    ~ComObjectWith() override = default;
};
