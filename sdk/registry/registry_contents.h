// The registry's contents in memory: adding and removing entries, and its text form.

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "sdk/registry/registry_store.h"

namespace ruvex {

/// The functions of DSRegistryStore, applied to contents in memory.
HRESULT addClass(DSRegistryContents& contents, const DSRegisteredClass& entry);
HRESULT removeClass(DSRegistryContents& contents, const GUID& classId);
HRESULT addFamilies(DSRegistryContents& contents, std::span<const DSRegisteredFamily> entries);
HRESULT removeFamilies(DSRegistryContents& contents, const GUID& classId,
                       std::span<const GUID> families);

/// The contents as UTF-8 text: one line per entry, fields separated by tabs.
DSSDK_API std::string registryText(const DSRegistryContents& contents);

/// Parses the result of `registryText`. No value for any other text.
DSSDK_API std::optional<DSRegistryContents> parseRegistry(std::string_view text);

}  // namespace ruvex
