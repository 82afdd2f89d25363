// The tools that draw over the host's viewer.

#pragma once

#include <vector>

#include "sdk/com/com_ptr.h"

/// The context type of an interactive tool.
inline constexpr ULONG VWCONTEXT_INTERACTIVE_TOOL = 19;

/// Shows `tool` in the viewer of `object` until the context is removed; `*id` identifies the
/// context. The host keeps a reference to each interface. The last two interfaces and the number
/// are stored unchanged. E_POINTER for a null tool, object or `id`; E_OUTOFMEMORY. May be called
/// from any thread.
DSVWR_API HRESULT VWControllerPushContext(ULONG type, IUnknown* tool, IUnknown* object,
                                          IUnknown* first, IUnknown* second, double number,
                                          ULONG* id);

/// Removes a context; E_INVALIDARG if there is none with this `id`.
DSVWR_API HRESULT VWControllerRemoveContext(ULONG id);

struct VWContext {
    ULONG id;
    ULONG type;
    ComPtr<IUnknown> tool;
    ComPtr<IUnknown> object;
    ComPtr<IUnknown> first;
    ComPtr<IUnknown> second;
    double number;
};

/// For hosts: all contexts, in the order in which they were added.
DSVWR_API std::vector<VWContext> VWControllerContexts();
