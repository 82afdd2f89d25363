// The host's base class of property pages: it owns the dialog, and keeps its controls, the page's
// bound variables and the properties of the inspected object in step.

#pragma once

#include <vector>

#include "sdk/com/com_ptr.h"
#include "sdk/controls/number_control.h"
#include "sdk/pages/control_map.h"
#include "sdk/pages/list_choice.h"
#include "sdk/pages/page_site.h"
#include "sdk/pages/property_page_interface.h"
#include "sdk/pages/undo_style.h"

/// The life of a page: SetPageSite, SetObjects (subscribes to the changes of the objects), Activate
/// (creates the dialog, its controls and tool-tips, calls OnInitDialog, fills the bound variables
/// and sets the controls, calls UpdateAnimatedControls), Show any number of times, Deactivate,
/// SetObjects(0), SetPageSite(null).
///
/// An edit by the user changes, in this order: the control, the bound variable, the property (whose
/// container notifies all pages, this one included); then the entry's notify function is called. A
/// change by the program notifies nobody.
///
/// A property for the user interface alone (DSCAPS_USER_INTERFACE) is neither read nor written: its
/// control and its bound variable are kept in step with each other.
///
/// All calls are made on the user-interface thread, except AddRef and Release.
class DSSDK_API CDSBasePropertyPage : public IPropertyPage, public IDsPropertyPage {
public:
    /// The base of all control maps; it has no entries.
    static CDSPPGControlMap m_ControlMap;

    HRESULT SetPageSite(IPropertyPageSite* site) override;
    HRESULT Activate(HWND parent, const RECT* place, BOOL modal) override;
    HRESULT Deactivate() override;
    HRESULT GetPageInfo(PROPPAGEINFO* info) override;
    HRESULT SetObjects(ULONG count, IUnknown** objects) override;
    /// Shows the dialog (SW_SHOWNORMAL, SW_SHOW, SW_SHOWNA) or hides it (SW_HIDE). E_UNEXPECTED if
    /// the page is not activated, E_INVALIDARG for other commands.
    HRESULT Show(UINT command) override;
    HRESULT Move(const RECT* place) override;
    /// S_FALSE: every edit is applied at once.
    HRESULT IsPageDirty() override { return S_FALSE; }
    HRESULT Apply() override { return S_OK; }
    HRESULT Help(LPCOLESTR helpFolder) override;
    HRESULT TranslateAccelerator(MSG*) override { return E_NOTIMPL; }

    /// Updates the bound variables of the property's entries, or of all, and their controls.
    HRESULT PropertyChanged(const GUID& id, const DSVARIANT* value, IUnknown* object,
                            const DSPARAMS* params, unsigned short classification) override;
    HRESULT OnTimeChange(double seconds) override { return UpdateAnimatedControls(seconds); }
    HRESULT GetPageWindow(HWND* window) override;

    /// The class's control map.
    virtual const CDSPPGControlMap* GetControlMap();
    virtual ~CDSBasePropertyPage();
    /// The module whose resources the page uses.
    virtual HINSTANCE GetResourceInstance() = 0;
    /// Called at the end of the dialog's creation. Nothing in a page depends on this base function.
    virtual HRESULT OnInitDialog() { return S_OK; }
    /// Reads the animatable properties at `time` (seconds) into bound variables and controls.
    virtual HRESULT UpdateAnimatedControls(double time);
    /// Shows the bound variable of a control's entry in the control. Does nothing without the
    /// control.
    virtual void SetControlFromBoundVariable(UINT controlId);
    /// The class identifier of the page's kind; GUID_NoProperty if it has none.
    virtual const GUID& GetPPGID();

