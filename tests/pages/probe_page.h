// A page with a record of each kind, and a host that notes what the page asks of it.

#pragma once

#include <map>
#include <string>
#include <vector>

#include "pages/vx_ds_ppg.h"
#include "sdk/com/com_object.h"

namespace ruvex::test {

/// Properties that are kept in a list. Notes every call; fails if it is told to.
class ScriptedObject final : public ComObject<IDSProperties> {
public:
    struct Write {
        GUID id;
        double seconds;
        VARIANT value;
        UNDO_STYLE style;
    };

    HRESULT GetPropertyCount(ULONG* count) override { return *count = 0, S_OK; }
    HRESULT GetPropertyDef(ULONG, const CDSParamDef**) override { return E_INVALIDARG; }
    HRESULT GetValue(const GUID& id, double seconds, VARIANT* value) override;
    HRESULT SetValue(const GUID& id, double seconds, const VARIANT* value) override;
    HRESULT SetKeys(const GUID&, const DSKey*, ULONG) override { return E_NOTIMPL; }
    HRESULT ClearKeys(const GUID&) override { return E_NOTIMPL; }
    HRESULT GetKeys(const GUID&, DSKey*, ULONG, ULONG*) override { return E_NOTIMPL; }
    HRESULT GetPlainValue(const GUID&, VARIANT*) override { return E_NOTIMPL; }
    HRESULT SetStates(const DSPropertyState*, ULONG) override { return E_NOTIMPL; }
    HRESULT Advise(IDSPropertyObserver*, ULONG* cookie) override { return *cookie = 1, S_OK; }
    HRESULT Unadvise(ULONG) override { return S_OK; }

    std::map<GUID, VARIANT, GuidLess> values;
    std::vector<GUID> reads;
    std::vector<double> readTimes;
    std::vector<Write> writes;
    bool fails = false;
    /// The style of the write that is under way, which its site knows.
    UNDO_STYLE style = 0;
};

/// A site without undo that notes the styles and brackets.
class ScriptedSite final : public ComObject<IDSPageSite> {
public:
    explicit ScriptedSite(ScriptedObject& object) : object_(&object) {}

    HRESULT GetTime(double* seconds) override { return *seconds = time, status; }
    HRESULT WriteProperty(IUnknown*, const GUID& id, double seconds, const VARIANT* value,
                          UNDO_STYLE style) override;
    HRESULT BeginUndo(const DSUNDOINFO* info, UNDO_STYLE* style) override;
    HRESULT EndUndo(UNDO_STYLE style) override;
    HRESULT CancelUndo(UNDO_STYLE style) override;

    double time = 0.0;
    HRESULT status = S_OK;
    std::vector<std::wstring> log;

private:
    ComPtr<ScriptedObject> object_;
    UNDO_STYLE lastStyle_ = 6;
};

/// In the first page's dialog: TV Type (a combo), Seed and Master Breakup (numbers), the tint with
/// alpha, and Fish Eye and Blur without controls.
class ProbePage final : public VxDsPPG {
public:
    ProbePage();

    const CDSPPGControlMap* GetControlMap() override;
    HRESULT OnInitDialog() override { return S_OK; }
    void SetControlFromBoundVariable(UINT controlId) override;
    HRESULT UpdateAnimatedControls(double time) override;

    /// Activates the page over an object, with or without a site.
    void start(ScriptedObject& object, IDSPageSite* site);
    void stop();

    VxPPGIntControl tvType, seed, numGhosts;
    VxPPGDoubleControl masterBreakup, blur;
    VxPPGBoolControl fishEye;
    VxPPGColourGroup tint;

    std::vector<UINT> redrawn;
    /// Called while the page handles a notification.
    std::function<void()> reaction;

protected:
    void reactToNotification() override {
        if (reaction) reaction();
    }
    VxPPGColourGroup* colourGroup() override { return &tint; }
};

}  // namespace ruvex::test
