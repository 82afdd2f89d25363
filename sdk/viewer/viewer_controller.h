// The host's viewer: which tools draw over it.

#pragma once

#include <vector>

#include "sdk/com/com_ptr.h"

/// The type of a context for an interactive tool.
inline constexpr ULONG VWCONTEXT_INTERACTIVE_TOOL = 19;

/// Has the viewer of `object` show `tool` until the context is removed. The host holds a reference
/// to each of the interfaces; the last two and the number are kept as they are given. `*id` names
/// the context. E_POINTER for a missing tool, object or `id`; E_OUTOFMEMORY. Any thread.
DSVWR_API HRESULT VWControllerPushContext(ULONG type, IUnknown* tool, IUnknown* object,
                                          IUnknown* first, IUnknown* second, double number,
                                          ULONG* id);

/// E_INVALIDARG for a context that is not there.
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

/// The host's side: all contexts, the latest last.
DSVWR_API std::vector<VWContext> VWControllerContexts();
