// The values and keys of all parameters: defaults, a look over them, and the host's own values on
// top.

#pragma once

#include <span>
#include <string>
#include <vector>

#include "looks/look.h"
#include "runtime/effect_session.h"

namespace ruvex::adapters {

/// Every parameter that the render reads, in the order of the table: the last change in `values`,
/// or else in `look`, or else the default.
std::vector<looks::ParameterChange> completeState(std::span<const looks::ParameterChange> look,
                                                  std::span<const looks::Setting> values);

/// Brings a session from one complete state to another; makes only the changes that differ, since
/// hosts set every parameter before every frame. Throws runtime::Error.
void changeState(runtime::EffectSession& session, std::span<const looks::ParameterChange> from,
                 std::span<const looks::ParameterChange> to);

/// The look with this name or in this file; an empty name means one without changes. A look that
/// cannot be read gives such a one too, and a message on standard error.
looks::Look readLookOrReport(const std::string& name);

}  // namespace ruvex::adapters
