// The records in which an effect describes itself to the host.

#pragma once

#include "sdk/com/com.h"
#include "sdk/com/module_instance.h"

/// Stands in `recordId` of a DSPLUGININFO.
inline constexpr GUID DSID_PlugInInfo = ruvex::guidFromText("5E3D73B1-D900-11CF-828E-00A0243F1013");
/// Stands in `recordId` of a DSIMAGEEFFECTINFO.
inline constexpr GUID DSID_ImageEffectInfo =
    ruvex::guidFromText("6024B980-B7F4-11D0-82D3-00A0243F1013");

/// The two identifiers that every image effect names in its DSPLUGININFO.
inline constexpr GUID DSID_EffectCategory =
    ruvex::guidFromText("0BC5A2F0-5C49-11CF-A04A-00A02418CFB9");
inline constexpr GUID DSID_ImageEffectKind =
    ruvex::guidFromText("0BC5A2F2-5C49-11CF-A04A-00A02418CFB9");

/// What a plug-in is. The host sets `recordId`, the plug-in the rest.
struct DSPLUGININFO {
    GUID recordId = DSID_PlugInInfo;
    GUID category{};
    GUID kind{};
    GUID classId{};
    ULONG noIdentifier = 0;
    ULONG last = 0;
};

/// How an image effect wants to be run. The host sets `recordId` and `family`, the effect the rest.
/// The numbered fields have no other name: the host knows what it does with each.
struct DSIMAGEEFFECTINFO {
    GUID recordId = DSID_ImageEffectInfo;
    GUID family{};
    ULONG reserved = 0;
    ULONG field2 = 0;
    ULONG field3 = 0;
    ULONG field4 = 0;
    ULONG field5 = 0;
    ULONG field6 = 0;
    ULONG field7 = 0;
    ULONG field8 = 0;
    ULONG field9 = 0;
    ULONG flags = 0;
};

/// How the host's tool list shows an effect. The effect fills it.
struct DSTOOLINFO {
    static constexpr int kTextLength = 260;

    wchar_t name[kTextLength] = {};
    wchar_t description[kTextLength] = {};
    HINSTANCE module = nullptr;
    UINT bitmapId = 0;
    GUID classId{};
};

/// A stretch of time in seconds, both ends included.
struct DSTIMERANGE {
    double first;
    double last;
};

/// A rectangle of pixels; `width` and `height` count them.
struct DSRECT {
    LONG x;
    LONG y;
    LONG width;
    LONG height;

    friend bool operator==(const DSRECT&, const DSRECT&) = default;
};

/// Pixels that are wanted beyond each edge.
struct DSOVERSCAN {
    LONG left;
    LONG right;
    LONG bottom;
    LONG top;
};
