// The host's tables of functions.

#pragma once

#include "adapters/openfx/ofx_api.h"

namespace ruvex::ofxhost {

const OfxPropertySuiteV1& propertySuite();
const OfxImageEffectSuiteV1& imageEffectSuite();
const OfxParameterSuiteV1& parameterSuite();
const OfxMessageSuiteV1& messageSuite1();
const OfxMessageSuiteV2& messageSuite2();
const OfxInteractSuiteV1& interactSuite();

}  // namespace ruvex::ofxhost
