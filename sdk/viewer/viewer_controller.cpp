#include "sdk/viewer/viewer_controller.h"

#include <algorithm>
#include <mutex>
#include <thread>
#include <utility>

#include "sdk/com/guarded.h"
#include "sdk/viewer/tool_link.h"

namespace {

using ToolCall = std::function<HRESULT(IDSInteractiveTool&)>;

struct ContextEntry {
    VWContext context;
    ComPtr<IDSInteractiveTool> tool;  ///< Null for an object of another kind.
    /// A function further up the call stack is linking or unlinking the tool. Others leave that to
    /// it: it looks at the entry again when the tool has returned.
    bool isChanging = false;
};

/// Calls out are made without the lock, after which an entry has to be looked for again.
class ViewerController {
public:
    HRESULT push(VWContext context, ULONG* id);
    HRESULT remove(ULONG id);
    HRESULT setViewer(IDSViewer* viewer);
    ComPtr<IDSViewer> viewer();
    std::vector<VWContext> contexts();
    HRESULT forEachTool(IDSViewer* viewer, const ToolCall& call);
    /// Without the lock: for the end of the process, when no other thread runs.
    bool hasContexts() const { return !entries_.empty(); }

private:
    using Lock = std::lock_guard<std::mutex>;

    /// The calling thread holds the lock.
    ContextEntry* find(ULONG id);
    bool isUserInterfaceThread() const { return thread_ == std::this_thread::get_id(); }

    HRESULT add(VWContext context, ULONG* id, bool* links);
    HRESULT link(ULONG id);
    HRESULT beginLinking(ULONG id, VWToolLink& link);
    bool keepLink(ULONG id, const VWToolLink& link);
    void unlink(ULONG id);
    void endChange(ULONG id);
    ComPtr<IDSViewer> takeViewer();
    ComPtr<IDSInteractiveTool> linkedTool(ULONG id, IDSViewer* viewer);
    void tellTime(IDSViewer& viewer);
    ULONG nextId(ULONG id);
    template <class Operation>
    void forEachId(Operation operation);

