// The life of a page: site, objects, dialog.

#include "sdk/pages/base_property_page.h"

#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <utility>

#include "sdk/com/guarded.h"
#include "sdk/com/utf8.h"
#include "sdk/controls/group_title.h"
#include "sdk/controls/host_controls.h"
#include "sdk/pages/dialog_size.h"
#include "sdk/resources/load_text.h"

using ruvex::loadText;

namespace {

/// The window property that holds a dialog's page.
constexpr const wchar_t* kPageProperty = L"DSPAGE";

constexpr CDSPPGControlMapEntry kNoEntries[] = {CDSPPGControlMapEntry::terminator()};

constexpr int kMostText = 1024;

/// A copy for the caller of a COM function.
LPOLESTR taskText(const std::wstring& text) {
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    void* const copy = CoTaskMemAlloc(bytes);
    if (copy) std::memcpy(copy, text.c_str(), bytes);
    return static_cast<LPOLESTR>(copy);
}

}  // namespace

CDSPPGControlMap CDSBasePropertyPage::m_ControlMap(L"", 1, nullptr, kNoEntries);

CDSBasePropertyPage::CDSBasePropertyPage(UINT dialogId, UINT titleId)
    : dialogId_(dialogId), titleId_(titleId) {}

CDSBasePropertyPage::~CDSBasePropertyPage() {
    Deactivate();
    forgetObjects();
}

const CDSPPGControlMap* CDSBasePropertyPage::GetControlMap() {
    return &m_ControlMap;
}

const GUID& CDSBasePropertyPage::GetPPGID() {
    return GUID_NoProperty;
}

HRESULT CDSBasePropertyPage::SetPageSite(IPropertyPageSite* site) {
    if (site && site_) return E_UNEXPECTED;
    site_.reset();
    if (!site) return S_OK;
    return site->QueryInterface(IID_IDSPageSite, site_.putVoid());
}

HRESULT CDSBasePropertyPage::SetObjects(ULONG count, IUnknown** objects) {
    if (count > 0 && !objects) return E_POINTER;
    if (dialog_) return E_UNEXPECTED;
    forgetObjects();
    const HRESULT status = ruvex::guarded([&] { return takeObjects(count, objects); });
    if (FAILED(status)) forgetObjects();
    return status;
}

HRESULT CDSBasePropertyPage::takeObjects(ULONG count, IUnknown** objects) {
    for (ULONG i = 0; i < count; ++i) {
        if (!objects[i]) return E_POINTER;
        const ComPtr<IUnknown> object = objects[i];
        objects_.push_back({object, object.query<IDSProperties>()});
    }
    // A page shows the first object, so that the changes of the others do not concern it.
    return properties() ? properties()->Advise(this, &cookie_) : S_OK;
}

void CDSBasePropertyPage::forgetObjects() {
    if (cookie_ != 0) properties()->Unadvise(std::exchange(cookie_, 0));
    objects_.clear();
}

IUnknown* CDSBasePropertyPage::GetInspectedObject(ULONG index) const {
    return index < objects_.size() ? objects_[index].object.get() : nullptr;
}

HRESULT CDSBasePropertyPage::Activate(HWND parent, const RECT* place, BOOL) {
    if (dialog_) return E_UNEXPECTED;
    dialog_ = CreateDialogParamW(GetResourceInstance(), MAKEINTRESOURCEW(dialogId_), parent,
                                 dialogMessage, reinterpret_cast<LPARAM>(this));
    if (!dialog_) return E_FAIL;
    // Where memory ran out for the property, the dialog does not know its page.
    const bool attached = GetPropW(dialog_, kPageProperty) != nullptr;
    const HRESULT status =
        attached ? ruvex::guarded([&] { return prepareDialog(place); }) : E_OUTOFMEMORY;
    if (FAILED(status)) Deactivate();
    return status;
}

HRESULT CDSBasePropertyPage::prepareDialog(const RECT* place) {
    if (const HRESULT status = DSMakeControls(dialog_); FAILED(status)) return status;
    listenToControls();
    addToolTips();
    if (place) Move(place);
    if (const HRESULT status = OnInitDialog(); FAILED(status)) return status;
    fillFromProperties();
    // Colour chips have no bound variable; pages set them here.
    UpdateAnimatedControls(secondsOf(DSTIME_CURRENT));
    // An observer of the windows may have closed the page meanwhile.
    return dialog_ ? S_OK : E_UNEXPECTED;
}

