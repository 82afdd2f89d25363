#include "sdk/viewer/interactive_tool.h"

#include <cmath>

#include "sdk/com/guarded.h"

// A call of the viewer, its site or the operator may unlink the tool. Such a call is made through a
// reference of the function's own, and members are looked at again after it.

namespace {

HRESULT needsEvent(const tagVWPENEVENT* event) {
    return event ? S_OK : E_POINTER;
}

/// Replaces DSTIME_CURRENT by the site's time.
HRESULT resolveTime(ComPtr<IDSPageSite> site, double* seconds) {
    if (*seconds != DSTIME_CURRENT) return S_OK;
    return site ? site->GetTime(seconds) : E_UNEXPECTED;
}

}  // namespace

/// Passes notifications on to the tool until it is disconnected. A property container may hold it
/// for longer than that, while it notifies.
class CDSInteractiveTool::Observer final : public ComObject<IDSPropertyObserver> {
public:
    explicit Observer(CDSInteractiveTool& tool) : tool_(&tool) {}

    void disconnect() { tool_ = nullptr; }

    HRESULT PropertyChanged(const GUID& id, const DSVARIANT* value, IUnknown*, const DSPARAMS*,
                            unsigned short) override {
        if (!tool_) return S_OK;
        // The notification may remove the tool from the viewer.
        const ComPtr<CDSInteractiveTool> kept(tool_);
        return kept->OnPropertyChanged(id, value);
    }

private:
    CDSInteractiveTool* tool_;
};

CDSInteractiveTool::CDSInteractiveTool() = default;

CDSInteractiveTool::~CDSInteractiveTool() {
    // First, since closing a bracket may notify: the derived class is gone.
    leaveOperator();
    leaveViewer();
}

HRESULT CDSInteractiveTool::OnRender(IViewerSurface* surface) {
    return surface ? S_OK : E_POINTER;
}

HRESULT CDSInteractiveTool::OnPropertyChanged(const GUID& id, const DSVARIANT*) {
    return id == GUID_NoProperty ? E_INVALIDARG : S_OK;
}

HRESULT CDSInteractiveTool::OnOnTimeChange(double seconds) {
    return std::isfinite(seconds) ? S_OK : E_INVALIDARG;
}

HRESULT CDSInteractiveTool::OnPenDown(const tagVWPENEVENT* event) {
    return needsEvent(event);
}

HRESULT CDSInteractiveTool::OnPenMove(const tagVWPENEVENT* event) {
    return needsEvent(event);
}

HRESULT CDSInteractiveTool::OnPenUp(const tagVWPENEVENT* event) {
    return needsEvent(event);
}

HRESULT CDSInteractiveTool::IsAutoKey() {
    return S_FALSE;
}

HRESULT CDSInteractiveTool::OnLinkToOperator(IUnknown* object) {
    if (!object) return E_POINTER;
    if (operator_) return E_UNEXPECTED;
    return ruvex::guarded([&] { return observe(*object); });
}

HRESULT CDSInteractiveTool::observe(IUnknown& object) {
    const ComPtr<IUnknown> observed(&object);
    const auto properties = observed.query<IDSProperties>();
    if (!properties) return E_NOINTERFACE;
    const auto observer = ComPtr<Observer>::attach(new Observer(*this));
    ULONG cookie = 0;
    if (const HRESULT status = properties->Advise(observer.get(), &cookie); FAILED(status)) {
        return status;
    }
    if (operator_) {
        // Another one was linked during these calls.
        observer->disconnect();
        properties->Unadvise(cookie);
        return E_UNEXPECTED;
    }
    operator_ = observed;
    properties_ = properties;
    observer_ = observer;
    cookie_ = cookie;
    return S_OK;
}

HRESULT CDSInteractiveTool::OnUnlinkFromOperator() {
    if (!operator_) return S_FALSE;
    TerminateInteraction();
    leaveOperator();
    return S_OK;
}

void CDSInteractiveTool::leaveOperator() {
    const ComPtr<IUnknown> left = std::exchange(operator_, nullptr);
    const ComPtr<IDSProperties> properties = std::exchange(properties_, nullptr);
    const ComPtr<Observer> observer = std::exchange(observer_, nullptr);
    const ULONG cookie = std::exchange(cookie_, 0);
    if (observer) observer->disconnect();
    if (properties) properties->Unadvise(cookie);
}

