// The least that a class of a module is.

#pragma once

#include <functional>

#include "sdk/com/com.h"

namespace ruvex::test {

/// An IUnknown with a count; how many there are and have been is known. What its constructor does
/// besides, a test says.
class PlainObject final : public IUnknown {
public:
    static inline std::function<void()> constructing;
    static inline int made = 0;
    static inline int alive = 0;

    PlainObject() {
        if (constructing) constructing();
        ++made;
        ++alive;
    }

    HRESULT QueryInterface(const GUID& id, void** out) override {
        *out = nullptr;
        if (id != IID_IUnknown) return E_NOINTERFACE;
        *out = this;
        AddRef();
        return S_OK;
    }
    ULONG AddRef() override { return ++references_; }
    ULONG Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

private:
    virtual ~PlainObject() { --alive; }

    ULONG references_ = 1;
};

}  // namespace ruvex::test
