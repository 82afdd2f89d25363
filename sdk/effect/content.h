// Facts about the project that is open, by name.

#pragma once

#include <functional>
#include <map>
#include <string>

#include "sdk/com/com.h"

/// Reads a property of the calling thread's current content: 0, or E_INVALIDARG and `*value`
/// untouched when there is no such property or no current content. E_POINTER for a null argument.
DSSDK_API HRESULT DSContentGetProperty(const wchar_t* name, double* value);

/// The content properties of one project, by name.
using DSContent = std::map<std::wstring, double, std::less<>>;

/// The host's side: makes a content the current one of the calling thread for as long as the object
/// lives; then the one before is current again. A host does so around each call into an effect, so
/// that several projects can be open at once. Scopes of a thread end in reverse order.
class DSSDK_API DSContentScope {
public:
    /// `content` is not copied: it outlives the scope and does not change meanwhile. Threads may
    /// share one.
    explicit DSContentScope(const DSContent& content);
    ~DSContentScope();
    DSContentScope(const DSContentScope&) = delete;
    DSContentScope& operator=(const DSContentScope&) = delete;

private:
    const DSContent* before_;
};

/// The names of the project frame's sizes. User sizes are pixels; world X is user X, world Y is
/// user Y divided by the pixel aspect.
inline constexpr const wchar_t* kDSProjectUserSizeX = L"Project Frame User Size (X)";
inline constexpr const wchar_t* kDSProjectUserSizeY = L"Project Frame User Size (Y)";
inline constexpr const wchar_t* kDSProjectWorldSizeX = L"Project Frame World Size (X)";
inline constexpr const wchar_t* kDSProjectWorldSizeY = L"Project Frame World Size (Y)";
