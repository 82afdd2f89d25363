// The records that bind a property to a control of a page.

#pragma once

#include <cstdint>

#include "pages/ppg_pair.h"
#include "sdk/com/guid.h"

namespace ruvex {

// `value` is the bound variable: the base class writes it when the control or the property changes.
// A record with `localOnly` has no stored property: no read and no write reaches the host.
//
// `Set` stores the value, writes the property and shows the value in the control; the status of the
// write is ignored. `Get` reads the property while the page is handling a notification, and gives
// the bound variable otherwise and if the read fails; 0 without a page.
//
// `NotificationUpdates`: whether the notification that the page is handling is about this record;
// then `value` is the new value.

/// A whole number or the selected item of a combo box.
struct VxPPGIntControl : VxPPGPair {
    GUID property{};
    bool localOnly = false;
    std::int32_t value = 0;

    std::int32_t Get() const;
    void Set(std::int32_t number);
    bool NotificationUpdates();

    /// Removes all items of the combo box.
    void ClearCombo() const;
    /// Appends a string of the module as an item of the combo box; does nothing if there is no such
    /// string. `selected` also makes it the text that is shown at first. Throws std::bad_alloc if
    /// the combo box has no memory for the item, since later items would have other values.
    void AddComboString(UINT stringId, bool selected) const;
};

/// A check box; `value` is 0 or 1.
struct VxPPGBoolControl : VxPPGPair {
    GUID property{};
    bool localOnly = false;
    std::int32_t value = 0;

    std::int32_t Get() const;
    void Set(std::int32_t number);
    bool NotificationUpdates();
};

/// A real number.
struct VxPPGDoubleControl : VxPPGPair {
    GUID property{};
    bool localOnly = false;
    double value = 0.0;
    bool animated = false;

    double Get() const;
    void Set(double number);
    bool NotificationUpdates();
};

}  // namespace ruvex
