#include "adapters/openfx/parameter_edits.h"

#include <algorithm>
#include <variant>

#include "adapters/openfx/edit_block.h"
#include "adapters/openfx/look_keys.h"
#include "adapters/openfx/parameter_names.h"
#include "parameters/parameter_table.h"
#include "parameters/reset_values.h"

namespace ruvex::openfx {
namespace {

/// Writes changes into a set of parameters.
class ChangeWriter {
public:
    ChangeWriter(const ParameterSet& set, const EffectClock& clock) : set_(set), clock_(clock) {}

    /// Writes the parameters that `changes` name. Where they name only some channels of a colour,
    /// the others keep their value at `time`, from `values`.
    void write(std::span<const looks::ParameterChange> changes, const ParameterValues& values,
               double time) const {
        for (const DeclaredParameter& parameter : parameterList()) {
            if (!parameter.row || parameter.row->id == ParameterId::Presets) continue;
            if (parameter.kind == DeclaredKind::Colour) {
                writeColour(parameter, changes, values, time);
            } else if (const auto* change = changeFor(parameter.row->id, changes)) {
                writeNumber(parameter, *change);
            }
        }
    }

private:
    static const looks::ParameterChange* changeFor(
        ParameterId id, std::span<const looks::ParameterChange> changes) {
        const auto found = std::ranges::find_if(
            changes, [&](const auto& change) { return looks::rowOf(change).id == id; });
        return found == changes.end() ? nullptr : &*found;
    }

    void writeNumber(const DeclaredParameter& parameter,
                     const looks::ParameterChange& change) const {
        const HostParameter found = set_.find(parameter.name);
        if (const auto* animation = std::get_if<looks::Animation>(&change)) {
            found.removeKeys();
            for (const FrameKey& key : hostKeys(*animation, clock_)) {
                found.setRealAt(key.frame, key.value);
            }
            return;
        }
        const double value = std::get<looks::Setting>(change).value;
        if (parameter.kind == DeclaredKind::Real) return found.setReal(value);
        found.setWhole(static_cast<int>(value));
    }

    void writeColour(const DeclaredParameter& parameter,
                     std::span<const looks::ParameterChange> changes, const ParameterValues& values,
                     double time) const {
        std::array<looks::ParameterChange, kColourChannels> channels;
        bool changed = false;
        for (int i = 0; i < kColourChannels; ++i) {
            const ParameterId id = channelRow(*parameter.row, i).id;
            const auto* change = changeFor(id, changes);
            changed = changed || change;
            channels[static_cast<std::size_t>(i)] =
                change ? *change : looks::Setting{id, values.valueAt(id, time)};
        }
        if (!changed) return;
        const HostParameter found = set_.find(parameter.name);
        const std::vector<ColourKey> keys = hostColours(channels, clock_);
        if (keys.size() == 1) return found.setColour(keys.front().colour);
        found.removeKeys();
        for (const ColourKey& key : keys) found.setColourAt(key.frame, key.colour);
    }

    const ParameterSet& set_;
    EffectClock clock_;
};

/// Frame Width or Frame Height; 0 for the picture's.
void setFrameSide(const Instance& instance, Purpose side, int pixels, double time) {
    const DeclaredParameter& parameter = ownParameter(side);
    if (instance.values().wholeAt(parameter, time) == pixels) return;
    instance.parameters().find(parameter.name).setWhole(pixels);
}

/// The channel masks and the plug-in's own parameters, all of them whole numbers.
void resetHostGroup(const ParameterSet& set) {
    for (const DeclaredParameter& parameter : parameterList()) {
        const bool button = parameter.kind == DeclaredKind::Button;
        if (parameter.page != ParameterPage::Host || button) continue;
        set.find(parameter.name).setWhole(static_cast<int>(parameter.defaults[0]));
    }
}

}  // namespace

void applyLook(const Instance& instance, const looks::Look& look, double time) {
    const ParameterSet set = instance.parameters();
    // Before the block: some hosts include the list in undo although it asks them not to. If the
    // list changed in the block, undo would choose the preset again, and it would be applied again.
    set.find(scriptName(row(ParameterId::Presets))).setWhole(0);
    const EditBlock block(set, "Preset: " + look.name);
    const auto changes = looks::lastChanges(look.changes);
    ChangeWriter(set, instance.clockAt(time)).write(changes, instance.values(), time);
    const looks::ProjectSize frame = look.projectSize.value_or(looks::ProjectSize{});
    setFrameSide(instance, Purpose::FrameWidth, frame.width, time);
    setFrameSide(instance, Purpose::FrameHeight, frame.height, time);
}

void resetPage(const Instance& instance, ParameterPage page, double time) {
    const ParameterSet set = instance.parameters();
    const EditBlock block(set, "Reset: " + std::string(groupLabel(page)));
    if (page == ParameterPage::Host) return resetHostGroup(set);
    std::vector<looks::ParameterChange> changes;
    for (const ParameterValue& reset : resetValues(page)) {
        changes.emplace_back(looks::Setting{reset.id, reset.value});
    }
    ChangeWriter(set, instance.clockAt(time)).write(changes, instance.values(), time);
}

}  // namespace ruvex::openfx
