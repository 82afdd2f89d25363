#include "pages/ppg_controls.h"

#include <new>
#include <optional>

#include "host/base/module_use.h"
#include "pages/vx_ds_ppg.h"
#include "sdk/resources/resources.h"

namespace ruvex {
namespace {

/// Characters of the longest item of a combo box, the terminating zero included.
constexpr int kMostItemText = 256;

// What differs between the kinds of records: type, access to the VARIANT, and whether the property
// is animated.

constexpr VARTYPE typeOf(const VxPPGIntControl&) {
    return VT_I4;
}
constexpr VARTYPE typeOf(const VxPPGBoolControl&) {
    return VT_BOOL;
}
constexpr VARTYPE typeOf(const VxPPGDoubleControl&) {
    return VT_R8;
}

VARIANT variantOf(const VxPPGIntControl& record) {
    return DSVariantFromLong(record.value);
}
VARIANT variantOf(const VxPPGBoolControl& record) {
    return DSVariantFromBool(record.value != 0);
}
VARIANT variantOf(const VxPPGDoubleControl& record) {
    return DSVariantFromReal(record.value);
}

std::int32_t numberIn(const VARIANT& value, const VxPPGIntControl&) {
    return value.lVal;
}
std::int32_t numberIn(const VARIANT& value, const VxPPGBoolControl&) {
    return value.lVal;
}
double numberIn(const VARIANT& value, const VxPPGDoubleControl&) {
    return value.dblVal;
}

constexpr bool isAnimated(const VxPPGIntControl&) {
    return false;
}
constexpr bool isAnimated(const VxPPGBoolControl&) {
    return false;
}
bool isAnimated(const VxPPGDoubleControl& record) {
    return record.animated;
}

template <class Record>
void write(const Record& record) {
    if (!record.page) return;
    VxDsPPG& page = *record.page;
    if (!record.localOnly) {
        const VARIANT value = variantOf(record);
        isAnimated(record)
            ? page.SetAnimatedProperty(record.property, &value, nullptr, page.undoStyle,
                                       DSTIME_CURRENT)
            : page.SetPlainProperty(record.property, &value, nullptr, page.undoStyle);
    }
    if (record.controlId != 0) page.SetControlFromBoundVariable(record.controlId);
}

/// The property's value in the host; no value if it can't be read.
template <class Record>
auto hostValue(const Record& record) {
    using Number = decltype(record.value);
    VARIANT value{};
    VxDsPPG& page = *record.page;
    if (record.property == GUID_NoProperty) return std::optional<Number>();
    const HRESULT status =
        isAnimated(record)
            ? page.GetAnimatedProperty(record.property, &value, nullptr, DSTIME_CURRENT)
            : page.GetPlainProperty(record.property, &value, nullptr);
    if (FAILED(status) || value.vt != typeOf(record)) return std::optional<Number>();
    return std::optional<Number>(numberIn(value, record));
}

template <class Record>
auto read(const Record& record) {
    using Number = decltype(record.value);
    if (!record.page) return Number{};
    if (!record.page->changedProperty || record.localOnly) return record.value;
    return hostValue(record).value_or(record.value);
}

template <class Record>
bool isConcerned(const Record& record) {
    if (!record.page || !record.page->changedProperty || record.localOnly) return false;
    const GUID& changed = *record.page->changedProperty;
    const bool hasValue = *record.page->changedValue != nullptr;
    if (!hasValue && changed == GUID_NoProperty) return false;
    return changed == record.property || changed == GUID_AllProperties;
}

template <class Record>
bool takeNotification(Record& record) {
    if (!isConcerned(record)) return false;
    const DSVARIANT* const changed = *record.page->changedValue;
    // A value of another type can't be meant for this record.
    record.value = changed && changed->vt == typeOf(record)
                       ? numberIn(*changed, record)
                       : hostValue(record).value_or(record.value);
    return true;
}

}  // namespace

std::int32_t VxPPGIntControl::Get() const {
    return read(*this);
}
std::int32_t VxPPGBoolControl::Get() const {
    return read(*this);
}
double VxPPGDoubleControl::Get() const {
    return read(*this);
}

void VxPPGIntControl::Set(std::int32_t number) {
    value = number;
    write(*this);
}
void VxPPGBoolControl::Set(std::int32_t number) {
    value = number;
    write(*this);
}
void VxPPGDoubleControl::Set(double number) {
    value = number;
    write(*this);
}

bool VxPPGIntControl::NotificationUpdates() {
    return takeNotification(*this);
}
bool VxPPGBoolControl::NotificationUpdates() {
    return takeNotification(*this);
}
bool VxPPGDoubleControl::NotificationUpdates() {
    return takeNotification(*this);
}

void VxPPGIntControl::ClearCombo() const {
    SendMessageW(window(), CB_RESETCONTENT, 0, 0);
}

void VxPPGIntControl::AddComboString(UINT stringId, bool selected) const {
    wchar_t text[kMostItemText] = {};
    if (!page || LoadStringW(moduleInstance, stringId, text, kMostItemText) == 0) return;
    const auto item = reinterpret_cast<LPARAM>(text);
    const HWND combo = window();
    if (combo && SendMessageW(combo, CB_ADDSTRING, 0, item) < 0) throw std::bad_alloc();
    if (selected) SendMessageW(combo, WM_SETTEXT, 0, item);
}

}  // namespace ruvex
