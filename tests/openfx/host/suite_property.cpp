// The property suite.

#include <string>

#include "tests/openfx/host/host.h"
#include "tests/openfx/host/suites.h"

namespace ruvex::ofxhost {
namespace {

/// The set of a handle and the name of a property, as far as a call is allowed.
struct PropertyAccess {
    PropertySet* set = nullptr;
    Property* property = nullptr;
    OfxStatus status = kOfxStatErrBadHandle;
};

PropertyAccess accessProperty(const char* function, OfxPropertySetHandle handle, const char* name) {
    PropertyAccess access;
    access.set = objectOf<PropertySet>(HandleKind::Properties, handle);
    if (!access.set) return access;
    access.status = kOfxStatErrUnknown;
    if (!name) return access;
    access.status = access.set->host().intercept(function, name);
    if (access.status != kOfxStatOK) return access;
    access.property = access.set->find(name);
    if (!access.property) access.status = kOfxStatErrUnknown;
    return access;
}

/// Says which property of which object a fault concerns.
std::string described(const PropertySet& set, const char* name) {
    return std::string(name) + " of " + set.text(kOfxPropType) + " " + set.text(kOfxPropName);
}

PropertyAccess accessTyped(const char* function, OfxPropertySetHandle handle, const char* name,
                           PropertyType type) {
    PropertyAccess access = accessProperty(function, handle, name);
    if (access.status == kOfxStatOK && access.property->type != type) {
        access.set->host().fault(std::string(function) + ": the type of " +
                                 described(*access.set, name));
        access.status = kOfxStatErrValue;
    }
    return access;
}

template <class T>
constexpr PropertyType kTypeOf = PropertyType::Pointer;
template <>
constexpr PropertyType kTypeOf<const char*> = PropertyType::String;
template <>
constexpr PropertyType kTypeOf<char*> = PropertyType::String;
template <>
constexpr PropertyType kTypeOf<double> = PropertyType::Double;
template <>
constexpr PropertyType kTypeOf<int> = PropertyType::Int;

PropertyValue storedValue(const char* value) {
    return std::string(value ? value : "");
}
PropertyValue storedValue(void* value) {
    return value;
}
PropertyValue storedValue(double value) {
    return value;
}
PropertyValue storedValue(int value) {
    return value;
}

void giveValue(PropertyValue& stored, char** value) {
    *value = std::get<std::string>(stored).data();
}
template <class T>
void giveValue(PropertyValue& stored, T* value) {
    *value = std::get<T>(stored);
}

/// Whether the plug-in may set the values with indices from 0 to `count` - 1.
OfxStatus mayBeSet(const PropertyAccess& access, const char* name, int count) {
    if (access.property->writer == Writer::Host) {
        access.set->host().fault("a plug-in sets the host's " + described(*access.set, name));
        return kOfxStatErrValue;
    }
    const auto size = static_cast<int>(access.property->values.size());
    if (count < 1 || (count > size && !access.property->growing)) {
        access.set->host().fault("an index beyond " + described(*access.set, name));
        return kOfxStatErrBadIndex;
    }
    return kOfxStatOK;
}

template <class T>
OfxStatus setOne(OfxPropertySetHandle handle, const char* name, int index, T value) {
    const PropertyAccess access = accessTyped("propSet", handle, name, kTypeOf<T>);
    if (access.status != kOfxStatOK) return access.status;
    if (index < 0) return kOfxStatErrBadIndex;
    const OfxStatus status = mayBeSet(access, name, index + 1);
    if (status != kOfxStatOK) return status;
    PropertyValues& values = access.property->values;
    const auto at = static_cast<std::size_t>(index);
    if (at > values.size()) return kOfxStatErrBadIndex;  // no gaps
    if (at == values.size()) values.emplace_back();
    values[at] = storedValue(value);
    return kOfxStatOK;
}

template <class T>
OfxStatus setSeveral(OfxPropertySetHandle handle, const char* name, int count, const T* newValues) {
    const PropertyAccess access = accessTyped("propSetN", handle, name, kTypeOf<T>);
    if (access.status != kOfxStatOK) return access.status;
    if (!newValues) return kOfxStatErrValue;
    const OfxStatus status = mayBeSet(access, name, count);
    if (status != kOfxStatOK) return status;
    PropertyValues& values = access.property->values;
    if (access.property->growing) values.resize(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) values[static_cast<std::size_t>(i)] = storedValue(newValues[i]);
    return kOfxStatOK;
}

template <class T>
OfxStatus getOne(OfxPropertySetHandle handle, const char* name, int index, T* value) {
    const PropertyAccess access = accessTyped("propGet", handle, name, kTypeOf<T>);
    if (access.status != kOfxStatOK) return access.status;
    if (!value) return kOfxStatErrValue;
    if (index < 0 || static_cast<std::size_t>(index) >= access.property->values.size()) {
        return kOfxStatErrBadIndex;
    }
    giveValue(access.property->values[static_cast<std::size_t>(index)], value);
    return kOfxStatOK;
}

template <class T>
OfxStatus getSeveral(OfxPropertySetHandle handle, const char* name, int count, T* values) {
    const PropertyAccess access = accessTyped("propGetN", handle, name, kTypeOf<T>);
    if (access.status != kOfxStatOK) return access.status;
    if (!values) return kOfxStatErrValue;
    if (count < 0 || static_cast<std::size_t>(count) > access.property->values.size()) {
        return kOfxStatErrBadIndex;
    }
    for (int i = 0; i < count; ++i) {
        giveValue(access.property->values[static_cast<std::size_t>(i)], values + i);
    }
    return kOfxStatOK;
}

OfxStatus resetProperty(OfxPropertySetHandle handle, const char* name) {
    const PropertyAccess access = accessProperty("propReset", handle, name);
    if (access.status != kOfxStatOK) return access.status;
    if (access.property->writer == Writer::Host) return kOfxStatErrValue;
    access.property->values = access.property->first;
    return kOfxStatOK;
}

OfxStatus propertyDimension(OfxPropertySetHandle handle, const char* name, int* count) {
    const PropertyAccess access = accessProperty("propGetDimension", handle, name);
    if (access.status != kOfxStatOK) return access.status;
    if (!count) return kOfxStatErrValue;
    *count = static_cast<int>(access.property->values.size());
    return kOfxStatOK;
}

}  // namespace

const OfxPropertySuiteV1& propertySuite() {
    static const OfxPropertySuiteV1 suite{
        setOne<void*>,     setOne<const char*>,     setOne<double>,     setOne<int>,
        setSeveral<void*>, setSeveral<const char*>, setSeveral<double>, setSeveral<int>,
        getOne<void*>,     getOne<char*>,           getOne<double>,     getOne<int>,
        getSeveral<void*>, getSeveral<char*>,       getSeveral<double>, getSeveral<int>,
        resetProperty,     propertyDimension};
    return suite;
}

}  // namespace ruvex::ofxhost
