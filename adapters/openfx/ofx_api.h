// The interface of OpenFX image effects, version 1.4, as this project declares it: the part that
// the plug-in and its test host use. Names, texts and the order of functions are those of the
// published standard, so that its own headers can be used instead (CMake option
// RUVEX_OPENFX_HEADERS).

#pragma once

#ifdef RUVEX_OPENFX_HEADERS

#include <ofxCore.h>
#include <ofxImageEffect.h>
#include <ofxInteract.h>
#include <ofxMessage.h>
#include <ofxParam.h>
#include <ofxProperty.h>

#else

#include "adapters/openfx/ofx_functions.h"
#include "adapters/openfx/ofx_names.h"

#endif