    /// Write and read a property of the first inspected object. `params` is always null; a time of
    /// DSTIME_CURRENT is the current one. E_UNEXPECTED without an object; else the status of the
    /// host.
    HRESULT SetPlainProperty(const GUID& id, const VARIANT* value, const DSPARAMS* params,
                             UNDO_STYLE style);
    HRESULT GetPlainProperty(const GUID& id, VARIANT* value, const DSPARAMS* params);
    HRESULT SetAnimatedProperty(const GUID& id, const VARIANT* value, const DSPARAMS* params,
                                UNDO_STYLE style, double time);
    HRESULT GetAnimatedProperty(const GUID& id, VARIANT* value, const DSPARAMS* params,
                                double time);

    /// The window of a control; null if there is none.
    HWND GetHwndControl(UINT controlId) const;
    HWND GetHwndDialog() const { return dialog_; }

    ULONG GetObjectCount() const { return static_cast<ULONG>(objects_.size()); }
    /// An inspected object; null if there is none with this index.
    IUnknown* GetInspectedObject(ULONG index = 0) const;
    IDSPageSite* GetSite() const { return site_.get(); }
    /// The user's last command on a control of this page.
    const DSCTLCOMMANDNOTIFY& GetLastCommand() const { return lastCommand_; }
    /// The name of the undo step of a command: of a button "Reset: Guns", of a list of commands
    /// "Preset: Good TV", of a colour chip the title of its group, otherwise the page's title.
    std::wstring CommandName(const DSCTLCOMMANDNOTIFY& command);

protected:
    CDSBasePropertyPage(UINT dialogId, UINT titleId);
    CDSBasePropertyPage(const CDSBasePropertyPage&) = delete;
    CDSBasePropertyPage& operator=(const CDSBasePropertyPage&) = delete;

private:
    struct Observed {
        ComPtr<IUnknown> object;
        ComPtr<IDSProperties> properties;
    };

    static INT_PTR dialogMessage(HWND dialog, UINT message, WPARAM wide, LPARAM extra);
    HRESULT prepareDialog(const RECT* place);
    void listenToControls();
    void addToolTips();
    void fillFromProperties();

    HRESULT takeObjects(ULONG count, IUnknown** objects);
    void forgetObjects();
    IDSProperties* properties() const;
    const CDSParamDef* definitionOf(const GUID& id) const;
    /// Whether the entry's bound variable follows a property of the object.
    bool followsProperty(const CDSPPGControlMapEntry& entry) const;
    double secondsOf(double time) const;
    HRESULT read(const GUID& id, VARIANT* value, double time) const;
    HRESULT write(const GUID& id, const VARIANT* value, UNDO_STYLE style, double time);
    void updateEntry(const CDSPPGControlMapEntry& entry, double time);

    void onCommand(UINT controlId, UINT code);
    /// Whether a list's items are no values of the object, but commands.
    bool isCommandList(const CDSPPGControlMapEntry& entry) const;
    bool isEdit(const CDSPPGControlMapEntry& entry, UINT code);
    void onNumber(UINT controlId, DSNumberEdit edit);
    void onChip(UINT controlId);
    void noteCommand(UINT controlId, UINT code);
    void readControl(const CDSPPGControlMapEntry& entry);
    void showEntry(const CDSPPGControlMapEntry& entry);
    /// Writes the bound variable to the property, if the entry has one.
    void writeEntry(const CDSPPGControlMapEntry& entry, UNDO_STYLE style);
    void writeStep(const CDSPPGControlMapEntry& entry);
    void notify(const CDSPPGControlMapEntry& entry);
    void beginDrag();
    void endDrag();
    /// Returns whether the host has undone the writes of the drag.
    bool cancelDrag();

    UINT dialogId_;
    UINT titleId_;
    HWND dialog_ = nullptr;
    ComPtr<IDSPageSite> site_;
    std::vector<Observed> objects_;
    /// Of the notifications of the first object; 0 without one.
    ULONG cookie_ = 0;
    DSCTLCOMMANDNOTIFY lastCommand_;
    DSListChoice listChoice_;
    /// The bracket of a drag that is under way, or DSUNDO_OWN_STEP.
    UNDO_STYLE dragStyle_ = DSUNDO_OWN_STEP;
};
