#include <atomic>
#include <new>

#include "sdk/com/com.h"

#ifndef _WIN32

namespace {

/// The free-threaded marshaler. It has two faces: its own IUnknown, which the outer object keeps,
/// and IMarshal, which belongs to the outer object and counts there.
class FreeThreadedMarshaler final : public IMarshal {
public:
    explicit FreeThreadedMarshaler(IUnknown* outer)
        : own_(*this), outer_(outer ? *outer : static_cast<IUnknown&>(own_)) {}

    IUnknown* ownUnknown() { return &own_; }

    HRESULT QueryInterface(const GUID& id, void** out) override {
        return outer_.QueryInterface(id, out);
    }
    ULONG AddRef() override { return outer_.AddRef(); }
    ULONG Release() override { return outer_.Release(); }

private:
    class Own final : public IUnknown {
    public:
        explicit Own(FreeThreadedMarshaler& whole) : whole_(whole) {}

        HRESULT QueryInterface(const GUID& id, void** out) override {
            if (!out) return E_POINTER;
            *out = nullptr;
            if (id == IID_IUnknown) {
                *out = static_cast<IUnknown*>(this);
            } else if (id == IID_IMarshal) {
                *out = static_cast<IMarshal*>(&whole_);
            } else {
                return E_NOINTERFACE;
            }
            static_cast<IUnknown*>(*out)->AddRef();
            return S_OK;
        }

        ULONG AddRef() override { return ++references_; }

        ULONG Release() override {
            const ULONG left = --references_;
            if (left == 0) delete &whole_;
            return left;
        }

    private:
        FreeThreadedMarshaler& whole_;
        std::atomic<ULONG> references_{1};
    };

    Own own_;
    IUnknown& outer_;
};

}  // namespace

HRESULT CoCreateFreeThreadedMarshaler(IUnknown* outer, IUnknown** marshaler) {
    if (!marshaler) return E_POINTER;
    *marshaler = nullptr;
    auto* made = new (std::nothrow) FreeThreadedMarshaler(outer);
    if (!made) return E_OUTOFMEMORY;
    *marshaler = made->ownUnknown();
    return S_OK;
}

#endif
