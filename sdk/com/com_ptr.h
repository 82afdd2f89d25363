// A smart pointer that owns one COM reference.

#pragma once

#include <cstddef>
#include <utility>

#include "sdk/com/interface_traits.h"

/// Owns one reference to an object through interface (or class) T; the destructor releases it.
template <class T>
class ComPtr {
public:
    ComPtr() = default;
    ComPtr(std::nullptr_t) {}
    /// Adds a reference. To take over the caller's reference instead, use `attach`.
    ComPtr(T* pointer) : pointer_(pointer) { addRef(); }
    ComPtr(const ComPtr& other) : ComPtr(other.pointer_) {}
    ComPtr(ComPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    template <class U>
    ComPtr(const ComPtr<U>& other) : ComPtr(other.get()) {}
    ~ComPtr() { reset(); }

    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(pointer_, other.pointer_);
        return *this;
    }

    /// Takes over the caller's reference.
    static ComPtr attach(T* pointer) {
        ComPtr result;
        result.pointer_ = pointer;
        return result;
    }

    /// Passes the reference to the caller; afterwards this is null.
    T* detach() { return std::exchange(pointer_, nullptr); }

    void reset() {
        if (T* old = detach()) old->Release();
    }

    T* get() const { return pointer_; }
    T* operator->() const { return pointer_; }
    T& operator*() const { return *pointer_; }
    explicit operator bool() const { return pointer_ != nullptr; }
    friend bool operator==(const ComPtr& a, const ComPtr& b) { return a.pointer_ == b.pointer_; }

    /// The address for an out parameter that receives a reference. Releases the current one.
    T** put() {
        reset();
        return &pointer_;
    }
    void** putVoid() { return reinterpret_cast<void**>(put()); }

    /// The object's interface U; null if this is null or the object does not implement it. Pass
    /// `id` for a U without DSInterfaceTraits.
    template <class U>
    ComPtr<U> query(const GUID& id = DSInterfaceTraits<U>::id) const {
        ComPtr<U> result;
        if (!pointer_ || FAILED(pointer_->QueryInterface(id, result.putVoid()))) result.detach();
        return result;
    }

private:
    void addRef() const {
        if (pointer_) pointer_->AddRef();
    }

    T* pointer_ = nullptr;
};

/// Stores `pointer` in `*out` with a new reference for the caller. E_POINTER if `out` is null.
template <class T>
HRESULT copyReference(const ComPtr<T>& pointer, T** out) {
    if (!out) return E_POINTER;
    *out = ComPtr<T>(pointer).detach();
    return S_OK;
}
