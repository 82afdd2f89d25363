#include "tests/pages/probe_page.h"

namespace ruvex::test {
namespace {

using Id = ParameterId;
using P = ProbePage;
using Group = VxPPGColourGroup;

const PageEntry kEntries[] = {
    control<P, &P::tvType>(Id::TvType, 1000),
    control<P, &P::seed>(Id::Seed, 1001),
    control<P, &P::masterBreakup>(Id::MasterBreakup, 1005),
    control<P, &P::tint, &Group::red>(Id::TintColourR, 1011),
    control<P, &P::tint, &Group::green>(Id::TintColourG, 1012),
    control<P, &P::tint, &Group::blue>(Id::TintColourB, 1013),
    hidden<P, &P::tint, &Group::alpha>(Id::CropColourA),
    hidden<P, &P::numGhosts>(Id::NumGhosts),
    hidden<P, &P::fishEye>(Id::FishEye),
    hidden<P, &P::blur>(Id::Blur),
};

}  // namespace

HRESULT ScriptedObject::GetValue(const GUID& id, double seconds, VARIANT* value) {
    reads.push_back(id);
    readTimes.push_back(seconds);
    const auto found = values.find(id);
    if (fails || found == values.end()) return E_FAIL;
    *value = found->second;
    return S_OK;
}

HRESULT ScriptedObject::SetValue(const GUID& id, double seconds, const VARIANT* value) {
    writes.push_back({id, seconds, *value, style});
    if (fails) return E_FAIL;
    values[id] = *value;
    return S_OK;
}

HRESULT ScriptedSite::WriteProperty(IUnknown*, const GUID& id, double seconds, const VARIANT* value,
                                    UNDO_STYLE style) {
    object_->style = style;
    return object_->SetValue(id, seconds, value);
}

HRESULT ScriptedSite::BeginUndo(const DSUNDOINFO* info, UNDO_STYLE* style) {
    log.push_back(L"begin " + std::wstring(info->name));
    if (FAILED(status)) return status;
    *style = ++lastStyle_;
    return S_OK;
}

HRESULT ScriptedSite::EndUndo(UNDO_STYLE style) {
    log.push_back(L"end " + std::to_wstring(style));
    return status;
}

HRESULT ScriptedSite::CancelUndo(UNDO_STYLE style) {
    log.push_back(L"cancel " + std::to_wstring(style));
    return status;
}

ProbePage::ProbePage() : VxDsPPG(1, 3, "probe") {
    fillRecords(kEntries);
    tint.page = this;
    tint.controlId = 1009;
    tint.labelId = 1010;
    tint.flags = Group::kHasAlpha;
}

const CDSPPGControlMap* ProbePage::GetControlMap() {
    static PageControlMap map(kEntries, EntryFlags::Own);
    return map.initialized();
}

void ProbePage::SetControlFromBoundVariable(UINT controlId) {
    redrawn.push_back(controlId);
    VxDsPPG::SetControlFromBoundVariable(controlId);
}

HRESULT ProbePage::UpdateAnimatedControls(double time) {
    return CDSPropertyPage::UpdateAnimatedControls(time);
}

void ProbePage::start(ScriptedObject& object, IDSPageSite* site) {
    IUnknown* inspected = &object;
    SetPageSite(site);
    SetObjects(1, &inspected);
    Activate(nullptr, nullptr, FALSE);
    redrawn.clear();
    object.reads.clear();
}

void ProbePage::stop() {
    Deactivate();
    SetObjects(0, nullptr);
    SetPageSite(nullptr);
}

}  // namespace ruvex::test
