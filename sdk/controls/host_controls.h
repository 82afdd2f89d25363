// Turns the controls of a dialog's template into those that the host shows.

#pragma once

#include "sdk/com/com_ptr.h"
#include "sdk/controls/colour_chip.h"
#include "sdk/controls/number_control.h"
#include "sdk/window/window.h"

/// The window property that holds the interface (IUnknown) of a control's model.
inline constexpr const wchar_t* kDSControlInterface = L"DSCTLIFACE";

/// The most items that an opened drop-down list shows.
inline constexpr int kDSMostListItems = 12;

/// Replaces each static whose title describes a control (sdk/controls/control_title.h) by that
/// control, with the same identifier, place and order, and enlarges drop-down lists so that their
/// items can be chosen. The dialog owns the models until DSReleaseControls. E_OUTOFMEMORY, after
/// the models have been released. Calling it again adds nothing.
DSSDK_API HRESULT DSMakeControls(HWND dialog);
/// Releases the models of a dialog that is about to be destroyed, or has been, and ends their
/// notifications.
DSSDK_API void DSReleaseControls(HWND dialog);

/// The model of a control; null if the window is not such a control.
DSSDK_API ComPtr<CDSNumberControl> DSNumberControlOf(HWND control);
DSSDK_API ComPtr<CDSColourChip> DSColourChipOf(HWND control);

/// Says that the items of a drop-down list are commands: the wheel never chooses one, and keys that
/// move the selection open the list first.
DSSDK_API void DSMakeCommandList(HWND list);

/// Sets the text that is shown while the pointer rests on a control; null for none. Throws
/// std::bad_alloc.
DSSDK_API void DSSetToolTip(HWND dialog, HWND control, const wchar_t* text);
