// The value of a property as it crosses an interface: a type and a number of that type.

#pragma once

#include <cstdint>

#include "sdk/com/com.h"

#ifdef _WIN32

#include <oaidl.h>

#else

using VARTYPE = std::uint16_t;

enum : VARTYPE { VT_EMPTY = 0, VT_I4 = 3, VT_R8 = 5, VT_BOOL = 11 };

/// The members stand behind an eight-byte head, as in every variant.
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

/// A whole number (VT_I4).
inline VARIANT DSVariantFromLong(LONG value) {
    VARIANT variant{};
    variant.vt = VT_I4;
    variant.lVal = value;
    return variant;
}

/// A real (VT_R8).
inline VARIANT DSVariantFromReal(double value) {
    VARIANT variant{};
    variant.vt = VT_R8;
    variant.dblVal = value;
    return variant;
}

/// A check box (VT_BOOL), which this host keeps as 0 or 1 in the whole number's place.
inline VARIANT DSVariantFromBool(bool value) {
    VARIANT variant{};
    variant.vt = VT_BOOL;
    variant.lVal = value ? 1 : 0;
    return variant;
}
