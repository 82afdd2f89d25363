// The value of a property in calls of interfaces: a type and a number of that type.

#pragma once

#include <cstdint>

#include "sdk/com/com.h"

#ifdef _WIN32

#include <oaidl.h>

#else

using VARTYPE = std::uint16_t;

enum : VARTYPE { VT_EMPTY = 0, VT_I4 = 3, VT_R8 = 5, VT_BOOL = 11 };

/// The value follows an eight-byte header, as in the system's VARIANT.
struct VARIANT {
    VARTYPE vt;
    std::uint16_t wReserved1;
    std::uint16_t wReserved2;
    std::uint16_t wReserved3;
    union {
        LONG lVal;
        double dblVal;
        std::int16_t boolVal;
    };
};

#endif

/// The host's name for the value in a notification.
using DSVARIANT = VARIANT;
/// Further arguments of a property, which no property of this host has: pointers to it are null.
struct DSPARAMS;

/// A 32-bit integer (VT_I4).
inline VARIANT DSVariantFromLong(LONG value) {
    VARIANT variant{};
    variant.vt = VT_I4;
    variant.lVal = value;
    return variant;
}

/// A 64-bit float (VT_R8).
inline VARIANT DSVariantFromReal(double value) {
    VARIANT variant{};
    variant.vt = VT_R8;
    variant.dblVal = value;
    return variant;
}

/// A boolean (VT_BOOL), which this host stores as 0 or 1 in the integer member.
inline VARIANT DSVariantFromBool(bool value) {
    VARIANT variant{};
    variant.vt = VT_BOOL;
    variant.lVal = value ? 1 : 0;
    return variant;
}
