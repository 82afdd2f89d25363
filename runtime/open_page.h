// A property page that a host has open.

#pragma once

#include <string>

#include "runtime/page_site.h"
#include "runtime/time_follower.h"
#include "sdk/com/com_ptr.h"
#include "sdk/pages/property_page_interface.h"

namespace ruvex::runtime {

/// Made by Editor::open. The destructor deactivates and releases the page; it may run during a call
/// of the page or a notification, also in one of this object's own functions.
class OpenPage final : private TimeFollower {
public:
    ~OpenPage() override;

    /// Show and hide the page's dialog. Throw StatusError.
    void show();
    void hide();
    /// The page's dialog; null if it has none.
    HWND window() const;
    /// The page's title for its tab. Throws StatusError.
    std::wstring title() const;
    IPropertyPage& page() const { return *page_; }

private:
    friend class Editor;

    explicit OpenPage(Editor& editor);
    void open(const GUID& classId, HWND parent);
    void activate(HWND parent);
    void showAs(UINT command, const char* failure);
    void tellTime() override;

    ComPtr<PageSite> site_;
    ComPtr<IPropertyPage> page_;
    ComPtr<IDsPropertyPage> notified_;  ///< The page's interface for a host; may be null.
    bool active_ = false;
};

}  // namespace ruvex::runtime
