// Shows an effect's on-screen controls while property pages use them.

#pragma once

#include "sdk/com/com_ptr.h"

namespace ruvex {

/// Counts the pages that use the controls. The first one shows the tool in the viewer, the last one
/// removes it. Only for the user-interface thread.
class OverlayUse {
public:
    OverlayUse() = default;
    /// A clone starts without users.
    OverlayUse(const OverlayUse&) : OverlayUse() {}
    OverlayUse& operator=(const OverlayUse&) = delete;
    ~OverlayUse() { endAll(); }

    /// Adds a user that edits `object`. If the tool can't be created or shown, returns the error
    /// and adds no user.
    HRESULT begin(IUnknown& object);
    /// Removes a user. Does nothing if there is none.
    void end();
    void endAll();

    /// The tool in the viewer; null without users.
    IUnknown* tool() const { return tool_.get(); }

private:
    HRESULT show(IUnknown& object);

    ComPtr<IUnknown> tool_;
    ULONG context_ = 0;
    int users_ = 0;
};

}  // namespace ruvex
