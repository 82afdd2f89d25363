// The report that F12 writes: what every control shows, and every property with its keys.

#pragma once

#include <filesystem>

#include "tools/page_host/page_tabs.h"
#include "tools/page_host/viewer_window.h"

namespace ruvex::page_host {

/// Writes the state of the window as JSON in UTF-8. Rectangles are [left, top, right, bottom] in
/// pixels of the screen. The file appears whole. Throws
/// runtime::Error.
void writeReport(const std::filesystem::path& file, HWND window, const PageTabs& tabs,
                 const ViewerWindow& viewer, EditedEffect& effect);

}  // namespace ruvex::page_host
