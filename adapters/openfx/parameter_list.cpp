#include "adapters/openfx/parameter_list.h"

#include <algorithm>

#include "adapters/common/parameter_name.h"
#include "adapters/openfx/effect_time.h"
#include "adapters/openfx/look_list.h"
#include "adapters/openfx/parameter_names.h"
#include "looks/look.h"
#include "parameters/parameter_table.h"
#include "parameters/reset_values.h"

namespace ruvex::openfx {
namespace {

using Id = ParameterId;
using Page = ParameterPage;

constexpr Page kGroupPages[] = {Page::Main,     Page::Guns,  Page::Breakup1,
                                Page::Breakup2, Page::Shash, Page::Effects,
                                Page::Cropping, Page::Help,  Page::Host};
constexpr int kUsualDecimals = 2;

/// Whether a parameter is declared for the row. A colour is one parameter, declared for its red
/// channel. Of the rows that no render reads, the host gets the presets and Hide Overlay Controls.
bool isDeclared(const ParameterRow& row) {
    if (adapters::isColourChannel(row)) return adapters::beginsColour(row);
    return row.rendered || row.id == Id::Presets || row.id == Id::HideOverlayControls;
}

DeclaredKind kindOf(const ParameterRow& row) {
    if (adapters::beginsColour(row)) return DeclaredKind::Colour;
    if (isReal(row.kind)) return DeclaredKind::Real;
    if (!row.choices.empty()) return DeclaredKind::Choice;
    // Channel masks are numbers without a range: 0, or anything else.
    const bool mask = row.page == Page::Host;
    return isCheckBox(row.kind) || mask ? DeclaredKind::CheckBox : DeclaredKind::Integer;
}

std::vector<std::string> choicesOf(const ParameterRow& row) {
    std::vector<std::string> labels;
    if (row.id == Id::Presets) {
        // The title of the list; all looks, the presets among them, come after it.
        labels.emplace_back(row.choices.front().label);
        for (const looks::Look& look : lookList()) labels.push_back(look.name);
        return labels;
    }
    for (const Choice& choice : row.choices) labels.emplace_back(choice.label);
    return labels;
}

std::array<double, 3> defaultsOf(const ParameterRow& row) {
    if (!adapters::beginsColour(row)) return {row.defaultValue};
    std::array<double, 3> channels{};
    for (int i = 0; i < kColourChannels; ++i) {
        channels[static_cast<std::size_t>(i)] = channelRow(row, i).defaultValue / kPercentOfWhite;
    }
    return channels;
}

DeclaredParameter declared(const ParameterRow& row) {
    const bool colour = adapters::beginsColour(row);
    return {.name = scriptName(row),
            .label = std::string(colour ? adapters::colourLabel(row) : row.label),
            .hint = std::string(row.hint),
            .kind = kindOf(row),
            .page = row.page,
            .row = &row,
            .defaults = defaultsOf(row),
            .range = row.enteredRange(),
            .displayRange = row.controlRange,
            .decimals = row.decimals.value_or(kUsualDecimals),
            .choices = choicesOf(row),
            .rendered = row.rendered};
}

DeclaredParameter resetButton(Page page) {
    return {.name = resetName(page),
            .label = "Reset",
            .hint = "Sets the values of this page back.",
            .kind = DeclaredKind::Button,
            .page = page,
            .purpose = Purpose::Reset,
            .rendered = false};
}

DeclaredParameter ownNumber(Purpose purpose, const char* label, const char* hint, Range range,
                            Range displayRange) {
    return {.name = scriptName(label),
            .label = label,
            .hint = hint,
            .kind = DeclaredKind::Integer,
            .page = Page::Host,
            .purpose = purpose,
            .range = range,
            .displayRange = displayRange};
}

DeclaredParameter resultAlpha() {
    return {.name = scriptName("Result Alpha"),
            .label = "Result Alpha",
            .hint =
                "The alpha of the result. Automatic: opaque if the source is opaque, else the "
                "effect's.",
            .kind = DeclaredKind::Choice,
            .page = Page::Host,
            .purpose = Purpose::ResultAlpha,
            .choices = {kResultAlphas.begin(), kResultAlphas.end()}};
}

/// The plug-in's own parameters, after the channel masks.
void addOwn(std::vector<DeclaredParameter>& all) {
    constexpr Range kSides{0, looks::kLongestProjectSide}, kUsualSides{0, 4096};
    constexpr Range kFrames{-kLastFrame, kLastFrame}, kUsualFrames{0, 1000};
    all.push_back(resultAlpha());
    all.push_back(ownNumber(Purpose::FirstFrame, "First Frame",
                            "The frame of the host at which the effect's time is 0.", kFrames,
                            kUsualFrames));
    all.push_back(ownNumber(Purpose::FrameWidth, "Frame Width",
                            "The width, in pixels, of the frame that lengths refer to; 0 for the "
                            "picture's.",
                            kSides, kUsualSides));
    all.push_back(ownNumber(Purpose::FrameHeight, "Frame Height",
                            "The height, in pixels, of the frame that lengths refer to; 0 for the "
                            "picture's.",
                            kSides, kUsualSides));
    all.push_back(resetButton(Page::Host));
}

/// A page's parameters in the order of the table, but the presets first.
void addPage(Page page, std::vector<DeclaredParameter>& all) {
    if (page == Page::Main) all.push_back(declared(row(Id::Presets)));
    for (const ParameterRow& row : parameterTable()) {
        if (row.page != page || row.id == Id::Presets || !isDeclared(row)) continue;
        all.push_back(declared(row));
    }
    if (!resetValues(page).empty()) all.push_back(resetButton(page));
}

std::vector<DeclaredParameter> makeList() {
    std::vector<DeclaredParameter> all;
    for (const Page page : kGroupPages) addPage(page, all);
    addOwn(all);
    return all;
}

template <class Condition>
const DeclaredParameter* findWhere(Condition condition) {
    const auto all = parameterList();
    const auto found = std::ranges::find_if(all, condition);
    return found == all.end() ? nullptr : &*found;
}

}  // namespace

std::span<const ParameterPage> groupPages() {
    return kGroupPages;
}

std::span<const DeclaredParameter> parameterList() {
    static const std::vector<DeclaredParameter> all = makeList();
    return all;
}

const DeclaredParameter* findDeclared(std::string_view name) {
    return findWhere([&](const DeclaredParameter& parameter) { return parameter.name == name; });
}

const DeclaredParameter& ownParameter(Purpose purpose) {
    return *findWhere(
        [&](const DeclaredParameter& parameter) { return parameter.purpose == purpose; });
}

const DeclaredParameter* declaredFor(ParameterId id) {
    const bool unshown = !row(id).rendered && !isDeclared(row(id));
    return unshown ? nullptr : findDeclared(scriptName(row(id)));
}

const ParameterRow& channelRow(const ParameterRow& red, int channel) {
    return row(static_cast<ParameterId>(static_cast<int>(red.id) + channel));
}

}  // namespace ruvex::openfx
