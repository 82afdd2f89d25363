#include "sdk/resources/module_resource.h"

namespace ruvex {

std::span<const unsigned char> moduleDialog(HINSTANCE module, std::uint16_t number) {
    const HRSRC found =
        FindResourceW(module, MAKEINTRESOURCEW(number), reinterpret_cast<LPCWSTR>(RT_DIALOG));
    const HGLOBAL loaded = found ? LoadResource(module, found) : nullptr;
    const void* const bytes = loaded ? LockResource(loaded) : nullptr;
    if (!bytes) return {};
    return {static_cast<const unsigned char*>(bytes), SizeofResource(module, found)};
}

}  // namespace ruvex
