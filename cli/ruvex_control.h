// The effect's own interface, as a session gives it.

#pragma once

#include "parameters/ruvex_interface.h"
#include "runtime/effect_session.h"

namespace ruvex::cli {

/// Good as long as the session. Throws runtime::Error when the effect is not ours.
inline IRuvexControl& ruvexControl(const runtime::EffectSession& session) {
    return *static_cast<IRuvexControl*>(session.ownInterface(kRuvexControlId));
}

}  // namespace ruvex::cli
