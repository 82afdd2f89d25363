// An effect's on-screen controls, as long as pages want them.

#pragma once

#include "sdk/com/com_ptr.h"

namespace ruvex {

/// Counts its users; the first one brings up the tool in the viewer, the last one takes it away.
/// The user-interface thread alone.
class OverlayUse {
public:
    OverlayUse() = default;
    /// What a clone does not share.
    OverlayUse(const OverlayUse&) : OverlayUse() {}
    OverlayUse& operator=(const OverlayUse&) = delete;
    ~OverlayUse() { endAll(); }

    /// One user more, who inspects `object`. A tool that cannot be made or shown is the status, and
    /// there are no more users than before.
    HRESULT begin(IUnknown& object);
    /// One user less; without users nothing.
    void end();
    void endAll();

    /// Null without users.
    IUnknown* tool() const { return tool_.get(); }

private:
    HRESULT show(IUnknown& object);

    ComPtr<IUnknown> tool_;
    ULONG context_ = 0;
    int users_ = 0;
};

}  // namespace ruvex
