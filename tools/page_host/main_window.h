// The program's window: a menu, the pages in tabs, the viewer and the time.

#pragma once

#include <filesystem>
#include <memory>

#include "sdk/com/ui_queue.h"
#include "tools/page_host/arguments.h"
#include "tools/page_host/page_tabs.h"
#include "tools/page_host/status_bar.h"
#include "tools/page_host/time_bar.h"
#include "tools/page_host/viewer_window.h"
#include "tools/page_host/window.h"

namespace ruvex::page_host {

class MainWindow final : public Window {
public:
    /// Opens the effect over a picture. Throws runtime::Error.
    MainWindow(Picture picture, std::filesystem::path report);
    ~MainWindow() override;

    /// Shows the window (`showCommand` is one for ShowWindow) and runs the message loop until it is
    /// closed.
    void run(int showCommand);

private:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    bool onCommand(int command);
    void dispatch(MSG& message, HACCEL keys);
    std::unique_ptr<EditedEffect> makeEffect(Picture picture);
    void openEffect(std::unique_ptr<EditedEffect> effect, int front);
    void closeEffect();
    void replacePicture(Picture picture);
    void openPicture();
    void savePicture();
    void reportState();
    void nameSteps();
    void arrange();
    /// The size of the window in pixels, with its frame, for a viewer of this size.
    SIZE sizeAround(SIZE viewer) const;
    POINT smallestSize() const;
    void rememberFocus(bool active);
    void keepFocus();
    void chooseTime();
    void fitToContents();

    std::filesystem::path report_;
    std::unique_ptr<DSUserInterfaceQueue> queue_;
    std::unique_ptr<EditedEffect> effect_;
    std::unique_ptr<PageTabs> tabs_;
    std::unique_ptr<ViewerWindow> viewer_;
    std::unique_ptr<TimeBar> timeBar_;
    std::unique_ptr<StatusBar> statusBar_;
    HWND focus_ = nullptr;  ///< While the window is not active.
};

}  // namespace ruvex::page_host
