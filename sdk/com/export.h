// The export macros of the shared libraries dssdk, dsvwr and il.

#pragma once

#ifdef _WIN32
#define DS_EXPORT __declspec(dllexport)
#define DS_IMPORT __declspec(dllimport)
#else
#define DS_EXPORT __attribute__((visibility("default")))
#define DS_IMPORT __attribute__((visibility("default")))
#endif

#ifdef DSSDK_BUILD
#define DSSDK_API DS_EXPORT
#else
#define DSSDK_API DS_IMPORT
#endif

#ifdef DSVWR_BUILD
#define DSVWR_API DS_EXPORT
#else
#define DSVWR_API DS_IMPORT
#endif

#ifdef IL_BUILD
#define IL_API DS_EXPORT
#else
#define IL_API DS_IMPORT
#endif
