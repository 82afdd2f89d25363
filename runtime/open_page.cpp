#include "runtime/open_page.h"

#include "runtime/editor.h"
#include "runtime/error.h"

// Every call holds its own references: the page may close this object before the call returns.

namespace ruvex::runtime {

namespace {

/// The description of a page, whose texts it frees.
class PageInfo {
public:
    explicit PageInfo(IPropertyPage& page) {
        info_.cb = sizeof info_;
        require(page.GetPageInfo(&info_), "the page does not describe itself");
    }
    ~PageInfo() {
        CoTaskMemFree(info_.pszTitle);
        CoTaskMemFree(info_.pszDocString);
        CoTaskMemFree(info_.pszHelpFile);
    }
    PageInfo(const PageInfo&) = delete;
    PageInfo& operator=(const PageInfo&) = delete;

    std::wstring title() const { return info_.pszTitle ? info_.pszTitle : L""; }

private:
    PROPPAGEINFO info_{};
};

}  // namespace

OpenPage::OpenPage(Editor& editor)
    : TimeFollower(editor, TimeOrder::Page),
      site_(ComPtr<PageSite>::attach(new PageSite(editor))) {}

OpenPage::~OpenPage() {
    stopFollowing();
    const auto scope = editor().session().enter();
    notified_.reset();
    if (page_) {
        if (active_) page_->Deactivate();
        page_->SetObjects(0, nullptr);
        page_->SetPageSite(nullptr);
    }
    site_->detach();
    page_.reset();
}

void OpenPage::open(const GUID& classId, HWND parent) {
    const auto scope = editor().session().enter();
    const ComPtr<IUnknown> object = editor().session().makeObject(classId);
    require(object->QueryInterface(DSInterfaceTraits<IPropertyPage>::id, page_.putVoid()),
            "the class " + toText(classId) + " is not a property page");
    notified_ = page_.query<IDsPropertyPage>();
    activate(parent);
}

void OpenPage::activate(HWND parent) {
    const ComPtr<IPropertyPage> page = page_;
    const ComPtr<IUnknown> site = ComPtr<IDSPageSite>(site_);
    require(page->SetPageSite(static_cast<IPropertyPageSite*>(site.get())),
            "the page refuses its site");
    IUnknown* const effect = &editor().session().effect();
    ComPtr<IUnknown> object;
    require(effect->QueryInterface(IID_IUnknown, object.putVoid()), "the effect has no identity");
    IUnknown* objects[] = {object.get()};
    require(page->SetObjects(1, objects), "the page refuses the effect");
    // Without a place, the dialog keeps the size of its template.
    require(page->Activate(parent, nullptr, FALSE), "the page cannot be activated");
    active_ = true;
}

void OpenPage::show() {
    showAs(SW_SHOW, "the page cannot be shown");
}

void OpenPage::hide() {
    showAs(SW_HIDE, "the page cannot be hidden");
}

void OpenPage::showAs(UINT command, const char* failure) {
    const auto scope = editor().session().enter();
    const ComPtr<IPropertyPage> page = page_;
    require(page->Show(command), failure);
}

HWND OpenPage::window() const {
    const auto scope = editor().session().enter();
    const ComPtr<IDsPropertyPage> page = notified_;
    HWND window = nullptr;
    return page && SUCCEEDED(page->GetPageWindow(&window)) ? window : nullptr;
}

std::wstring OpenPage::title() const {
    const auto scope = editor().session().enter();
    const ComPtr<IPropertyPage> page = page_;
    return PageInfo(*page).title();
}

void OpenPage::tellTime() {
    const auto scope = editor().session().enter();
    const ComPtr<IDsPropertyPage> page = notified_;
    if (page) page->OnTimeChange(editor().time());
}

}  // namespace ruvex::runtime
