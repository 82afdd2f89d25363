#include "sdk/controls/number_control.h"

#include <algorithm>
#include <cmath>

#include "sdk/com/com_ptr.h"
#include "sdk/controls/decimal_sum.h"

namespace {

constexpr int kPixelsPerStep = 2;
/// The fewest decimals with which a remark may show an end of the range.
constexpr int kLimitDecimals = 3;

void dropUselessLimits(CDSNumberControl::Options& options) {
    const auto useless = [](const auto& limit) { return limit && !std::isfinite(*limit); };
    if (useless(options.low)) options.low.reset();
    if (useless(options.high)) options.high.reset();
    if (options.low && options.high && *options.low > *options.high) {
        options.low.reset();
        options.high.reset();
    }
}

}  // namespace

HRESULT CDSNumberControl::QueryInterface(const GUID& id, void** out) {
    if (!out || id != kModelId) return ComObject::QueryInterface(id, out);
    *out = this;
    AddRef();
    return S_OK;
}

CDSNumberControl::CDSNumberControl(Options options) : options_(std::move(options)) {
    dropUselessLimits(options_);
    options_.decimals = std::clamp(options_.decimals, 0, kMostDecimals);
}

HRESULT CDSNumberControl::SetRange(const VARIANT* low, const VARIANT* high) {
    if (!low || !high) return E_POINTER;
    if (low->vt != VT_R8 || high->vt != VT_R8) return E_INVALIDARG;
    if (!std::isfinite(low->dblVal) || !std::isfinite(high->dblVal)) return E_INVALIDARG;
    if (low->dblVal > high->dblVal) return E_INVALIDARG;
    options_.low = low->dblVal;
    options_.high = high->dblVal;
    return S_OK;
}

std::string CDSNumberControl::text() const {
    return typed_ ? *typed_ : textOf(value_, options_.decimals);
}

void CDSNumberControl::show(double value) {
    if (value == value_ && !typed_) return;
    if (value != value_) remark_.clear();
    value_ = value;
    typed_.reset();
    changed();
}

void CDSNumberControl::type(std::string_view text) {
    if (dragging()) return;
    typed_ = std::string(text);
    remark_.clear();
    changed();
}

void CDSNumberControl::enter() {
    if (!typed_) return;
    const ComPtr<CDSNumberControl> alive(this);
    const auto wanted = valueOf(*typed_);
    typed_.reset();
    if (!wanted || *wanted == valueOf(text())) return changed();
    remark_ = reasonFor(*wanted);
    if (held(*wanted) == value_) return changed();
    change(held(*wanted), DSNumberEdit::Entered, remark_);
}

void CDSNumberControl::revert() {
    const ComPtr<CDSNumberControl> alive(this);
    if (!drag_) {
        remark_.clear();
        return show(value_);
    }
    value_ = drag_->first;
    drag_.reset();
    changed();
    notify(DSNumberEdit::DragCancelled);
}

void CDSNumberControl::step(int steps, DSStepKeys keys) {
    if (dragging() || steps == 0) return;
    const ComPtr<CDSNumberControl> alive(this);
    enter();
    change(held(ruvex::decimalSum(value_, steps * stepSize(keys))), DSNumberEdit::Stepped);
}

void CDSNumberControl::wheel(int notches, bool focused, DSStepKeys keys) {
    if (focused) step(notches, keys);
}

void CDSNumberControl::beginDrag() {
    if (dragging()) return;
    const ComPtr<CDSNumberControl> alive(this);
    enter();
    drag_ = Drag{.first = value_, .base = value_};
    notify(DSNumberEdit::DragBegan);
}

void CDSNumberControl::drag(int pixels, DSStepKeys keys) {
    if (!drag_) return;
    if (keys != drag_->keys) {
        drag_->base = value_;
        drag_->origin = drag_->position;
        drag_->keys = keys;
    }
    drag_->position = pixels;
    const std::int64_t moved = std::int64_t{pixels} - drag_->origin;
    const std::int64_t steps = moved / kPixelsPerStep;
    // Back at its origin a drag gives the value from there, also if that has more decimals or is
    // outside the range.
    const double base = drag_->base;
    const double added = static_cast<double>(steps) * stepSize(keys);
    change(steps == 0 ? base : held(ruvex::decimalSum(base, added)), DSNumberEdit::Dragged);
}

void CDSNumberControl::endDrag() {
    if (!drag_) return;
    drag_.reset();
    notify(DSNumberEdit::DragEnded);
}

double CDSNumberControl::held(double value) const {
    double result = options_.decimals == 0 ? std::round(value) : value;
    if (options_.low && result < *options_.low) result = *options_.low;
    if (options_.high && result > *options_.high) result = *options_.high;
    return result == 0.0 ? 0.0 : result;  // no negative zero
}

std::string CDSNumberControl::reasonFor(double wanted) const {
    const int decimals = std::max(options_.decimals, kLimitDecimals);
    const auto limit = [&](double value) { return textOf(value, decimals); };
    if (options_.low && wanted < *options_.low) return "at least " + limit(*options_.low);
    if (options_.high && wanted > *options_.high) return "at most " + limit(*options_.high);
    return held(wanted) == wanted ? "" : "whole numbers only";
}

void CDSNumberControl::change(double value, DSNumberEdit edit, std::string remark) {
    if (value == value_ || !std::isfinite(value)) return;
    const ComPtr<CDSNumberControl> alive(this);
    value_ = value;
    remark_ = std::move(remark);
    changed();
    notify(edit);
}

void CDSNumberControl::notify(DSNumberEdit edit) {
    const ComPtr<CDSNumberControl> alive(this);
    // A copy, since the listener may replace itself.
    if (const Listener listener = listener_) listener(edit);
}

void CDSNumberControl::changed() {
    const ComPtr<CDSNumberControl> alive(this);
    if (const auto observer = observer_) observer();
}

double CDSNumberControl::stepSize(DSStepKeys keys) const {
    constexpr double kStep = 1.0, kLargeStep = 10.0, kSmallStep = 0.1;
    if (keys == DSStepKeys::Shift) return kLargeStep;
    if (keys == DSStepKeys::Control && options_.decimals > 0) return kSmallStep;
    return kStep;
}
