// Keys in the parameter suite.

#include <algorithm>

#include "tests/openfx/host/parameter_access.h"

namespace ruvex::ofxhost {

OfxStatus numberOfKeys(OfxParamHandle handle, unsigned int* count) {
    const ParameterAccess access = accessValue("paramGetNumKeys", handle);
    if (!access.ok()) return access.status;
    if (!count) return kOfxStatErrValue;
    *count = static_cast<unsigned>(access.parameter->state().keys.size());
    return kOfxStatOK;
}

OfxStatus keyTime(OfxParamHandle handle, unsigned int index, OfxTime* time) {
    const ParameterAccess access = accessValue("paramGetKeyTime", handle);
    if (!access.ok()) return access.status;
    const auto& keys = access.parameter->state().keys;
    if (index >= keys.size()) return kOfxStatErrBadIndex;
    if (!time) return kOfxStatErrValue;
    *time = keys[index].time;
    return kOfxStatOK;
}

OfxStatus keyIndex(OfxParamHandle handle, OfxTime time, int direction, int* index) {
    const ParameterAccess access = accessValue("paramGetKeyIndex", handle);
    if (!access.ok()) return access.status;
    if (!index) return kOfxStatErrValue;
    const auto& keys = access.parameter->state().keys;
    const auto first = std::ranges::lower_bound(keys, time, {}, &Key::time);
    auto found = first;
    if (direction < 0) found = first == keys.begin() ? keys.end() : first - 1;
    if (direction > 0) found = std::ranges::upper_bound(keys, time, {}, &Key::time);
    if (direction == 0 && first != keys.end() && first->time != time) found = keys.end();
    if (found == keys.end()) return kOfxStatFailed;
    *index = static_cast<int>(found - keys.begin());
    return kOfxStatOK;
}

OfxStatus deleteKeyAt(OfxParamHandle handle, OfxTime time) {
    const ParameterAccess access = accessValue("paramDeleteKey", handle);
    if (!access.ok()) return access.status;
    const auto& keys = access.parameter->state().keys;
    const auto found = std::ranges::find(keys, time, &Key::time);
    if (found == keys.end()) return kOfxStatErrBadIndex;
    const auto index = static_cast<std::size_t>(found - keys.begin());
    return changeByPlugIn(*access.parameter, [&](Parameter& changed) { changed.deleteKey(index); });
}

OfxStatus deleteKeys(OfxParamHandle handle) {
    const ParameterAccess access = accessValue("paramDeleteAllKeys", handle);
    if (!access.ok()) return access.status;
    return changeByPlugIn(*access.parameter, [](Parameter& changed) { changed.deleteAllKeys(); });
}

OfxStatus copyParameter(OfxParamHandle to, OfxParamHandle from, OfxTime offset, const OfxRangeD*) {
    const ParameterAccess target = accessValue("paramCopy", to);
    const ParameterAccess source = accessValue("paramCopy", from);
    if (!target.ok()) return target.status;
    if (!source.ok()) return source.status;
    if (source.parameter->type() != target.parameter->type()) return kOfxStatErrValue;
    ParameterState state = source.parameter->state();
    for (Key& key : state.keys) key.time += offset;
    return changeByPlugIn(*target.parameter, [&](Parameter& changed) { changed.restore(state); });
}

}  // namespace ruvex::ofxhost
