// What an effect may ask of its host while it renders.

#pragma once

#include "sdk/com/interface_traits.h"

/// Both operations may be called from any thread, and the second one is called from many at once.
struct IDSEffectHost : IUnknown {
    /// Input `inputIndex` as it is at `seconds`, as an object that answers to IID_IDSImage; the
    /// caller releases it when the frame is done. `executeContext` is the one that the effect was
    /// given for this render. A failure, with `*frame` null, when the host refuses.
    virtual HRESULT GetInputFrame(IUnknown* executeContext, ULONG inputIndex, double seconds,
                                  IUnknown** frame) = 0;
    /// 0 to go on, anything else to stop as soon as possible.
    virtual HRESULT QueryInterruption() = 0;

protected:
    ~IDSEffectHost() = default;
};

inline constexpr GUID IID_IDSEffectHost =
    ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A12");
template <>
struct DSInterfaceTraits<IDSEffectHost> : DSInterface<IID_IDSEffectHost> {};
