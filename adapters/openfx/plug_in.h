// The functions that the plug-in exports.

#pragma once

#include "adapters/openfx/ofx_api.h"

#ifdef _WIN32
#define RUVEX_OPENFX_EXPORT extern "C" __declspec(dllexport)
#else
#define RUVEX_OPENFX_EXPORT extern "C" __attribute__((visibility("default")))
#endif

RUVEX_OPENFX_EXPORT int OfxGetNumberOfPlugins();
/// Null for an index other than 0.
RUVEX_OPENFX_EXPORT OfxPlugin* OfxGetPlugin(int index);
/// The first call of hosts that know version 2 of the interface; others use OfxPlugin::setHost.
RUVEX_OPENFX_EXPORT OfxStatus OfxSetHost(const OfxHost* host);
