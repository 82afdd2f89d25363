// The effect's property pages, one tab for each.

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "runtime/open_page.h"
#include "tools/page_host/edited_effect.h"
#include "tools/page_host/window.h"

namespace ruvex::page_host {

/// All pages are open; one is in front. The tab control and the pages' dialogs are children of the
/// window that this is made for.
class PageTabs {
public:
    struct Page {
        GUID classId;
        std::wstring title;
        std::unique_ptr<runtime::OpenPage> open;
    };

    PageTabs(HWND parent, int controlId);

    /// Opens the pages of an effect; the first one is in front. Throws StatusError.
    void open(EditedEffect& effect);
    void close();

    /// Tells the tabs that the user has chosen one.
    void selected();
    /// Goes `steps` pages forward, or back; after the last page comes the first.
    void turn(int steps);
    void moveTo(POINT place);

    HWND handle() const { return tabs_; }
    /// In pixels: the tabs with the largest page below.
    SIZE size() const;
    const std::vector<Page>& pages() const { return pages_; }
    /// The index of the page in front; -1 without pages.
    int front() const { return front_; }
    /// The head of a tab on the screen.
    RECT headOnScreen(int index) const;

private:
    void resize();
    void bringToFront(int index);
    RECT pageArea() const;

    HWND parent_;
    HWND tabs_;
    std::vector<Page> pages_;
    int front_ = -1;
};

}  // namespace ruvex::page_host
