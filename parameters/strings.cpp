#include "parameters/strings.h"

#include <algorithm>
#include <array>

#include "parameters/parameter_rows.h"

namespace ruvex::strings {
namespace {

/// The strings that belong to no parameter. An even number up to 16 is the description of a class;
/// the odd number before it is the page's title. Released spellings do not change.
constexpr Entry kModuleStrings[] = {
    {1, "V_Ruvex"},
    {2, "Osterlin's Ruvex Effect"},
    {3, "V_Ruvex"},
    {4, "V_Ruvex's main PPG"},
    {5, "Guns"},
    {6, "V_Ruvex's guns PPG"},
    {7, "Breakup 1"},
    {8, "V_Ruvex's 1st breakup PPG"},
    {9, "Breakup 2"},
    {10, "V_Ruvex's 2nd breakup PPG"},
    {11, "Shash"},
    {12, "V_Ruvex's shash PPG"},
    {13, "Effects"},
    {14, "V_Ruvex's effects PPG"},
    {15, "Help"},
    {16, "V_Ruvex's help PPG"},
    {1161,
     "V_Ruvex simulates faulty television reception and video winding effects. Noise, picture "
     "breakup, roll, colour breakup and much more can be introduced.\n"
     "The 'Master Breakup' is an overall control, each effect has it's own 'threshold', when the "
     "'Master Breakup' is over this threshold, the effect will start to kick in. So by animating "
     "'Master Breakup' (or using it's own 'Breakup Variation' parameter) the individual V_Ruvex "
     "effects will vary over time.\n"},
    {4996, "Cropping"},
    // The page is shared between effects and kept the name of the first.
    {4997, "V_Quaver's main PPG (with edge methods)"},
};

/// The two colour groups have a name and a tool-tip, but no parameter.
constexpr Entry kGroupStrings[] = {
    {1128, "Tint Colour"},
    {1129, "The colour to apply to pixels at 'Mid Point' luminance."},
    {5020, "Crop Colour"},
    {5021, "Colour to use off edges."},
};

/// The tool-tip of each page's Reset button.
constexpr std::string_view kResetTip = "Sets the values of this page back.";
constexpr Entry kResetTips[] = {{1150, kResetTip}, {1152, kResetTip}, {1154, kResetTip},
                                {1156, kResetTip}, {1158, kResetTip}, {1160, kResetTip},
                                {5035, kResetTip}};

constexpr std::size_t stringCount() {
    std::size_t count =
        std::size(kModuleStrings) + std::size(kGroupStrings) + std::size(kResetTips);
    for (const ParameterRow& row : kParameterRows) count += 2 + row.choices.size();
    return count;
}

constexpr auto makeTable() {
    std::array<Entry, stringCount()> entries{};
    auto next = std::ranges::copy(kModuleStrings, entries.begin()).out;
    next = std::ranges::copy(kGroupStrings, next).out;
    next = std::ranges::copy(kResetTips, next).out;
    for (const ParameterRow& row : kParameterRows) {
        *next++ = {row.nameString, row.name};
        *next++ = {row.hintString, row.hint};
        for (const Choice& choice : row.choices) *next++ = {choice.stringId, choice.label};
    }
    std::ranges::sort(entries, {}, &Entry::id);
    return entries;
}

constexpr auto kTable = makeTable();

constexpr bool identifiersRise() {
    return std::ranges::adjacent_find(kTable, std::ranges::greater_equal{}, &Entry::id) ==
           kTable.end();
}
static_assert(identifiersRise());

}  // namespace

std::span<const Entry> table() {
    return kTable;
}

std::string_view text(int id) {
    const auto found = std::ranges::lower_bound(kTable, id, {}, &Entry::id);
    return found != kTable.end() && found->id == id ? found->text : std::string_view{};
}

}  // namespace ruvex::strings
