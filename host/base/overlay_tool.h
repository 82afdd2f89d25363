// What property pages ask of the tool that draws the on-screen controls.

#pragma once

#include "sdk/com/interface_traits.h"

namespace ruvex {

struct IVxOverlayTool : IUnknown {
    /// Shows or hides all on-screen controls and redraws the viewer.
    virtual void setOverlayEnabled(bool enabled) = 0;

protected:
    ~IVxOverlayTool() = default;
};

inline constexpr GUID IID_IVxOverlayTool = guidFromText("B7E6C0D4-52A1-4C9B-8F17-6A0D93E27C58");

}  // namespace ruvex

template <>
struct DSInterfaceTraits<ruvex::IVxOverlayTool> : DSInterface<ruvex::IID_IVxOverlayTool> {};
