#include "sdk/pages/list_choice.h"

#include <utility>

DSListEvent DSListChoice::follow(UINT id, bool opened, UINT code) {
    if (code == CBN_SELCHANGE) {
        moved_ = opened;
        id_ = id;
        return opened ? DSListEvent::None : DSListEvent::Chosen;
    }
    const bool ends = id == id_ && (code == CBN_SELENDCANCEL || code == CBN_CLOSEUP);
    if (!ends || !std::exchange(moved_, false)) return DSListEvent::None;
    return code == CBN_CLOSEUP ? DSListEvent::Chosen : DSListEvent::Cancelled;
}
