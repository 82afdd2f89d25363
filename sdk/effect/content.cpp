#include "sdk/effect/content.h"

#include <string_view>
#include <utility>

namespace {

thread_local const DSContent* currentContent = nullptr;

}  // namespace

HRESULT DSContentGetProperty(const wchar_t* name, VARIANT* value) {
    if (!name || !value) return E_POINTER;
    if (!currentContent) return E_INVALIDARG;
    const auto found = currentContent->find(std::wstring_view(name));
    if (found == currentContent->end()) return E_INVALIDARG;
    *value = DSVariantFromReal(found->second);
    return S_OK;
}

DSContentScope::DSContentScope(const DSContent& content)
    : before_(std::exchange(currentContent, &content)) {}

DSContentScope::~DSContentScope() {
    currentContent = before_;
}
