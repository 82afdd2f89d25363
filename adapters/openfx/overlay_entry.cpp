#include "adapters/openfx/overlay_entry.h"

namespace ruvex::openfx {

void declareOverlay(const Host&, const Properties&) {}

}  // namespace ruvex::openfx
