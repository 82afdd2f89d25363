#include "pages/ppg_colour_group.h"

#include <algorithm>
#include <functional>

#include "pages/control_interface.h"
#include "pages/vx_ds_ppg.h"
#include "sdk/controls/colour_chip.h"

namespace ruvex {
namespace {

constexpr std::int32_t kWhole = 255;
constexpr float kMostPercent = 100.0f;

/// Ends the suppression of the page's reaction to notifications.
class Suppression {
public:
    explicit Suppression(VxDsPPG& page) : page_(&page) { ++page_->notifySuppress; }
    ~Suppression() { --page_->notifySuppress; }
    Suppression(const Suppression&) = delete;
    Suppression& operator=(const Suppression&) = delete;

private:
    ComPtr<VxDsPPG> page_;
};

}  // namespace

std::int32_t chipComponent(double percent) {
    const float component = static_cast<float>(percent) * 2.55f;
    if (component >= static_cast<float>(kWhole)) return kWhole;
    return component > 0.0f ? static_cast<std::int32_t>(component) : 0;
}

double percentOfChip(std::int32_t component) {
    return component * 100.0 / 255.0;
}

std::optional<std::size_t> VxPPGColourGroup::componentOf(const GUID& id) const {
    const VxPPGDoubleControl* const records[] = {&red, &green, &blue, &alpha};
    const std::size_t count = hasAlpha() ? 4 : 3;
    for (std::size_t i = 0; i < count; ++i) {
        if (records[i]->property == id) return i;
    }
    return std::nullopt;
}

void VxPPGColourGroup::ShowInChip(std::span<const float, 4> rgba) const {
    const auto chip = controlInterface<IDSColourChip>(window());
    if (!chip) return;
    chip->SetColour(chipComponent(rgba[0]), chipComponent(rgba[1]), chipComponent(rgba[2]), kWhole);
}

void VxPPGColourGroup::UpdateChipFromValues() const {
    if (!page) return;
    const auto component = [](const VxPPGDoubleControl& record) {
        return static_cast<float>(record.Get());
    };
    const float rgba[] = {component(red), component(green), component(blue), kMostPercent};
    ShowInChip(rgba);
}

void VxPPGColourGroup::UpdateValuesFromChip() {
    if (!page) return;
    const Suppression suppressed(*page);
    const auto chip = controlInterface<IDSColourChip>(window());
    LONG r = 0;
    LONG g = 0;
    LONG b = 0;
    LONG a = 0;
    if (!chip || FAILED(chip->GetColour(&r, &g, &b, &a))) return;
    red.Set(percentOfChip(r));
    green.Set(percentOfChip(g));
    blue.Set(percentOfChip(b));
}

void VxPPGColourGroup::SetColour(std::span<const float, 4> rgba) {
    if (!page) return;
    const auto clamped = [](float percent) { return std::clamp(percent, 0.0f, kMostPercent); };
    red.Set(clamped(rgba[0]));
    green.Set(clamped(rgba[1]));
    blue.Set(clamped(rgba[2]));
    if (hasAlpha()) alpha.Set(clamped(rgba[3]));
    ShowInChip(rgba);
}

bool VxPPGColourGroup::NotificationUpdates(std::span<float, 4> rgba) {
    if (!page) return false;
    VxPPGDoubleControl* const records[] = {&red, &green, &blue, &alpha};
    const std::size_t count = hasAlpha() ? 4 : 3;
    bool updated[4] = {};
    for (std::size_t i = 0; i < count; ++i) updated[i] = records[i]->NotificationUpdates();
    if (std::ranges::none_of(updated, std::identity())) return false;
    for (std::size_t i = 0; i < 4; ++i) {
        const double value = updated[i] ? records[i]->value : records[i]->Get();
        rgba[i] = static_cast<float>(value);
    }
    return true;
}

void VxPPGColourGroup::SetNumberRanges() const {
    for (const VxPPGDoubleControl* record : {&red, &green, &blue}) {
        record->SetRange(0.0, kMostPercent);
    }
    if (hasAlpha()) alpha.SetRange(0.0, kMostPercent);
}

void VxPPGColourGroup::showAll(int command) const {
    show(command);
    for (const VxPPGDoubleControl* record : {&red, &green, &blue}) {
        command == SW_HIDE ? record->Hide() : record->Show();
    }
    if (!hasAlpha()) return;
    command == SW_HIDE ? alpha.Hide() : alpha.Show();
}

}  // namespace ruvex
