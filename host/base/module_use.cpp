#include "host/base/module_use.h"

namespace ruvex {

HINSTANCE moduleInstance = nullptr;
std::atomic<std::int32_t> objectCount{0};

}  // namespace ruvex
