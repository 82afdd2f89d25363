// Facts about the project that is open, by name.

#pragma once

#include "sdk/com/com.h"

/// Reads a content property: 0, or E_INVALIDARG and `*value` untouched when there is no such
/// property. E_POINTER for a null argument. Any thread.
DSSDK_API HRESULT DSContentGetProperty(const wchar_t* name, double* value);

/// The host's side: gives a property its value.
DSSDK_API HRESULT DSContentSetProperty(const wchar_t* name, double value);

/// The host's side: takes one property away; S_FALSE when it was not there.
DSSDK_API HRESULT DSContentClearProperty(const wchar_t* name);

/// The names of the project frame's sizes. User sizes are pixels; world X is user X, world Y is
/// user Y divided by the pixel aspect.
inline constexpr const wchar_t* kDSProjectUserSizeX = L"Project Frame User Size (X)";
inline constexpr const wchar_t* kDSProjectUserSizeY = L"Project Frame User Size (Y)";
inline constexpr const wchar_t* kDSProjectWorldSizeX = L"Project Frame World Size (X)";
inline constexpr const wchar_t* kDSProjectWorldSizeY = L"Project Frame World Size (Y)";
