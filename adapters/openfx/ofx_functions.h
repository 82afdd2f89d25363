// Types and tables of functions of the OpenFX interface. Use ofx_api.h.

#pragma once

/// 0 for success; see kOfxStatOK and the others below.
using OfxStatus = int;

inline constexpr OfxStatus kOfxStatOK = 0;
inline constexpr OfxStatus kOfxStatFailed = 1;
inline constexpr OfxStatus kOfxStatErrFatal = 2;
inline constexpr OfxStatus kOfxStatErrUnknown = 3;
inline constexpr OfxStatus kOfxStatErrMissingHostFeature = 4;
inline constexpr OfxStatus kOfxStatErrUnsupported = 5;
inline constexpr OfxStatus kOfxStatErrExists = 6;
inline constexpr OfxStatus kOfxStatErrFormat = 7;
inline constexpr OfxStatus kOfxStatErrMemory = 8;
inline constexpr OfxStatus kOfxStatErrBadHandle = 9;
inline constexpr OfxStatus kOfxStatErrBadIndex = 10;
inline constexpr OfxStatus kOfxStatErrValue = 11;
inline constexpr OfxStatus kOfxStatReplyYes = 12;
inline constexpr OfxStatus kOfxStatReplyNo = 13;
inline constexpr OfxStatus kOfxStatReplyDefault = 14;
inline constexpr OfxStatus kOfxStatErrImageFormat = 1000;

/// In frames of the clip.
using OfxTime = double;

struct OfxRangeI {
    int min, max;
};
struct OfxRangeD {
    double min, max;
};
struct OfxPointI {
    int x, y;
};
struct OfxPointD {
    double x, y;
};
/// The low corner belongs to the rectangle, the high one does not.
struct OfxRectI {
    int x1, y1, x2, y2;
};
struct OfxRectD {
    double x1, y1, x2, y2;
};

/// The coordinates of a rectangle that is infinite: its low sides and its high ones.
inline constexpr int kOfxFlagInfiniteMin = -2147483647 - 1;
inline constexpr int kOfxFlagInfiniteMax = 2147483647;

// Objects of the host. A null handle is none.
using OfxPropertySetHandle = struct OfxPropertySetStruct*;
using OfxImageEffectHandle = struct OfxImageEffectStruct*;
using OfxImageClipHandle = struct OfxImageClipStruct*;
using OfxImageMemoryHandle = struct OfxImageMemoryStruct*;
using OfxParamHandle = struct OfxParamStruct*;
using OfxParamSetHandle = struct OfxParamSetStruct*;
using OfxInteractHandle = struct OfxInteract*;

