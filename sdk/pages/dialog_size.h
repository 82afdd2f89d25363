// The size of a page's dialog, read from its template.

#pragma once

#include "sdk/window/window.h"

/// As IPropertyPage::GetPageInfo gives it: on Windows in pixels, in memory, where dialogs have no
/// pixels, in dialog units. 0 x 0 if the module has no such dialog.
SIZE DSDialogSize(HINSTANCE module, UINT dialogId);