HRESULT CDSInteractiveTool::OnLinkToViewer(IUnknown* viewer) {
    if (!viewer) return E_POINTER;
    if (viewer_) return E_UNEXPECTED;
    const auto linked = ComPtr<IUnknown>(viewer).query<IDSViewer>();
    if (!linked) return E_NOINTERFACE;
    ComPtr<IDSPageSite> site;
    const HRESULT status = linked->GetSite(site.put());
    if (FAILED(status)) return status;
    if (viewer_ || !site) return E_UNEXPECTED;
    viewer_ = linked;
    site_ = site;
    return S_OK;
}

HRESULT CDSInteractiveTool::OnUnlinkFromViewer() {
    if (!viewer_) return S_FALSE;
    leaveViewer();
    return S_OK;
}

void CDSInteractiveTool::leaveViewer() {
    const ComPtr<IDSViewer> left = std::exchange(viewer_, nullptr);
    const ComPtr<IDSPageSite> site = std::exchange(site_, nullptr);
    const UNDO_STYLE style = std::exchange(interaction_, DSUNDO_JOIN);
    if (style != DSUNDO_JOIN) site->EndUndo(style);
}

HRESULT CDSInteractiveTool::InvalidateLayer(ULONG layer, const RECT* area) {
    const ComPtr<IDSViewer> viewer = viewer_;
    return viewer ? viewer->InvalidateLayer(layer, area) : S_FALSE;
}

HWND CDSInteractiveTool::GetViewerWindow() {
    const ComPtr<IDSViewer> viewer = viewer_;
    HWND window = nullptr;
    return viewer && SUCCEEDED(viewer->GetViewerWindow(&window)) ? window : nullptr;
}

HRESULT CDSInteractiveTool::OnBeginInteraction(const tagVWPENEVENT* event) {
    if (!event) return E_POINTER;
    if (!site_ || interaction_ != DSUNDO_JOIN) return S_FALSE;
    return ruvex::guarded([&] {
        const ComPtr<IDSPageSite> site = site_;
        const std::wstring name = interactionName_;
        const DSUNDOINFO info{.name = name.c_str(), .mergeKey = 0};
        UNDO_STYLE style = DSUNDO_JOIN;
        const HRESULT status = site->BeginUndo(&info, &style);
        if (FAILED(status)) return status;
        if (site_ == site && interaction_ == DSUNDO_JOIN) {
            interaction_ = style;
            return S_OK;
        }
        // The tool was unlinked during the call, or another interaction has begun.
        site->EndUndo(style);
        return S_FALSE;
    });
}

HRESULT CDSInteractiveTool::OnDoInteraction(const tagVWPENEVENT* event) {
    return needsEvent(event);
}

HRESULT CDSInteractiveTool::TerminateInteraction() {
    const ComPtr<IDSPageSite> site = site_;
    const UNDO_STYLE style = std::exchange(interaction_, DSUNDO_JOIN);
    return style == DSUNDO_JOIN ? S_FALSE : site->EndUndo(style);
}

HRESULT CDSInteractiveTool::GetAnimatedProperty(const GUID& id, VARIANT* value,
                                                const DSPARAMS* params, double seconds) {
    if (!value) return E_POINTER;
    if (params) return E_INVALIDARG;
    const ComPtr<IDSProperties> properties = properties_;
    if (!properties) return E_UNEXPECTED;
    const HRESULT status = resolveTime(site_, &seconds);
    return FAILED(status) ? status : properties->GetValue(id, seconds, value);
}

HRESULT CDSInteractiveTool::SetAnimatedProperty(const GUID& id, const VARIANT* value,
                                                const DSPARAMS* params, double seconds, int style) {
    if (!value) return E_POINTER;
    if (params) return E_INVALIDARG;
    const ComPtr<IUnknown> object = operator_;
    const ComPtr<IDSPageSite> site = site_;
    if (!object || !site) return E_UNEXPECTED;
    if (const HRESULT status = resolveTime(site, &seconds); FAILED(status)) return status;
    return site->WriteProperty(object.get(), id, seconds, value, static_cast<UNDO_STYLE>(style));
}
