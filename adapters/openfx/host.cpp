#include "adapters/openfx/host.h"

#include <mutex>

namespace ruvex::openfx {
namespace {

/// What the process knows of its host.
struct HostRecord {
    std::mutex mutex;
    const OfxHost* given = nullptr;
    Host suites;
    int loads = 0;
};

HostRecord& record() {
    static HostRecord only;
    return only;
}

bool isComplete(const OfxPropertySuiteV1* suite) {
    return suite && suite->propSetPointer && suite->propSetString && suite->propSetDouble &&
           suite->propSetInt && suite->propGetPointer && suite->propGetString &&
           suite->propGetDouble && suite->propGetInt && suite->propGetDimension;
}

bool isComplete(const OfxImageEffectSuiteV1* suite) {
    return suite && suite->getPropertySet && suite->getParamSet && suite->clipDefine &&
           suite->clipGetHandle && suite->clipGetPropertySet && suite->clipGetImage &&
           suite->clipReleaseImage && suite->clipGetRegionOfDefinition && suite->abort;
}

bool isComplete(const OfxParameterSuiteV1* suite) {
    return suite && suite->paramDefine && suite->paramGetHandle && suite->paramGetPropertySet &&
           suite->paramGetValue && suite->paramGetValueAtTime && suite->paramSetValue &&
           suite->paramSetValueAtTime && suite->paramGetNumKeys && suite->paramGetKeyTime &&
           suite->paramDeleteAllKeys && suite->paramEditBegin && suite->paramEditEnd;
}

template <class Suite>
const Suite* fetch(const OfxHost& host, const char* name, int version = 1) {
    return static_cast<const Suite*>(host.fetchSuite(host.host, name, version));
}

/// The function that shows messages, which both versions of the suite have; null without either.
auto messageFunction(const OfxHost& host) {
    const auto* first = fetch<OfxMessageSuiteV1>(host, kOfxMessageSuite);
    if (first && first->message) return first->message;
    const auto* second = fetch<OfxMessageSuiteV2>(host, kOfxMessageSuite, 2);
    return second ? second->message : nullptr;
}

Host suitesOf(const OfxHost& host) {
    return {.properties = host.host,
            .property = fetch<OfxPropertySuiteV1>(host, kOfxPropertySuite),
            .effect = fetch<OfxImageEffectSuiteV1>(host, kOfxImageEffectSuite),
            .parameter = fetch<OfxParameterSuiteV1>(host, kOfxParameterSuite),
            .message = messageFunction(host),
            .interact = fetch<OfxInteractSuiteV1>(host, kOfxInteractSuite)};
}

}  // namespace

void setHost(const OfxHost* host) {
    HostRecord& known = record();
    const std::lock_guard lock(known.mutex);
    known.given = host;
}

OfxStatus loadHost() {
    HostRecord& known = record();
    const std::lock_guard lock(known.mutex);
    if (!known.given || !known.given->fetchSuite) return kOfxStatErrMissingHostFeature;
    const Host suites = suitesOf(*known.given);
    if (!isComplete(suites.property) || !isComplete(suites.effect) ||
        !isComplete(suites.parameter)) {
        return kOfxStatErrMissingHostFeature;
    }
    known.suites = suites;
    ++known.loads;
    return kOfxStatOK;
}

void unloadHost() {
    HostRecord& known = record();
    const std::lock_guard lock(known.mutex);
    if (known.loads > 0 && --known.loads == 0) known.suites = {};
}

std::optional<Host> currentHost() {
    HostRecord& known = record();
    const std::lock_guard lock(known.mutex);
    if (known.loads == 0) return std::nullopt;
    return known.suites;
}

}  // namespace ruvex::openfx
