// The base class of this family's property pages.

#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "host/base/module_use.h"
#include "pages/effect_reference.h"
#include "pages/page_entry.h"
#include "pages/ppg_colour_group.h"
#include "parameters/control_rules.h"
#include "parameters/reset_values.h"
#include "sdk/pages/property_page.h"

namespace ruvex {

/// Adds to the host's page: the records that bind properties to controls, the link to the effect
/// behind the page, the grouping of a Reset or a preset into one undo step, and the rules that show
/// and enable controls.
///
/// The first base is the last part that is destroyed: the module may be unloaded afterwards.
class VxDsPPG : private ModuleUse, public CDSPropertyPage {
public:
    /// `name` (may be null) is handed to the effect when the page comes to the front.
    VxDsPPG(UINT dialogId, UINT titleId, const char* name);
    ~VxDsPPG() override;

    /// Shows or hides the page, and tells the effect that it is in front (SW_SHOWNORMAL, SW_SHOW).
    /// Calls the host's Show twice, which is required of this family's pages, and returns its first
    /// failure.
    HRESULT Show(UINT command) override;
    /// Opens the manual; 0.
    HRESULT Help(LPCOLESTR helpFolder) override;
    HRESULT PropertyChanged(const GUID& id, const DSVARIANT* value, IUnknown* object,
                            const DSPARAMS* params, unsigned short classification) override;
    HINSTANCE GetResourceInstance() override { return moduleInstance; }
    /// Prepares the controls and links the page to its effect.
    HRESULT OnInitDialog() override;
    HRESULT UpdateAnimatedControls(double time) override;
    virtual HRESULT aggregationResult() { return CLASS_E_NOAGGREGATION; }

    /// Begins an undo step, named after the last command. `out` (may be null) receives its style.
    void BeginPageUndo(UNDO_STYLE* out = nullptr);
    void EndPageUndo();
    /// The tool with the on-screen controls; null if there is none.
    IUnknown* GetInteractiveTool() const;
    /// Counts this page as a user of the on-screen controls and returns their tool.
    IUnknown* ConnectInteractiveTool();

    /// A window of the dialog; null if there is none.
    HWND item(UINT id) const { return GetDlgItem(GetHwndDialog(), static_cast<int>(id)); }
    /// Sets the text of a static to an 8-bit string, each byte one character, at most 2047 of them.
    void SetItemText(UINT id, std::string_view text);

    /// The effect behind the page; null if the inspected object is another one.
    VxDsEffect* effect = nullptr;
    CDSUndoStyleMgr undoManager;
    UNDO_STYLE undoStyle = DSUNDO_OWN_STEP;
    /// Above 0 while the page writes properties and must not react to the notifications.
    std::int32_t notifySuppress = 0;
    bool isShown = false;
    /// During a notification: the property that changed, and where the pointer to its value is
    /// kept. Null at all other times.
    const GUID* changedProperty = nullptr;
    const DSVARIANT* const* changedValue = nullptr;

protected:
    /// Fills in the records of the page. `entries` outlive the page.
    void fillRecords(std::span<const PageEntry> entries);
    /// Fills the combo boxes and sets the ranges of the records that have controls, in their order.
    void prepareControls();
    /// Links the page to the effect that answers `classId`, and to its on-screen controls.
    void linkEffect(const GUID& classId);
    /// Writes values in their order, each through its record. The components of the page's colour
    /// group are written together, where the first of them stands.
    void writeValues(std::span<const ParameterValue> values);
    /// Sets the values of this page back, in one undo step, and applies its rules.
    void resetPage(ParameterPage page);
    /// Shows or enables the controls as the page's rules say.
    void applyRules(ParameterPage page);

    /// Applies all rules of the page; called after the page was shown or reset.
    virtual void updateControls() {}
    /// Reacts to a property that has changed.
    virtual void reactToNotification() {}
    /// Whether `notifySuppress` holds back `reactToNotification`.
    virtual bool canSuppress() const { return true; }
    /// The page's colour group; null if it has none.
    virtual VxPPGColourGroup* colourGroup() { return nullptr; }

private:
    friend class NotificationScope;

    const PageEntry* entryOf(ParameterId id) const;
    /// The index of a parameter among the components of the page's colour group; no value for all
    /// other parameters.
    std::optional<std::size_t> colourComponent(ParameterId id);
    void writeColour(std::span<const ParameterValue> values);
    void showControls(const ControlRule& rule, bool show);
    void enableControls(const ControlRule& rule, bool enable);

    std::optional<std::string> pageName_;
    std::span<const PageEntry> entries_;
    EffectReference effectReference_;
};

}  // namespace ruvex