    std::mutex mutex_;
    std::vector<ContextEntry> entries_;  ///< Sorted by identifier.
    ULONG lastId_ = 0;
    ComPtr<IDSViewer> viewer_;
    std::thread::id thread_;  ///< The thread that has set the viewer last.
};

ContextEntry* ViewerController::find(ULONG id) {
    const auto idOf = [](const ContextEntry& entry) { return entry.context.id; };
    const auto found = std::ranges::find(entries_, id, idOf);
    return found == entries_.end() ? nullptr : &*found;
}

/// The smallest identifier above `id`; 0 if there is none.
ULONG ViewerController::nextId(ULONG id) {
    const Lock lock(mutex_);
    const auto idOf = [](const ContextEntry& entry) { return entry.context.id; };
    const auto next = std::ranges::upper_bound(entries_, id, {}, idOf);
    return next == entries_.end() ? 0 : next->context.id;
}

/// Calls `operation(id)` for the contexts that are there now; it may add and remove some.
template <class Operation>
void ViewerController::forEachId(Operation operation) {
    ULONG last = 0;
    {
        const Lock lock(mutex_);
        last = lastId_;
    }
    for (ULONG id = nextId(0); id != 0 && id <= last; id = nextId(id)) operation(id);
}

HRESULT ViewerController::push(VWContext context, ULONG* id) {
    bool links = false;
    if (const HRESULT status = add(std::move(context), id, &links); FAILED(status)) return status;
    const ULONG added = *id;
    const HRESULT status = links ? link(added) : S_OK;
    if (FAILED(status)) remove(added);
    return FAILED(status) ? status : S_OK;
}

HRESULT ViewerController::add(VWContext context, ULONG* id, bool* links) {
    return ruvex::guarded([&] {
        ContextEntry entry{std::move(context), {}};
        entry.tool = entry.context.tool.query<IDSInteractiveTool>();
        const Lock lock(mutex_);
        entry.context.id = lastId_ + 1;
        entries_.push_back(std::move(entry));
        *id = ++lastId_;
        *links = viewer_ && isUserInterfaceThread();
        return S_OK;
    });
}

HRESULT ViewerController::remove(ULONG id) {
    // Released without the lock: the destructor of a tool may call the viewer again.
    ContextEntry removed;
    {
        const Lock lock(mutex_);
        ContextEntry* const found = find(id);
        if (!found) return E_INVALIDARG;
        const bool isInUse = found->isChanging || found->context.viewer;
        if (isInUse && !isUserInterfaceThread()) return E_UNEXPECTED;
        removed = std::move(*found);
        entries_.erase(entries_.begin() + (found - entries_.data()));
    }
    const VWContext& context = removed.context;
    if (context.viewer) VWToolLink{context.object, context.viewer, removed.tool}.disconnect();
    return S_OK;
}

/// S_FALSE if there is nothing to link, E_ABORT if there is no such context. Starts again if the
/// viewer is replaced meanwhile.
HRESULT ViewerController::link(ULONG id) {
    for (;;) {
        VWToolLink link;
        if (const HRESULT begun = beginLinking(id, link); begun != S_OK) return begun;
        const HRESULT status = link.connect();
        if (SUCCEEDED(status) && keepLink(id, link)) return S_OK;
        if (SUCCEEDED(status)) link.disconnect();
        endChange(id);
        if (FAILED(status)) return status;
    }
}

HRESULT ViewerController::beginLinking(ULONG id, VWToolLink& link) {
    const Lock lock(mutex_);
    ContextEntry* const entry = find(id);
    if (!entry) return E_ABORT;
    const bool isInUse = entry->isChanging || entry->context.viewer;
    if (!entry->tool || !viewer_ || isInUse) return S_FALSE;
    entry->isChanging = true;
    link = {entry->context.object, viewer_, entry->tool};
    return S_OK;
}

/// False if the context was removed, or the viewer replaced, while the tool was being linked.
bool ViewerController::keepLink(ULONG id, const VWToolLink& link) {
    const Lock lock(mutex_);
    ContextEntry* const entry = find(id);
    if (!entry || viewer_ != link.viewer) return false;
    entry->context.viewer = link.viewer;
    entry->isChanging = false;
    return true;
}

void ViewerController::endChange(ULONG id) {
    const Lock lock(mutex_);
    if (ContextEntry* const entry = find(id)) entry->isChanging = false;
}

void ViewerController::unlink(ULONG id) {
    VWToolLink link;
    {
        const Lock lock(mutex_);
        ContextEntry* const entry = find(id);
        if (!entry || !entry->context.viewer) return;
        entry->isChanging = true;
        link = {entry->context.object, std::exchange(entry->context.viewer, nullptr), entry->tool};
    }
    link.disconnect();
    endChange(id);
}

ComPtr<IDSViewer> ViewerController::takeViewer() {
    const Lock lock(mutex_);
    return std::exchange(viewer_, nullptr);
}

HRESULT ViewerController::setViewer(IDSViewer* viewer) {
    {
        const Lock lock(mutex_);
        if (viewer_ && !isUserInterfaceThread()) return E_UNEXPECTED;
        thread_ = std::this_thread::get_id();
    }
    // A tool that is unlinked may set another viewer.
    while (const ComPtr<IDSViewer> previous = takeViewer()) {
        forEachId([&](ULONG id) { unlink(id); });
    }
    if (!viewer) return S_OK;
    {
        const Lock lock(mutex_);
        viewer_ = viewer;
    }
    forEachId([&](ULONG id) { link(id); });
    if (const ComPtr<IDSViewer> current = this->viewer()) tellTime(*current);
    return S_OK;
}

void ViewerController::tellTime(IDSViewer& viewer) {
    ComPtr<IDSPageSite> site;
    double seconds = 0.0;
    if (FAILED(viewer.GetSite(site.put())) || !site || FAILED(site->GetTime(&seconds))) return;
    forEachTool(&viewer,
                [seconds](IDSInteractiveTool& tool) { return tool.OnOnTimeChange(seconds); });
}

ComPtr<IDSViewer> ViewerController::viewer() {
    const Lock lock(mutex_);
    return viewer_;
}

std::vector<VWContext> ViewerController::contexts() {
    std::vector<VWContext> copies;
    const Lock lock(mutex_);
    for (const ContextEntry& entry : entries_) copies.push_back(entry.context);
    return copies;
}

ComPtr<IDSInteractiveTool> ViewerController::linkedTool(ULONG id, IDSViewer* viewer) {
    const Lock lock(mutex_);
    const ContextEntry* const entry = find(id);
    return entry && viewer && entry->context.viewer.get() == viewer ? entry->tool : nullptr;
}

HRESULT ViewerController::forEachTool(IDSViewer* viewer, const ToolCall& call) {
    HRESULT result = S_OK;
    forEachId([&](ULONG id) {
        const ComPtr<IDSInteractiveTool> tool = linkedTool(id, viewer);
        if (!tool) return;
        const HRESULT status = ruvex::guarded([&] { return call(*tool); });
        if (SUCCEEDED(result) && FAILED(status)) result = status;
    });
    return result;
}

/// A controller that is not destroyed while it has contexts. At the end of a process that has left
/// some, the modules of their tools may be unloaded already.
union ControllerHolder {
    ControllerHolder() : controller() {}
    ~ControllerHolder() {
        if (!controller.hasContexts()) controller.~ViewerController();
    }

    ViewerController controller;
};

ViewerController& controller() {
    static ControllerHolder holder;
    return holder.controller;
}

}  // namespace

HRESULT VWControllerPushContext(ULONG type, IUnknown* tool, IUnknown* object, IUnknown* first,
                                IUnknown* second, double number, ULONG* id) {
    if (!tool || !object || !id) return E_POINTER;
    return controller().push({0, type, tool, object, first, second, number}, id);
}

HRESULT VWControllerRemoveContext(ULONG id) {
    return controller().remove(id);
}

std::vector<VWContext> VWControllerContexts() {
    return controller().contexts();
}

HRESULT VWControllerSetViewer(IDSViewer* viewer) {
    return controller().setViewer(viewer);
}

ComPtr<IDSViewer> VWControllerViewer() {
    return controller().viewer();
}

HRESULT VWControllerForEachTool(IDSViewer* viewer, const ToolCall& call) {
    return controller().forEachTool(viewer, call);
}
