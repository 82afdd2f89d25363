// Properties of the open project (the content), by name.

#pragma once

#include <functional>
#include <map>
#include <string>

#include "sdk/com/variant.h"

/// Reads a property of the calling thread's current content, as a VT_R8. E_INVALIDARG, with
/// `*value` unchanged, if there is no such property or no current content. E_POINTER for a null
/// argument.
DSSDK_API HRESULT DSContentGetProperty(const wchar_t* name, VARIANT* value);

/// The content properties of one project, by name.
using DSContent = std::map<std::wstring, double, std::less<>>;

/// For hosts: sets the calling thread's current content during the object's lifetime; the
/// destructor restores the previous one. A host has a scope around each call into an effect, so
/// that several projects can be open at once. Scopes must be nested.
class DSSDK_API DSContentScope {
public:
    /// `content` is not copied: it must outlive the scope and must not change in the meantime.
    /// Several threads may use the same content.
    explicit DSContentScope(const DSContent& content);
    ~DSContentScope();
    DSContentScope(const DSContentScope&) = delete;
    DSContentScope& operator=(const DSContentScope&) = delete;

private:
    const DSContent* before_;
};

/// The properties with the sizes of the project frame. User sizes are in pixels. World size X is
/// user size X; world size Y is user size Y divided by the pixel aspect.
inline constexpr const wchar_t* kDSProjectUserSizeX = L"Project Frame User Size (X)";
inline constexpr const wchar_t* kDSProjectUserSizeY = L"Project Frame User Size (Y)";
inline constexpr const wchar_t* kDSProjectWorldSizeX = L"Project Frame World Size (X)";
inline constexpr const wchar_t* kDSProjectWorldSizeY = L"Project Frame World Size (Y)";
