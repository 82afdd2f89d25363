#include "adapters/openfx/overlay/tool_class.h"

namespace ruvex::openfx {

struct ToolClass::Registration {};

ToolClass::ToolClass(const runtime::Module&) {}
ToolClass::~ToolClass() = default;

}  // namespace ruvex::openfx
