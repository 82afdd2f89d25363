#include "adapters/openfx/parameter_values.h"

#include "adapters/openfx/change_reader.h"
#include "adapters/openfx/held_values.h"
#include "parameters/parameter_table.h"

namespace ruvex::openfx {

int ParameterValues::wholeAt(const DeclaredParameter& parameter, double hostTime) const {
    return heldWhole(parameter, set_.find(parameter.name).wholeAt(hostTime));
}

double ParameterValues::valueAt(ParameterId id, double hostTime) const {
    const ParameterRow& wanted = row(id);
    const DeclaredParameter* const declared = declaredFor(id);
    if (!declared) return wanted.defaultValue;
    if (declared->kind == DeclaredKind::Real) {
        return heldReal(wanted, set_.find(declared->name).realAt(hostTime));
    }
    if (declared->kind != DeclaredKind::Colour) return wholeAt(*declared, hostTime);
    const int channel = static_cast<int>(id) - static_cast<int>(declared->row->id);
    if (channel >= kColourChannels) return wanted.defaultValue;
    const auto colour = set_.find(declared->name).colourAt(hostTime);
    return roundedPercent(heldReal(wanted, channelValue(colour, channel)));
}

adapters::ResultAlpha ParameterValues::resultAlphaAt(double hostTime) const {
    return static_cast<adapters::ResultAlpha>(
        wholeAt(ownParameter(Purpose::ResultAlpha), hostTime));
}

int ParameterValues::firstFrameAt(double hostTime) const {
    return wholeAt(ownParameter(Purpose::FirstFrame), hostTime);
}

int ParameterValues::frameWidthAt(double hostTime) const {
    return wholeAt(ownParameter(Purpose::FrameWidth), hostTime);
}

int ParameterValues::frameHeightAt(double hostTime) const {
    return wholeAt(ownParameter(Purpose::FrameHeight), hostTime);
}

std::vector<looks::ParameterChange> ParameterValues::changesAt(double hostTime,
                                                               const EffectClock& clock) const {
    std::vector<looks::ParameterChange> changes;
    for (const DeclaredParameter& parameter : parameterList()) {
        if (!parameter.row || !parameter.rendered) continue;
        const HostParameter found = set_.find(parameter.name);
        if (parameter.kind == DeclaredKind::Real) {
            changes.push_back(ChangeReader(found, hostTime, clock).read(*parameter.row));
        } else if (parameter.kind == DeclaredKind::Colour) {
            const ChangeReader reader(found, hostTime, clock);
            for (int channel = 0; channel < kColourChannels; ++channel) {
                changes.push_back(reader.read(channelRow(*parameter.row, channel), channel));
            }
        } else {
            const int value = heldWhole(parameter, found.wholeAt(hostTime));
            changes.emplace_back(looks::Setting{parameter.row->id, static_cast<double>(value)});
        }
    }
    return changes;
}

}  // namespace ruvex::openfx
