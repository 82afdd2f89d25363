#include <new>

#include "sdk/com/com_object.h"

#ifndef _WIN32

namespace {

/// The free-threaded marshaler. Its IMarshal delegates queries and references to the outer object.
class FreeThreadedMarshaler final : public ComObject<IUnknown> {
public:
    explicit FreeThreadedMarshaler(IUnknown* outer) : marshal_(outer ? *outer : *this) {}

    HRESULT QueryInterface(const GUID& id, void** out) override {
        if (!out) return E_POINTER;
        if (id != IID_IMarshal) return ComObject::QueryInterface(id, out);
        *out = static_cast<IMarshal*>(&marshal_);
        marshal_.AddRef();
        return S_OK;
    }

private:
    class Marshal final : public IMarshal {
    public:
        explicit Marshal(IUnknown& outer) : outer_(outer) {}

        HRESULT QueryInterface(const GUID& id, void** out) override {
            return outer_.QueryInterface(id, out);
        }
        ULONG AddRef() override { return outer_.AddRef(); }
        ULONG Release() override { return outer_.Release(); }

    private:
        IUnknown& outer_;
    };

    Marshal marshal_;
};

}  // namespace

HRESULT CoCreateFreeThreadedMarshaler(IUnknown* outer, IUnknown** marshaler) {
    if (!marshaler) return E_POINTER;
    *marshaler = new (std::nothrow) FreeThreadedMarshaler(outer);
    return *marshaler ? S_OK : E_OUTOFMEMORY;
}

#endif
