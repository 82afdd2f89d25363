// A plug-in for tests of the host: it copies its source, and does wrong what a test tells it to.

#pragma once

#include <functional>

#include "adapters/openfx/ofx_api.h"

namespace ruvex::ofxhost::test {

/// The suites and the instance that an action of the probe is called with.
struct ProbeCall {
    const OfxPropertySuiteV1& properties;
    const OfxImageEffectSuiteV1& effects;
    const OfxParameterSuiteV1& parameters;
    OfxImageEffectHandle effect;
    OfxPropertySetHandle in;
    OfxPropertySetHandle out;
};

/// Called in place of the probe's render, and for each InstanceChanged action.
struct ProbeScript {
    std::function<OfxStatus(const ProbeCall&)> render{};
    std::function<OfxStatus(const ProbeCall&)> changed{};
};

/// The one probe of the process, with a script; it has the clips Source and Output, the Double
/// parameter "amount" (0 to 10, default 1), the Choice "kind" and the RGB "tint".
OfxPlugin& probePlugIn(ProbeScript script = {});

/// What the probe's render does: copies the source into the render window.
OfxStatus copySource(const ProbeCall& call);

/// The image of a clip at a time; null if the host gives none.
OfxPropertySetHandle fetchImage(const ProbeCall& call, const char* clip, double time);

}  // namespace ruvex::ofxhost::test
