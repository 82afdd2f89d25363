// The tools that draw over the host's viewer.

#pragma once

#include <functional>
#include <vector>

#include "sdk/com/com_ptr.h"
#include "sdk/viewer/interactive_tool.h"
#include "sdk/viewer/viewer.h"

// A tool is linked when it knows the object that it edits (OnLinkToOperator) and the viewer
// (OnLinkToViewer). All calls of tools and viewers are made on the user-interface thread and
// outside the lock of the contexts: a tool may push and remove contexts and set the viewer while it
// is linked, unlinked or told something.

/// The context type of an interactive tool.
inline constexpr ULONG VWCONTEXT_INTERACTIVE_TOOL = 19;

/// Shows `tool` in the viewer of `object` until the context is removed; `*id` identifies the
/// context. The host keeps a reference to each interface. The last two interfaces and the number
/// are stored unchanged.
///
/// May be called from any thread. On the user-interface thread with a viewer there, an
/// IDSInteractiveTool is linked before the function returns; `*id` is set before. Other tools, and
/// those of other threads, are linked when a viewer is set later; other objects never.
///
/// E_POINTER for a null tool, object or `id`; E_OUTOFMEMORY; the failure of a tool to be linked;
/// and E_ABORT if the context was removed meanwhile. There is then no context.
DSVWR_API HRESULT VWControllerPushContext(ULONG type, IUnknown* tool, IUnknown* object,
                                          IUnknown* first, IUnknown* second, double number,
                                          ULONG* id);

/// Removes a context. A tool that is linked loses the pen (IDSViewer::ReleasePen) and is unlinked
/// from the viewer and then from the object, before the references are released. E_INVALIDARG if
/// there is no context with this `id`; E_UNEXPECTED, and it stays, for a linked tool on a thread
/// other than the user-interface thread.
DSVWR_API HRESULT VWControllerRemoveContext(ULONG id);

struct VWContext {
    ULONG id = 0;
    ULONG type = 0;
    ComPtr<IUnknown> tool;
    ComPtr<IUnknown> object;
    ComPtr<IUnknown> first;
    ComPtr<IUnknown> second;
    double number = 0.0;
    /// The viewer that the tool is linked to; null while it is not linked.
    ComPtr<IDSViewer> viewer = {};
};

/// For hosts: all contexts, in the order in which they were added.
DSVWR_API std::vector<VWContext> VWControllerContexts();

/// For hosts: sets the process's viewer, or removes it if `viewer` is null. The calling thread is
/// then the user-interface thread. First unlinks the tools of all contexts from the previous
/// viewer, as VWControllerRemoveContext does. Then links all tools, in the order of their contexts,
/// and after that tells them the current time of the viewer's site (OnOnTimeChange). The context of
/// a tool that fails stays, without being linked.
///
/// S_OK; E_UNEXPECTED if there is a viewer that another thread has set.
DSVWR_API HRESULT VWControllerSetViewer(IDSViewer* viewer);

/// For hosts: the viewer; null if there is none.
DSVWR_API ComPtr<IDSViewer> VWControllerViewer();

/// For hosts, on the user-interface thread: calls `call` for each tool that is linked to `viewer`,
/// in the order of their contexts. Gives the first failure; the other tools are called all the
/// same.
DSVWR_API HRESULT VWControllerForEachTool(IDSViewer* viewer,
                                          const std::function<HRESULT(IDSInteractiveTool&)>& call);
