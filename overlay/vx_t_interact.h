// The tool in the host's viewer that shows the on-screen controls.

#pragma once

#include "host/base/module_use.h"
#include "overlay/vx_t_2d_axis_group.h"
#include "overlay/vx_t_ds_object.h"
#include "overlay/vx_t_group.h"
#include "overlay/vx_t_manager.h"
#include "sdk/viewer/interactive_tool.h"

namespace ruvex {

/// A tool of the host, and the root of a tree of controls in user units of the project frame: it
/// turns pen events into messages for the tree, draws the tree with OpenGL, and hands changes of
/// properties and of the time to the bound objects. One tool serves all open pages of an effect. It
/// may outlive the effect, and the effect may outlive it. User-interface thread only.
///
/// ModuleUse is the first base class, so that its destructor runs last: the module may be unloaded
/// as soon as its count is 0.
class VxTInteract final : private ModuleUse, public CDSInteractiveTool, public VxTManager {
public:
    enum ToolFlags : std::uint32_t { kOverlayEnabled = 1 };

    /// Reads the size of the project. Where that fails, the frame is 0x0 and `userScale` is 1.
    VxTInteract();

    /// Also gives the tool itself, for its class identifier.
    HRESULT QueryInterface(const GUID& id, void** out) override;
    HRESULT OnRender(IViewerSurface* surface) override;
    HRESULT OnPropertyChanged(const GUID& id, const DSVARIANT* value) override;
    HRESULT OnOnTimeChange(double seconds) override;
    HRESULT OnPenDown(const tagVWPENEVENT* event) override;
    HRESULT OnPenMove(const tagVWPENEVENT* event) override;
    HRESULT OnPenUp(const tagVWPENEVENT* event) override;
    HRESULT OnLinkToOperator(IUnknown* object) override;
    HRESULT OnUnlinkFromOperator() override;
    HRESULT OnLinkToViewer(IUnknown* viewer) override;
    HRESULT OnUnlinkFromViewer() override;
    /// The status for a host that tries to aggregate the tool.
    virtual HRESULT aggregationResult();

    /// Binds an object, which then reads its properties. Ignored for null and for an object that is
    /// bound already. An object of another tool is removed from that one. Throws std::bad_alloc.
    void AddDsObject(VxTDsObject* object);
    void RemoveDsObject(VxTDsObject* object);

    /// Reads a property of the effect at a time (or DSTIME_CURRENT). False, with `*out` unchanged,
    /// if the tool is not linked, for GUID_NoProperty, and if the host refuses.
    bool GetAnimatedDouble(const GUID& id, double* out, double seconds);
    /// The same at the current time, but only if a change of `changed` is one of the property.
    bool GetAnimatedDoubleIfChanged(const GUID& changed, const GUID& id, double* out);
    /// Writes a property of the effect at the current time, as a part of the drag's undo step.
    /// False where GetAnimatedDouble is.
    bool SetAnimatedDouble(const GUID& id, double value);
    /// Schedules a redraw.
    void Invalidate();
    /// The input's rectangle in the frame has changed. Differences up to 0.01 are ignored.
    void SetSourceRect(VxPosition origin, VxPosition newSize);
    /// Names the undo step of a drag.
    using CDSInteractiveTool::SetInteractionName;

    bool isEnabled() const { return (toolFlags & kOverlayEnabled) != 0; }
    /// Shows or hides all controls. Hiding them ends a drag that is under way, as if the pen had
    /// gone up.
    void setEnabled(bool enabled);

    /// The project frame in user units.
    std::int32_t frameWidth = 0;
    std::int32_t frameHeight = 0;
    float userScale = 1.0f;  ///< World units per user unit.
    /// 1 while linked to an operator or a viewer; unlinking from either clears it.
    std::int32_t isLinked = 0;
    std::uint32_t toolFlags = kOverlayEnabled;
    std::uint32_t fontLists = 0;  ///< 0 until the first render.
    VxT2DAxisGroup frameCentre;
    VxT2DAxisGroup srcCentre;
    VxTGroup viewZero;
    VxPosition sourceOrigin;
    VxPosition sourceSize;
    VxList<VxTDsObject*> dsObjects;

private:
    ~VxTInteract() override;

    /// References to the tool and its operator during a call, which may unlink and release both.
    struct Kept {
        explicit Kept(VxTInteract& interact) : tool(&interact), effect(interact.operatorObject()) {}
        ComPtr<CDSInteractiveTool> tool;
        ComPtr<IUnknown> effect;
    };

    bool handles(const tagVWPENEVENT* event) const;
    void endPress();
    void sendPen(VxMessageId id, const tagVWPENEVENT& event);
    void addAnchor(VxT2DAxisGroup& anchor, VxPosition centre);
    // In interact_render.cpp.
    void renderControls(const tagVWOPENGLSURFACE& surface);
};

/// The tool behind an object of the host; null if it is another.
ComPtr<VxTInteract> interactiveTool(IUnknown* object);

}  // namespace ruvex
