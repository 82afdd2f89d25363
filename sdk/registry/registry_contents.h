// The registry's table in memory: how entries come and go, and its text in a file.

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "sdk/registry/registry_store.h"

namespace ruvex {

/// The operations of a DSRegistryStore on a table in memory.
HRESULT addClass(DSRegistryContents& contents, const DSRegisteredClass& entry);
HRESULT removeClass(DSRegistryContents& contents, const GUID& classId);
HRESULT addFamilies(DSRegistryContents& contents, std::span<const DSRegisteredFamily> entries);
HRESULT removeFamilies(DSRegistryContents& contents, const GUID& classId,
                       std::span<const GUID> families);

/// One line an entry, its fields parted by tabs, in UTF-8; `parseRegistry` reads it back.
DSSDK_API std::string registryText(const DSRegistryContents& contents);

/// No value for anything that `registryText` does not write.
DSSDK_API std::optional<DSRegistryContents> parseRegistry(std::string_view text);

}  // namespace ruvex
