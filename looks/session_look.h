// Applying a look to a session, and reading it back.

#pragma once

#include <span>
#include <vector>

#include "looks/look.h"
#include "runtime/effect_session.h"

namespace ruvex::looks {

/// Makes the changes in their order; parameters that are not among them keep their state. Throws
/// runtime::Error.
void applyChanges(runtime::EffectSession& session, std::span<const ParameterChange> changes);

/// Every parameter of the table as the session has it: its keys, or its value. Throws
/// runtime::Error.
std::vector<ParameterChange> changesOf(const runtime::EffectSession& session);

}  // namespace ruvex::looks
