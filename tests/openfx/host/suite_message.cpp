// The message suites.

#include <cstdarg>
#include <cstdio>

#include "tests/openfx/host/effect.h"
#include "tests/openfx/host/host.h"
#include "tests/openfx/host/suites.h"

namespace ruvex::ofxhost {
namespace {

OfxStatus keepMessage(void* handle, const char* type, bool persistent, const char* format,
                      va_list values) {
    const auto* effect = objectOf<Effect>(HandleKind::Effect, handle);
    if (!effect) return kOfxStatErrBadHandle;
    if (!type || !format) return kOfxStatErrValue;
    const OfxStatus status = effect->host().intercept("message", type);
    if (status != kOfxStatOK) return status;
    char buffer[1000];
    std::vsnprintf(buffer, sizeof buffer, format, values);
    effect->host().addMessage({type, buffer, persistent});
    return kOfxStatOK;
}

OfxStatus message(void* handle, const char* type, const char*, const char* format, ...) {
    va_list values;
    va_start(values, format);
    const OfxStatus status = keepMessage(handle, type, false, format, values);
    va_end(values);
    return status;
}

OfxStatus persistentMessage(void* handle, const char* type, const char*, const char* format, ...) {
    va_list values;
    va_start(values, format);
    const OfxStatus status = keepMessage(handle, type, true, format, values);
    va_end(values);
    return status;
}

OfxStatus clearMessage(void* handle) {
    const auto* effect = objectOf<Effect>(HandleKind::Effect, handle);
    if (!effect) return kOfxStatErrBadHandle;
    effect->host().clearPersistentMessage();
    return kOfxStatOK;
}

}  // namespace

const OfxMessageSuiteV1& messageSuite1() {
    static const OfxMessageSuiteV1 suite{message};
    return suite;
}

const OfxMessageSuiteV2& messageSuite2() {
    static const OfxMessageSuiteV2 suite{message, persistentMessage, clearMessage};
    return suite;
}

}  // namespace ruvex::ofxhost
