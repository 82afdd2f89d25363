// The texts of the host's controls: numbers that a user types, and titles in dialog templates.

#include <algorithm>
#include <cmath>
#include <cstring>

#include "sdk/com/com_ptr.h"
#include "sdk/com/utf8.h"
#include "sdk/controls/control_title.h"
#include "sdk/controls/number_control.h"
#include "tests/fuzz/fuzz.h"

namespace {

using namespace ruvex;
using fuzz::demand;

void demandReadsBack(double value, int decimals) {
    const std::string text = CDSNumberControl::textOf(value, decimals);
    demand(text != "-0" && text.size() <= 40, "a number's text is short");
    const auto read = CDSNumberControl::valueOf(text);
    demand(read.has_value(), "a number's text can be read");
    // Half a unit of the last decimal, and the steps between large doubles.
    const double allowed = 0.5 * std::pow(10.0, -decimals) + std::abs(value) * 1e-15;
    demand(std::abs(*read - value) <= allowed * 1.000001, "a number reads back");
    // 999999999999999.9 rounds up to a number that is written with an exponent.
    const bool atBorder = std::abs(value) < 1e15 && std::abs(*read) >= 1e15;
    demand(atBorder || CDSNumberControl::textOf(*read, decimals) == text, "the text stays");
}

void tryNumber(double value) {
    if (!std::isfinite(value)) {
        demand(!CDSNumberControl::valueOf(CDSNumberControl::textOf(value, 3)), "only finite ones");
        return;
    }
    for (int decimals = 0; decimals <= CDSNumberControl::kMostDecimals; ++decimals) {
        demandReadsBack(value, decimals);
    }
}

/// The input as doubles, all bits included.
void tryBits(const std::uint8_t* data, std::size_t size) {
    double value;
    for (std::size_t at = 0; at + sizeof value <= size; at += sizeof value) {
        std::memcpy(&value, data + at, sizeof value);
        tryNumber(value);
    }
}

void demandInRange(const CDSNumberControl& control) {
    const double value = control.value();
    demand(!control.low() || value >= *control.low(), "at least the lower end");
    demand(!control.high() || value <= *control.high(), "at most the upper end");
}

/// A control with the title's range takes what is typed and can be stepped from there.
void tryControl(const DSControlTitle& title, std::string_view typed) {
    const auto control = ComPtr<CDSNumberControl>::attach(
        new CDSNumberControl({.label = title.label,
                              .low = title.low,
                              .high = title.high,
                              .decimals = title.decimals.value_or(3)}));
    control->show(control->low().value_or(control->high().value_or(0.0)));
    control->type(typed);
    control->enter();
    demandInRange(*control);
    control->step(3, DSStepKeys::Control);
    control->beginDrag();
    control->drag(7, DSStepKeys::Shift);
    demandInRange(*control);
    control->revert();
    demandInRange(*control);
}

void tryTitle(std::string_view text) {
    const auto title = DSControlTitle::parse(fromUtf8(text));
    if (!title) return;
    demand(title->label.find(';') == std::string::npos, "a label ends at the first semicolon");
    demand(!title->decimals || (*title->decimals >= 0 && *title->decimals <= 15), "few decimals");
    for (const auto& limit : {title->low, title->high}) {
        demand(!limit || std::isfinite(*limit), "limits are finite");
    }
    tryControl(*title, text.substr(std::min(text.size(), text.rfind(';') + 1)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = fuzz::textOf(data, size);
    if (const auto value = CDSNumberControl::valueOf(text)) tryNumber(*value);
    tryBits(data, size);
    tryTitle(text);
    return 0;
}
