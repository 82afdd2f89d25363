// A colour: a chip, a group box around it, and the numbers of its components.

#pragma once

#include <optional>
#include <span>

#include "pages/ppg_controls.h"

namespace ruvex {

/// The pair is the chip and the group box. Numbers are percentages.
struct VxPPGColourGroup : VxPPGPair {
    static constexpr std::uint32_t kHasAlpha = 1;

    VxPPGDoubleControl red, green, blue, alpha;
    std::uint32_t flags = 0;

    /// Which component has this property: 0 red, 1 green, 2 blue, 3 alpha; no value if none has.
    std::optional<std::size_t> componentOf(const GUID& id) const;
    bool hasAlpha() const { return (flags & kHasAlpha) != 0; }

    /// Shows the numbers in the chip.
    void UpdateChipFromValues() const;
    /// Writes the chip's colour to red, green and blue. Meanwhile the page does not react to
    /// notifications. Does nothing without a chip.
    void UpdateValuesFromChip();
    /// Writes a colour (red, green, blue, alpha in percent), clamped to 0..100, alpha only if the
    /// group has it, and shows it in the chip.
    void SetColour(std::span<const float, 4> rgba);
    /// Whether the notification that the page is handling is about one of the numbers; then `rgba`
    /// is the whole colour.
    bool NotificationUpdates(std::span<float, 4> rgba);
    /// Shows a colour in the chip.
    void ShowInChip(std::span<const float, 4> rgba) const;
    /// Sets the range of all numbers to 0..100.
    void SetNumberRanges() const;
    void Show() const { showAll(SW_SHOWNORMAL); }
    void Hide() const { showAll(SW_HIDE); }

private:
    void showAll(int command) const;
};

/// The component 0..255 of the chip for a percentage: percent * 2.55 in single precision, truncated
/// and clamped.
std::int32_t chipComponent(double percent);
/// The percentage of a component of the chip: component * 100 / 255.
double percentOfChip(std::int32_t component);

}  // namespace ruvex
