// The size of a dialog, read from its template.

#pragma once

#include "sdk/window/window.h"

/// In dialog units; 0 x 0 if the module has no such dialog.
SIZE DSDialogSize(HINSTANCE module, UINT dialogId);
