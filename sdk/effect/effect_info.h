// Records with which an effect describes itself to the host, and records of ranges and rectangles.

#pragma once

#include "sdk/com/com.h"
#include "sdk/com/module_instance.h"

/// The value of `recordId` in a DSPLUGININFO.
inline constexpr GUID DSID_PlugInInfo = ruvex::guidFromText("5E3D73B1-D900-11CF-828E-00A0243F1013");
/// The value of `recordId` in a DSIMAGEEFFECTINFO.
inline constexpr GUID DSID_ImageEffectInfo =
    ruvex::guidFromText("6024B980-B7F4-11D0-82D3-00A0243F1013");

/// The two category identifiers that every image effect sets in its DSPLUGININFO.
inline constexpr GUID DSID_EffectCategory =
    ruvex::guidFromText("0BC5A2F0-5C49-11CF-A04A-00A02418CFB9");
inline constexpr GUID DSID_ImageEffectKind =
    ruvex::guidFromText("0BC5A2F2-5C49-11CF-A04A-00A02418CFB9");

/// Describes a plug-in. The host sets `recordId`, the plug-in the other fields.
struct DSPLUGININFO {
    GUID recordId = DSID_PlugInInfo;
    GUID category{};
    GUID kind{};
    GUID classId{};
    ULONG noIdentifier = 0;
    ULONG last = 0;
};

/// Describes how the host has to run an image effect. The host sets `recordId` and `family`, the
/// effect the other fields. The host does not publish the meaning of the numbered fields.
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

/// An effect's entry in the host's tool list. The effect fills it.
struct DSTOOLINFO {
    static constexpr int kTextLength = 260;

    wchar_t name[kTextLength] = {};
    wchar_t description[kTextLength] = {};
    HINSTANCE module = nullptr;
    UINT bitmapId = 0;
    GUID classId{};
};

/// A time range in seconds, inclusive.
struct DSTIMERANGE {
    double first;
    double last;
};

/// A rectangle in pixels.
struct DSRECT {
    LONG x;
    LONG y;
    LONG width;
    LONG height;

    friend bool operator==(const DSRECT&, const DSRECT&) = default;
};

/// The number of pixels that an effect needs outside each edge.
struct DSOVERSCAN {
    LONG left;
    LONG right;
    LONG bottom;
    LONG top;
};
