// A tool that draws over the host's viewer and takes the pen, and the base class that implements
// the host's part of it.

#pragma once

#include <string>
#include <utility>

#include "sdk/com/com_object.h"
#include "sdk/com/com_ptr.h"
#include "sdk/com/variant.h"
#include "sdk/pages/undo_style.h"
#include "sdk/properties/properties.h"
#include "sdk/viewer/viewer.h"
#include "sdk/viewer/viewer_surface.h"

/// What the pen does. The position is in world units, from the low corner of the project frame
/// upwards and to the right.
struct tagVWPENEVENT {
    LONG button;  ///< 1 is the main button. Of a move: the button that is down, or 0.
    double x, y;
};

/// The layer in which tools draw.
inline constexpr ULONG VWLAYER_TOOL = 1;

/// All functions are called on the user-interface thread.
struct IDSInteractiveTool : IUnknown {
    /// Draws over the picture.
    virtual HRESULT OnRender(IViewerSurface* surface) = 0;
    /// A property of the operator has changed; see IDSPropertyObserver::PropertyChanged.
    virtual HRESULT OnPropertyChanged(const GUID& id, const DSVARIANT* value) = 0;
    /// The current time has changed, in seconds.
    virtual HRESULT OnOnTimeChange(double seconds) = 0;
    virtual HRESULT OnPenDown(const tagVWPENEVENT* event) = 0;
    virtual HRESULT OnPenMove(const tagVWPENEVENT* event) = 0;
    virtual HRESULT OnPenUp(const tagVWPENEVENT* event) = 0;
    /// The operator is the object whose properties the tool edits.
    virtual HRESULT OnLinkToOperator(IUnknown* object) = 0;
    virtual HRESULT OnUnlinkFromOperator() = 0;
    virtual HRESULT OnLinkToViewer(IUnknown* viewer) = 0;
    virtual HRESULT OnUnlinkFromViewer() = 0;
    /// S_OK if the tool's writes set key frames also on properties without animation, else S_FALSE.
    virtual HRESULT IsAutoKey() = 0;

protected:
    ~IDSInteractiveTool() = default;
};

inline constexpr GUID IID_IDSInteractiveTool =
    ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A22");
template <>
struct DSInterfaceTraits<IDSInteractiveTool> : DSInterface<IID_IDSInteractiveTool> {};

/// Keeps the operator and the viewer. A drag is one undo step: OnBeginInteraction opens a bracket,
/// TerminateInteraction closes it. User-interface thread only, the last Release included.
///
/// The calls that this class makes (to the viewer, its site, the operator) may unlink the tool. The
/// caller of a function holds a reference to the tool.
///
/// The destructor stops observing, ends an interaction that is under way and releases everything.
/// A derived class whose destructor changes properties of the operator unlinks the tool before.
class DSVWR_API CDSInteractiveTool : public ComObject<IDSInteractiveTool> {
public:
    /// Draws nothing. S_OK; E_POINTER for null.
    HRESULT OnRender(IViewerSurface* surface) override;
    /// Called for each change of the linked operator. Does nothing: S_OK; E_INVALIDARG for
    /// GUID_NoProperty.
    HRESULT OnPropertyChanged(const GUID& id, const DSVARIANT* value) override;
    /// Does nothing: S_OK; E_INVALIDARG for a time that is not finite.
    HRESULT OnOnTimeChange(double seconds) override;
    /// Do nothing: S_OK, E_POINTER for null.
    HRESULT OnPenDown(const tagVWPENEVENT* event) override;
    HRESULT OnPenMove(const tagVWPENEVENT* event) override;
    HRESULT OnPenUp(const tagVWPENEVENT* event) override;
    /// Keeps `object` and observes its properties. E_POINTER for null, E_NOINTERFACE for an object
    /// without properties, E_UNEXPECTED if one is linked already, or the failure of
    /// IDSProperties::Advise. A failure changes nothing.
    HRESULT OnLinkToOperator(IUnknown* object) override;
    /// Ends an interaction that is under way. S_FALSE if no operator is linked, else S_OK.
    HRESULT OnUnlinkFromOperator() override;
    /// Keeps the viewer and its site. E_POINTER, E_NOINTERFACE for what is no IDSViewer,
    /// E_UNEXPECTED if one is linked already, or the failure of IDSViewer::GetSite. A failure
    /// changes nothing.
    HRESULT OnLinkToViewer(IUnknown* viewer) override;
    /// Ends an interaction that is under way. S_FALSE if no viewer is linked, else S_OK.
    HRESULT OnUnlinkFromViewer() override;
    /// S_FALSE.
    HRESULT IsAutoKey() override;

protected:
    CDSInteractiveTool();
    CDSInteractiveTool(const CDSInteractiveTool&) = delete;
    CDSInteractiveTool& operator=(const CDSInteractiveTool&) = delete;
    ~CDSInteractiveTool() override;

    /// Both do nothing and return S_FALSE (null for the window) without a viewer.
    HRESULT InvalidateLayer(ULONG layer, const RECT* area);
    HWND GetViewerWindow();

    /// A drag begins: opens an undo bracket with the interaction's name. S_FALSE without a viewer
    /// and if an interaction is under way, which goes on. E_POINTER for null. After a failure of
    /// IDSPageSite::BeginUndo no interaction is under way, and each write is a step of its own.
    HRESULT OnBeginInteraction(const tagVWPENEVENT* event);
    /// A drag goes on: nothing to do. S_OK, E_POINTER for null.
    HRESULT OnDoInteraction(const tagVWPENEVENT* event);
    /// A drag ends: closes the bracket, and gives the status of IDSPageSite::EndUndo. S_FALSE if no
    /// interaction is under way.
    HRESULT TerminateInteraction();
    /// The name of the undo step of the next drag.
    void SetInteractionName(std::wstring name) { interactionName_ = std::move(name); }

    /// Reads a property of the operator at `seconds`, or for DSTIME_CURRENT at the time of the
    /// viewer's site. E_UNEXPECTED without an operator, and without a viewer that is needed for the
    /// time; E_POINTER for a null `value`, E_INVALIDARG for `params` other than null; else the
    /// status of IDSPageSite::GetTime and IDSProperties::GetValue.
    HRESULT GetAnimatedProperty(const GUID& id, VARIANT* value, const DSPARAMS* params,
                                double seconds);
    /// Writes a property of the operator as the user's edit: IDSPageSite::WriteProperty, with
    /// `style` as the undo style. E_UNEXPECTED without an operator or viewer; otherwise fails as
    /// GetAnimatedProperty and WriteProperty do.
    HRESULT SetAnimatedProperty(const GUID& id, const VARIANT* value, const DSPARAMS* params,
                                double seconds, int style);

    /// The linked object; null without one.
    IUnknown* operatorObject() const { return operator_.get(); }
    /// Whether a viewer is linked.
    bool isAttached() const { return static_cast<bool>(viewer_); }

private:
    class Observer;

    HRESULT observe(IUnknown& object);
    void leaveOperator();
    void leaveViewer();

    ComPtr<IUnknown> operator_;
    ComPtr<IDSProperties> properties_;
    ComPtr<Observer> observer_;
    ULONG cookie_ = 0;
    ComPtr<IDSViewer> viewer_;
    ComPtr<IDSPageSite> site_;
    UNDO_STYLE interaction_ = DSUNDO_JOIN;  ///< DSUNDO_JOIN while none is under way.
    std::wstring interactionName_;
};
