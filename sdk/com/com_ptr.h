// A pointer that holds one reference.

#pragma once

#include <cstddef>
#include <utility>

#include "sdk/com/interface_traits.h"

/// Holds one reference to an object through interface (or class) T and releases it at its end.
template <class T>
class ComPtr {
public:
    ComPtr() = default;
    ComPtr(std::nullptr_t) {}
    /// Takes a reference of its own; to take over one that exists, see `attach`.
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

    /// Gives the reference to the caller.
    T* detach() { return std::exchange(pointer_, nullptr); }

    void reset() {
        if (T* old = detach()) old->Release();
    }

    T* get() const { return pointer_; }
    T* operator->() const { return pointer_; }
    T& operator*() const { return *pointer_; }
    explicit operator bool() const { return pointer_ != nullptr; }
    friend bool operator==(const ComPtr& a, const ComPtr& b) { return a.pointer_ == b.pointer_; }

    /// Where an operation that hands out a reference stores it; lets go of what was held before.
    T** put() {
        reset();
        return &pointer_;
    }
    void** putVoid() { return reinterpret_cast<void**>(put()); }

    /// The object's interface U; null when it has none or there is no object. `id` is for a U
    /// without DSInterfaceTraits.
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

/// Hands a reference to `pointer` out through `out`: null `out` gives E_POINTER.
template <class T>
HRESULT copyReference(const ComPtr<T>& pointer, T** out) {
    if (!out) return E_POINTER;
    *out = ComPtr<T>(pointer).detach();
    return S_OK;
}
