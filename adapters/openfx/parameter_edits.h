// Changes that the user makes with one choice or button.

#pragma once

#include <span>

#include "adapters/openfx/instance.h"
#include "looks/look.h"

namespace ruvex::openfx {

/// Sets all that a look changes, values and keys, in one step of the host's undo, named "Preset:
/// NAME"; other parameters keep their state. The project frame of a look becomes Frame Width and
/// Frame Height, which are 0 (the picture's) after a look without one. Between keys the host
/// interpolates as it usually does; a value that is held gets a second key a frame before the next
/// one. Before that step the list of presets is set back to its title.
void applyLook(const Instance& instance, const looks::Look& look, double time);

/// Sets the values of a page back in one step, named "Reset: PAGE". The channel masks and the
/// plug-in's own parameters, which are in the group Host, go back to their defaults.
void resetPage(const Instance& instance, ParameterPage page, double time);

}  // namespace ruvex::openfx
