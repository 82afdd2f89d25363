// Shows an effect's on-screen controls while property pages use them.

#pragma once

#include <functional>

#include "sdk/com/com_ptr.h"

namespace ruvex {

/// Counts the pages that use the controls. The first one shows the tool in the viewer, the last one
/// removes it. A page counts even if the tool can't be shown, so that its end does not take away
/// the tool that a later page has shown. Only for the user-interface thread.
class OverlayUse {
public:
    OverlayUse() = default;
    /// A clone starts without users.
    OverlayUse(const OverlayUse&) : OverlayUse() {}
    OverlayUse& operator=(const OverlayUse&) = delete;
    ~OverlayUse() { endAll(); }

    /// Adds a user that edits `object`. If this call shows the tool, calls `connect` after that. If
    /// the tool can't be created, shown or connected, takes it away and returns the error; the next
    /// `begin` tries again.
    HRESULT begin(IUnknown& object, const std::function<HRESULT()>& connect);
    /// Removes a user. Does nothing if there is none.
    void end();
    void endAll();

    int users() const { return users_; }
    /// The tool in the viewer; null without users and if it could not be shown.
    IUnknown* tool() const { return tool_.get(); }

private:
    HRESULT show(IUnknown& object, const std::function<HRESULT()>& connect);
    void hide();

    ComPtr<IUnknown> tool_;
    ULONG context_ = 0;
    int users_ = 0;
};

}  // namespace ruvex
