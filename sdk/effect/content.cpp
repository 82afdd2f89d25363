#include "sdk/effect/content.h"

#include <map>
#include <mutex>
#include <string>

namespace {

struct Content {
    std::mutex mutex;
    std::map<std::wstring, double, std::less<>> values;
};

Content& content() {
    static Content instance;
    return instance;
}

}  // namespace

HRESULT DSContentGetProperty(const wchar_t* name, double* value) {
    if (!name || !value) return E_POINTER;
    Content& all = content();
    const std::lock_guard lock(all.mutex);
    const auto found = all.values.find(std::wstring_view(name));
    if (found == all.values.end()) return E_INVALIDARG;
    *value = found->second;
    return S_OK;
}

HRESULT DSContentSetProperty(const wchar_t* name, double value) {
    if (!name) return E_POINTER;
    Content& all = content();
    const std::lock_guard lock(all.mutex);
    all.values.insert_or_assign(name, value);
    return S_OK;
}

HRESULT DSContentClearProperty(const wchar_t* name) {
    if (!name) return E_POINTER;
    Content& all = content();
    const std::lock_guard lock(all.mutex);
    return all.values.erase(name) > 0 ? S_OK : S_FALSE;
}