// Functions with the linkage of C.
extern "C" {

/// What a host calls for each action, of a plug-in or of an interact; either set may be null.
using OfxPluginEntryPoint = OfxStatus(const char* action, const void* handle,
                                      OfxPropertySetHandle inArgs, OfxPropertySetHandle outArgs);

struct OfxHost {
    OfxPropertySetHandle host;
    /// Null if the host has no such suite.
    const void* (*fetchSuite)(OfxPropertySetHandle host, const char* suiteName, int suiteVersion);
};

struct OfxPlugin {
    const char* pluginApi;
    int apiVersion;
    const char* pluginIdentifier;
    unsigned int pluginVersionMajor;
    unsigned int pluginVersionMinor;
    void (*setHost)(OfxHost* host);
    OfxPluginEntryPoint* mainEntry;
};

struct OfxPropertySuiteV1 {
    OfxStatus (*propSetPointer)(OfxPropertySetHandle properties, const char* property, int index,
                                void* value);
    OfxStatus (*propSetString)(OfxPropertySetHandle properties, const char* property, int index,
                               const char* value);
    OfxStatus (*propSetDouble)(OfxPropertySetHandle properties, const char* property, int index,
                               double value);
    OfxStatus (*propSetInt)(OfxPropertySetHandle properties, const char* property, int index,
                            int value);
    OfxStatus (*propSetPointerN)(OfxPropertySetHandle properties, const char* property, int count,
                                 void* const* value);
    OfxStatus (*propSetStringN)(OfxPropertySetHandle properties, const char* property, int count,
                                const char* const* value);
    OfxStatus (*propSetDoubleN)(OfxPropertySetHandle properties, const char* property, int count,
                                const double* value);
    OfxStatus (*propSetIntN)(OfxPropertySetHandle properties, const char* property, int count,
                             const int* value);
    OfxStatus (*propGetPointer)(OfxPropertySetHandle properties, const char* property, int index,
                                void** value);
    OfxStatus (*propGetString)(OfxPropertySetHandle properties, const char* property, int index,
                               char** value);
    OfxStatus (*propGetDouble)(OfxPropertySetHandle properties, const char* property, int index,
                               double* value);
    OfxStatus (*propGetInt)(OfxPropertySetHandle properties, const char* property, int index,
                            int* value);
    OfxStatus (*propGetPointerN)(OfxPropertySetHandle properties, const char* property, int count,
                                 void** value);
    OfxStatus (*propGetStringN)(OfxPropertySetHandle properties, const char* property, int count,
                                char** value);
    OfxStatus (*propGetDoubleN)(OfxPropertySetHandle properties, const char* property, int count,
                                double* value);
    OfxStatus (*propGetIntN)(OfxPropertySetHandle properties, const char* property, int count,
                             int* value);
    OfxStatus (*propReset)(OfxPropertySetHandle properties, const char* property);
    OfxStatus (*propGetDimension)(OfxPropertySetHandle properties, const char* property,
                                  int* count);
};

struct OfxImageEffectSuiteV1 {
    OfxStatus (*getPropertySet)(OfxImageEffectHandle imageEffect, OfxPropertySetHandle* propHandle);
    OfxStatus (*getParamSet)(OfxImageEffectHandle imageEffect, OfxParamSetHandle* paramSet);
    OfxStatus (*clipDefine)(OfxImageEffectHandle imageEffect, const char* name,
                            OfxPropertySetHandle* propertySet);
    /// `propertySet` may be null.
    OfxStatus (*clipGetHandle)(OfxImageEffectHandle imageEffect, const char* name,
                               OfxImageClipHandle* clip, OfxPropertySetHandle* propertySet);
    OfxStatus (*clipGetPropertySet)(OfxImageClipHandle clip, OfxPropertySetHandle* propHandle);
    /// `region` in canonical coordinates; null for the whole.
    OfxStatus (*clipGetImage)(OfxImageClipHandle clip, OfxTime time, const OfxRectD* region,
                              OfxPropertySetHandle* imageHandle);
    OfxStatus (*clipReleaseImage)(OfxPropertySetHandle imageHandle);
    OfxStatus (*clipGetRegionOfDefinition)(OfxImageClipHandle clip, OfxTime time, OfxRectD* bounds);
    /// 1 if the render is to stop; no status.
    int (*abort)(OfxImageEffectHandle imageEffect);
    OfxStatus (*imageMemoryAlloc)(OfxImageEffectHandle instanceHandle, decltype(sizeof(0)) nBytes,
                                  OfxImageMemoryHandle* memoryHandle);
    OfxStatus (*imageMemoryFree)(OfxImageMemoryHandle memoryHandle);
    OfxStatus (*imageMemoryLock)(OfxImageMemoryHandle memoryHandle, void** returnedPtr);
    OfxStatus (*imageMemoryUnlock)(OfxImageMemoryHandle memoryHandle);
};

/// Values follow as further arguments: of a double parameter one double, of an integer, boolean or
/// choice one int, of RGB three doubles, of a string one const char*; to get them, pointers.
struct OfxParameterSuiteV1 {
    OfxStatus (*paramDefine)(OfxParamSetHandle paramSet, const char* paramType, const char* name,
                             OfxPropertySetHandle* propertySet);
    /// `propertySet` may be null.
    OfxStatus (*paramGetHandle)(OfxParamSetHandle paramSet, const char* name, OfxParamHandle* param,
                                OfxPropertySetHandle* propertySet);
    OfxStatus (*paramSetGetPropertySet)(OfxParamSetHandle paramSet,
                                        OfxPropertySetHandle* propHandle);
    OfxStatus (*paramGetPropertySet)(OfxParamHandle param, OfxPropertySetHandle* propHandle);
    OfxStatus (*paramGetValue)(OfxParamHandle paramHandle, ...);
    OfxStatus (*paramGetValueAtTime)(OfxParamHandle paramHandle, OfxTime time, ...);
    OfxStatus (*paramGetDerivative)(OfxParamHandle paramHandle, OfxTime time, ...);
    OfxStatus (*paramGetIntegral)(OfxParamHandle paramHandle, OfxTime time1, OfxTime time2, ...);
    OfxStatus (*paramSetValue)(OfxParamHandle paramHandle, ...);
    OfxStatus (*paramSetValueAtTime)(OfxParamHandle paramHandle, OfxTime time, ...);
    OfxStatus (*paramGetNumKeys)(OfxParamHandle paramHandle, unsigned int* numberOfKeys);
    /// Keys are numbered from 0 in the order of their times.
    OfxStatus (*paramGetKeyTime)(OfxParamHandle paramHandle, unsigned int nthKey, OfxTime* time);
    OfxStatus (*paramGetKeyIndex)(OfxParamHandle paramHandle, OfxTime time, int direction,
                                  int* index);
    OfxStatus (*paramDeleteKey)(OfxParamHandle paramHandle, OfxTime time);
    OfxStatus (*paramDeleteAllKeys)(OfxParamHandle paramHandle);
    OfxStatus (*paramCopy)(OfxParamHandle paramTo, OfxParamHandle paramFrom, OfxTime dstOffset,
                           const OfxRangeD* frameRange);
    OfxStatus (*paramEditBegin)(OfxParamSetHandle paramSet, const char* name);
    OfxStatus (*paramEditEnd)(OfxParamSetHandle paramSet);
};

/// `handle` is that of an effect; the format and its arguments are as of printf.
struct OfxMessageSuiteV1 {
    OfxStatus (*message)(void* handle, const char* messageType, const char* messageId,
                         const char* format, ...);
};
struct OfxMessageSuiteV2 {
    OfxStatus (*message)(void* handle, const char* messageType, const char* messageId,
                         const char* format, ...);
    OfxStatus (*setPersistentMessage)(void* handle, const char* messageType, const char* messageId,
                                      const char* format, ...);
    OfxStatus (*clearPersistentMessage)(void* handle);
};

struct OfxInteractSuiteV1 {
    OfxStatus (*interactSwapBuffers)(OfxInteractHandle interactInstance);
    OfxStatus (*interactRedraw)(OfxInteractHandle interactInstance);
    OfxStatus (*interactGetPropertySet)(OfxInteractHandle interactInstance,
                                        OfxPropertySetHandle* property);
};

}  // extern "C"
