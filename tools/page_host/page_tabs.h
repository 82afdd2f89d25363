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

    /// Opens the pages of an effect. `front` is the index of the one in front, not negative. Throws
    /// StatusError.
    void open(EditedEffect& effect, int front);
    void close();

    /// Tells the tabs that the user has chosen one.
    void selected();
    /// Brings the page to the front that lies `steps` after the present one: 1 or -1. The last page
    /// is followed by the first.
    void selectNext(int steps);
    void moveTo(POINT topLeft);

    HWND handle() const { return tabs_; }
    /// In pixels: the tabs with the largest page below.
    SIZE size() const;
    const std::vector<Page>& pages() const { return pages_; }
    /// The index of the page in front; -1 without pages.
    int front() const { return front_; }
    /// Whether the window is the dialog of a page.
    bool isPage(HWND window) const;
    /// Has the page in front open its help.
    void showHelp();
    /// The rectangle of one tab, in pixels of the screen.
    RECT tabRectOnScreen(int index) const;

private:
    void resize();
    void switchTo(int index);
    void bringToFront(int index);
    RECT pageArea() const;

    HWND parent_;
    HWND tabs_;
    std::vector<Page> pages_;
    int front_ = -1;
};

}  // namespace ruvex::page_host
