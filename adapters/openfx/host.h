// The host and its suites of functions.

#pragma once

#include <optional>

#include "adapters/openfx/ofx_api.h"

namespace ruvex::openfx {

/// The suites of one host, for as long as the plug-in is loaded. A copy is cheap, and each action
/// takes one: a host may load the plug-in again while another thread renders.
struct Host {
    OfxPropertySetHandle properties = nullptr;  ///< Of the host itself; may be null.
    const OfxPropertySuiteV1* property = nullptr;
    const OfxImageEffectSuiteV1* effect = nullptr;
    const OfxParameterSuiteV1* parameter = nullptr;
    decltype(OfxMessageSuiteV1::message) message = nullptr;  ///< Optional.
    const OfxInteractSuiteV1* interact = nullptr;            ///< Optional.
};

/// Remembers the host for the next loadHost. May be called again, with another host or with null.
void setHost(const OfxHost* host);

/// Fetches the suites: kOfxStatOK, or kOfxStatErrMissingHostFeature if a required suite, or a
/// function of it, is missing. Calls are counted, since hosts load several times.
OfxStatus loadHost();

/// Forgets the suites after as many calls as there were of loadHost.
void unloadHost();

/// The suites; no value while the plug-in is not loaded.
std::optional<Host> currentHost();

}  // namespace ruvex::openfx
