// The object by which tools know the stand-in host's viewer.

#pragma once

#include <functional>

#include "runtime/page_site.h"
#include "runtime/viewer_pen.h"
#include "sdk/com/com_object.h"
#include "sdk/viewer/viewer.h"

namespace ruvex::runtime {

/// Is called when a layer, or the part `area` of it in pixels if that is not null, has to be drawn
/// again.
using ViewerRedraw = std::function<void(ULONG layer, const RECT* area)>;

/// Its site is one of the editor's page sites.
class ViewerObject final : public ComObject<IDSViewer> {
public:
    ViewerObject(Editor& editor, ViewerRedraw redraw);

    HRESULT InvalidateLayer(ULONG layer, const RECT* area) override;
    HRESULT GetViewerWindow(HWND* window) override;
    HRESULT GetSite(IDSPageSite** site) override;
    /// S_FALSE if the pen is not down in this tool.
    HRESULT ReleasePen(IUnknown* tool) override;

    /// Ends the brackets of the site and the connection to the editor, which may then be destroyed.
    /// From then on all functions of IDSViewer return E_UNEXPECTED.
    void detach();

    void setWindow(HWND window) { window_ = window; }
    ViewerPen& pen() { return pen_; }

private:
    Editor* editor_;
    ComPtr<PageSite> site_;
    ViewerRedraw redraw_;
    HWND window_ = nullptr;
    ViewerPen pen_;
};

}  // namespace ruvex::runtime
