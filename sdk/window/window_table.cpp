#include "sdk/window/window_table.h"

#include <atomic>
#include <memory>

namespace ruvex::windows {
namespace {

using WindowTable = std::map<HWND, Window>;

thread_local WindowTable liveWindows;
/// Shared, so that an observer stays alive while it replaces itself.
thread_local std::shared_ptr<const DSWindowObserver> windowObserver;

/// Handles are numbers, which no two windows of the process share, also after each other.
HWND newHandle() {
    constexpr std::uintptr_t kFirst = 0x10000, kDistance = 2;
    static std::atomic<std::uintptr_t> next{kFirst};
    return reinterpret_cast<HWND>(next.fetch_add(kDistance));
}

void removeFromParent(HWND window, HWND parent) {
    if (Window* const found = find(parent)) std::erase(found->state.children, window);
}

}  // namespace

Window* find(HWND window) {
    const auto found = liveWindows.find(window);
    return found == liveWindows.end() ? nullptr : &found->second;
}

HWND add(Window window) {
    const HWND handle = newHandle();
    const HWND parent = window.state.parent;
    if (Window* const found = find(parent)) found->state.children.push_back(handle);
    try {
        liveWindows.emplace(handle, std::move(window));
    } catch (...) {
        removeFromParent(handle, parent);
        throw;
    }
    return handle;
}

void destroy(HWND window) {
    // An observer may destroy windows of this tree: look each one up again.
    for (Window* found = find(window); found; found = find(window)) {
        if (found->state.children.empty()) {
            removeFromParent(window, found->state.parent);
            liveWindows.erase(window);
            report(window, DSWindowChange::Destroyed);
            return;
        }
        destroy(found->state.children.back());
    }
}

void report(HWND window, DSWindowChange change) {
    const auto observer = windowObserver;
    if (observer && *observer) (*observer)(window, change);
}

INT_PTR callProcedure(HWND dialog, UINT message, WPARAM wide, LPARAM extra) {
    const Window* const found = find(dialog);
    if (!found || !found->procedure) return 0;
    return found->procedure(dialog, message, wide, extra);
}

}  // namespace ruvex::windows

const DSWindowState* DSGetWindowState(HWND window) {
    const auto* const found = ruvex::windows::find(window);
    return found ? &found->state : nullptr;
}

DSWindowObserver DSObserveWindows(DSWindowObserver observer) {
    using ruvex::windows::windowObserver;
    const auto previous = windowObserver;
    windowObserver = std::make_shared<const DSWindowObserver>(std::move(observer));
    return previous ? *previous : nullptr;
}
