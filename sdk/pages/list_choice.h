// When the user has chosen an item of a drop-down list.

#pragma once

#include "sdk/window/window.h"

/// What a notification of a list means.
enum class DSListEvent {
    None,
    Chosen,     ///< The selected item is the user's choice.
    Cancelled,  ///< The user has moved the selection, and then left the list without a choice.
};

/// Follows the notifications of a dialog's lists. In a closed list each new selection is a choice.
/// In an opened one the user may move through the items with the arrow keys; the choice is made
/// when the list closes.
///
/// After a click on an item, systems send CBN_SELCHANGE before CBN_CLOSEUP or after it.
class DSSDK_API DSListChoice {
public:
    /// `code` is that of a WM_COMMAND of list `id`; `opened` what CB_GETDROPPEDSTATE answers now.
    DSListEvent follow(UINT id, bool opened, UINT code);

private:
    bool moved_ = false;  ///< The selection of the opened list `id_` has moved.
    UINT id_ = 0;
};
