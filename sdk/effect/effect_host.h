// The host's interface for an effect during a render: frames at other times and interruption.

#pragma once

#include "sdk/com/interface_traits.h"

/// Both functions may be called from any thread; QueryInterruption from several at once.
struct IDSEffectHost : IUnknown {
    /// Gives input `inputIndex` at time `seconds`, an object with the interface IDSImage, which the
    /// caller releases at the end of the frame. `executeContext` is the one that the host passed to
    /// the effect for this render. If the host refuses, returns a failure and null in `*frame`.
    virtual HRESULT GetInputFrame(IUnknown* executeContext, ULONG inputIndex, double seconds,
                                  IUnknown** frame) = 0;
    /// 0: continue; any other value: stop the render as soon as possible.
    virtual HRESULT QueryInterruption() = 0;

protected:
    ~IDSEffectHost() = default;
};

inline constexpr GUID IID_IDSEffectHost =
    ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A12");
template <>
struct DSInterfaceTraits<IDSEffectHost> : DSInterface<IID_IDSEffectHost> {};