void CDSBasePropertyPage::addToolTips() {
    for (const CDSPPGControlMapEntry& entry : GetControlMap()->entries()) {
        const HWND control = GetHwndControl(entry.controlId);
        if (!control || entry.toolTip == DSTOOLTIP_NONE) continue;
        const std::wstring tip = loadText(GetResourceInstance(), entry.toolTip);
        if (!tip.empty()) DSSetToolTip(dialog_, control, tip.c_str());
    }
}

HRESULT CDSBasePropertyPage::Deactivate() {
    if (!dialog_) return S_FALSE;
    endDrag();
    const HWND dialog = std::exchange(dialog_, nullptr);
    RemovePropW(dialog, kPageProperty);
    DSReleaseControls(dialog);
    DestroyWindow(dialog);
    lastCommand_ = {};
    return S_OK;
}

HRESULT CDSBasePropertyPage::GetPageInfo(PROPPAGEINFO* info) {
    if (!info) return E_POINTER;
    return ruvex::guarded([&] {
        PROPPAGEINFO filled{};
        filled.cb = sizeof filled;
        filled.size = DSDialogSize(GetResourceInstance(), dialogId_);
        filled.pszTitle = taskText(loadText(GetResourceInstance(), titleId_));
        if (!filled.pszTitle) return E_OUTOFMEMORY;
        *info = filled;
        return S_OK;
    });
}

HRESULT CDSBasePropertyPage::Show(UINT command) {
    if (!dialog_) return E_UNEXPECTED;
    const bool known = command == SW_HIDE || command == SW_SHOWNORMAL || command == SW_SHOW ||
                       command == SW_SHOWNA;
    if (!known) return E_INVALIDARG;
    ShowWindow(dialog_, static_cast<int>(command));
    return S_OK;
}

HRESULT CDSBasePropertyPage::Move(const RECT* place) {
    if (!place) return E_POINTER;
    if (!dialog_) return E_UNEXPECTED;
    const auto width = static_cast<std::int64_t>(place->right) - place->left;
    const auto height = static_cast<std::int64_t>(place->bottom) - place->top;
    constexpr std::int64_t kMost = std::numeric_limits<std::int16_t>::max();
    if (width < 0 || height < 0 || width > kMost || height > kMost) return E_INVALIDARG;
    SetWindowPos(dialog_, nullptr, place->left, place->top, static_cast<int>(width),
                 static_cast<int>(height), SWP_NOZORDER | SWP_NOACTIVATE);
    return S_OK;
}

HRESULT CDSBasePropertyPage::Help(LPCOLESTR) {
    return E_NOTIMPL;
}

HRESULT CDSBasePropertyPage::GetPageWindow(HWND* window) {
    if (!window) return E_POINTER;
    *window = dialog_;
    return S_OK;
}

HWND CDSBasePropertyPage::GetHwndControl(UINT controlId) const {
    return controlId == DSCONTROL_NONE ? nullptr : GetDlgItem(dialog_, static_cast<int>(controlId));
}

INT_PTR CDSBasePropertyPage::dialogMessage(HWND dialog, UINT message, WPARAM wide, LPARAM extra) {
    if (message == WM_INITDIALOG) {
        SetPropW(dialog, kPageProperty, reinterpret_cast<HANDLE>(extra));
        return TRUE;
    }
    auto* const page = static_cast<CDSBasePropertyPage*>(GetPropW(dialog, kPageProperty));
    if (message != WM_COMMAND || !page) return FALSE;
    // What the command does may close the page.
    const ComPtr<IPropertyPage> kept(page);
    // The system, which calls this, must not see exceptions.
    ruvex::guarded([&] {
        page->onCommand(LOWORD(wide), HIWORD(wide));
        return S_OK;
    });
    return TRUE;
}

std::wstring CDSBasePropertyPage::CommandName(const DSCTLCOMMANDNOTIFY& command) {
    const std::wstring title = loadText(GetResourceInstance(), titleId_);
    const CDSPPGControlMapEntry* const entry = GetControlMap()->find(command.controlId);
    if (!entry) return title;
    const HWND control = GetHwndControl(command.controlId);
    wchar_t text[kMostText] = {};
    if (const CDSParamDef* definition = definitionOf(entry->property)) {
        if (definition->capabilities != DSCAPS_USER_INTERFACE) {
            return loadText(definition->module, definition->nameId);
        }
        // A list that is no value of the object is a list of commands.
        GetWindowTextW(control, text, kMostText);
        return std::wstring(L"Preset: ") + text;
    }
    if (DSColourChipOf(control)) return DSGroupTitle(control);
    if (const auto number = DSNumberControlOf(control)) return ruvex::fromUtf8(number->label());
    GetWindowTextW(control, text, kMostText);
    return std::wstring(text) + L": " + title;
}
