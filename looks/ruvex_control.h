// The effect's own interface, as a session gives it.

#pragma once

#include "parameters/ruvex_interface.h"
#include "runtime/effect_session.h"

namespace ruvex::looks {

/// Valid as long as the session lives. Throws runtime::Error when the effect is not V_Ruvex.
inline IRuvexControl& ruvexControl(const runtime::EffectSession& session) {
    return *static_cast<IRuvexControl*>(session.ownInterface(kRuvexControlId));
}

}  // namespace ruvex::looks
