// The state of properties as a host stores it: plain values and key frames, bit for bit.

#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "sdk/properties/properties.h"

namespace ruvex::runtime {

/// The whole state of one property.
struct PropertyState {
    GUID id{};
    VARIANT plain{};            ///< Of the property's type; also the value behind an animation.
    std::vector<DSKey> keys{};  ///< Sorted by time; empty if the property is not animated.
};

/// Whether both are states of one property with the same bits: -0.0 differs from 0.0.
bool sameBits(const PropertyState& a, const PropertyState& b);

/// The state of a property. Throws StatusError for an unknown identifier.
PropertyState readState(IDSProperties& properties, const GUID& id);

/// Whether a property belongs to the stored state: all do but those that only the user interface
/// reads.
bool isStored(const CDSParamDef& definition);

/// The stored state of all properties, in the order of declaration. Throws StatusError.
std::vector<PropertyState> readStates(IDSProperties& properties);

/// Views of states for IDSProperties::SetStates. Their key frames belong to the states.
DSPropertyState viewOf(const PropertyState& state);
std::vector<DSPropertyState> viewsOf(std::span<const PropertyState> states);

/// Replaces the states of these properties, all or none; other properties stay as they are.
/// Observers are notified once. Throws StatusError if the properties refuse them, as
/// IDSProperties::SetStates says.
void writeStates(IDSProperties& properties, std::span<const PropertyState> states);

}  // namespace ruvex::runtime
