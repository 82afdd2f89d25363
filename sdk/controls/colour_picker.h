// How the user chooses a colour for a chip. On Windows only.

#pragma once

#include <functional>
#include <optional>

#include "sdk/controls/colour_chip.h"
#include "sdk/window/window.h"

/// Asks the user for a colour, with `colour` as the proposal. No value if the user cancels. `owner`
/// is the window that the dialog belongs to.
using DSColourPicker =
    std::function<std::optional<CDSColourChip::Colour>(HWND owner, const CDSColourChip::Colour&)>;

/// Replaces the way in which chips of the calling thread ask, for hosts with a dialog of their own;
/// an empty function stands for the system's dialog. Returns the previous way.
DSSDK_API DSColourPicker DSUseColourPicker(DSColourPicker picker);
