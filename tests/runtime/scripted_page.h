// A property page without a dialog that records the calls of its host, and a session whose effect
// has such pages.

#pragma once

#include <algorithm>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "runtime/editor.h"
#include "sdk/com/com_object.h"
#include "sdk/com/module_table.h"
#include "sdk/pages/page_site.h"
#include "sdk/pages/property_page_interface.h"
#include "tests/runtime/copy_module.h"
#include "tests/runtime/edited_object.h"

namespace ruvex::runtime::test {

inline constexpr GUID kPagedEffectId = guidFromText("77A1C005-0000-4000-8000-000000000001");
inline constexpr GUID kFirstPageId = guidFromText("77A1C005-0000-4000-8000-000000000002");
inline constexpr GUID kSecondPageId = guidFromText("77A1C005-0000-4000-8000-000000000003");
inline constexpr GUID kAbsentPageId = guidFromText("77A1C005-0000-4000-8000-000000000004");

/// Records each call of IPropertyPage and IDsPropertyPage by name, and fails the one that a test
/// names. Subscribes to the changes of its object, as pages do.
class ScriptedPage final : public ComObject<IPropertyPage, IDsPropertyPage> {
public:
    static inline int alive = 0;
    static inline ScriptedPage* last = nullptr;
    static inline std::string failing;  ///< The name of the call that fails.

    ScriptedPage() {
        ++alive;
        last = this;
    }

    HRESULT SetPageSite(IPropertyPageSite* given) override {
        site.reset();
        if (given) given->QueryInterface(IID_IDSPageSite, site.putVoid());
        return called(given ? "SetPageSite" : "SetPageSite null");
    }
    HRESULT Activate(HWND, const RECT*, BOOL) override { return called("Activate"); }
    HRESULT Deactivate() override { return called("Deactivate"); }
    HRESULT GetPageInfo(PROPPAGEINFO* info) override;
    HRESULT SetObjects(ULONG count, IUnknown** objects) override;
    HRESULT Show(UINT command) override { return called(command == SW_HIDE ? "Hide" : "Show"); }
    HRESULT Move(const RECT*) override { return E_NOTIMPL; }
    HRESULT IsPageDirty() override { return S_FALSE; }
    HRESULT Apply() override { return S_OK; }
    HRESULT Help(LPCOLESTR) override { return E_NOTIMPL; }
    HRESULT TranslateAccelerator(MSG*) override { return E_NOTIMPL; }

    HRESULT PropertyChanged(const GUID&, const DSVARIANT*, IUnknown*, const DSPARAMS*,
                            unsigned short) override {
        return called("PropertyChanged");
    }
    HRESULT OnTimeChange(double seconds) override {
        time = seconds;
        return called("OnTimeChange");
    }
    HRESULT GetPageWindow(HWND* window) override {
        *window = reinterpret_cast<HWND>(this);
        return called("GetPageWindow");
    }

    /// Writes Lift of the object through the site.
    HRESULT writeLift(LONG value, UNDO_STYLE style) {
        const VARIANT variant = DSVariantFromLong(value);
        return site->WriteProperty(object.get(), kLiftId, -1.0, &variant, style);
    }

    std::vector<std::string> calls;
    std::function<void(const std::string& call)> during;  ///< Called inside each call.
    ComPtr<IDSPageSite> site;
    ComPtr<IUnknown> object;
    double time = -1.0;
    bool alwaysInProject = true;

private:
    ~ScriptedPage() override {
        --alive;
        if (last == this) last = nullptr;
    }

    HRESULT called(const std::string& name) {
        calls.push_back(name);
        VARIANT width{};
        alwaysInProject &= DSContentGetProperty(kDSProjectUserSizeX, &width) == S_OK;
        if (during) during(name);
        return name == failing ? E_FAIL : S_OK;
    }

    ULONG cookie_ = 0;
};

inline HRESULT ScriptedPage::GetPageInfo(PROPPAGEINFO* info) {
    if (const HRESULT status = called("GetPageInfo"); FAILED(status)) return status;
    constexpr wchar_t kTitle[] = L"Scripted";
    info->pszTitle = static_cast<LPOLESTR>(CoTaskMemAlloc(sizeof kTitle));
    std::memcpy(info->pszTitle, kTitle, sizeof kTitle);
    return S_OK;
}

inline HRESULT ScriptedPage::SetObjects(ULONG count, IUnknown** objects) {
    if (cookie_ != 0) object.query<IDSProperties>()->Unadvise(cookie_);
    cookie_ = 0;
    object = count > 0 ? objects[0] : nullptr;
    if (object) object.query<IDSProperties>()->Advise(this, &cookie_);
    return called("SetObjects " + std::to_string(count));
}

/// Makes objects with `make`.
class MakingFactory final : public ComObject<IClassFactory> {
public:
    explicit MakingFactory(ComPtr<IUnknown> (*make)()) : make_(make) {}
    HRESULT CreateInstance(IUnknown*, const GUID& id, void** out) override {
        return make_()->QueryInterface(id, out);
    }
    HRESULT LockServer(BOOL) override { return S_OK; }

private:
    ComPtr<IUnknown> (*make_)();
};

inline ComPtr<IUnknown> makePagedEffect() {
    const auto effect = makeEditedObject();
    effect->AddPropertyPage(kFirstPageId);
    effect->AddPropertyPage(kSecondPageId);
    return ComPtr<IDSImageEffect>(effect);
}

inline ComPtr<IUnknown> makeScriptedPage() {
    const auto page = ComPtr<ScriptedPage>::attach(new ScriptedPage);
    return ComPtr<IPropertyPage>(page);
}

/// The exported function of a module with the effect and its pages.
inline HRESULT servePages(const GUID& classId, const GUID& id, void** out) {
    static MakingFactory effects(makePagedEffect);
    static MakingFactory pages(makeScriptedPage);
    *out = nullptr;
    if (classId == kPagedEffectId) return effects.QueryInterface(id, out);
    const bool isPage = classId == kFirstPageId || classId == kSecondPageId;
    return isPage ? pages.QueryInterface(id, out) : CLASS_E_CLASSNOTAVAILABLE;
}

/// A session of the effect with pages, an editor over it, and a clock that stands still.
class EditorTest : public ::testing::Test {
protected:
    void TearDown() override {
        ScriptedPage::failing.clear();
        EXPECT_EQ(ScriptedPage::alive, 0);
    }

    LONG lift() { return static_cast<LONG>(session.value(kLiftId)); }
    UndoStack& stack() { return editor.undoStack(); }

    struct ServedModule {
        ServedModule() { DSAddModule(servePages); }
        ~ServedModule() { DSRemoveModule(servePages); }
    };
    const ServedModule served{};
    EffectSession session{{.project = kSmallProject, .classId = kPagedEffectId}};
    Editor editor{session, [] { return 0.0; }};
};

}  // namespace ruvex::runtime::test
