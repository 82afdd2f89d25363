#include "sdk/resources/module_resource.h"
#include "sdk/resources/resource_file.h"

namespace ruvex {

std::span<const unsigned char> moduleDialog(HINSTANCE module, std::uint16_t number) {
    if (!module || !module->resourcesBegin) return {};
    const ResourceFile file({module->resourcesBegin, module->resourcesEnd});
    const auto record = file.find(ResourceType::Dialog, number);
    return record ? record->data : std::span<const unsigned char>();
}

}  // namespace ruvex
