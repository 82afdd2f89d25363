#include "tests/openfx/host/property_set.h"

#include <algorithm>

#include "tests/openfx/host/host.h"

namespace ruvex::ofxhost {

PropertySet::PropertySet(Host& host) : host_(host) {}

PropertySet::PropertySet(const PropertySet& other)
    : host_(other.host_), properties_(other.properties_) {}

void PropertySet::add(const std::string& name, PropertyValues values, Writer writer) {
    if (host_.traits.missingProperties.contains(name)) return;
    const PropertyType type = typeOf(values.front());
    properties_[name] = Property{type, values, values, false, writer};
}

void PropertySet::addGrowing(const std::string& name, PropertyType type) {
    if (host_.traits.missingProperties.contains(name)) return;
    properties_[name] = Property{type, {}, {}, true, Writer::PlugIn};
}

void PropertySet::remove(const std::string& name) {
    properties_.erase(name);
}

const Property* PropertySet::find(std::string_view name) const {
    const auto found = properties_.find(name);
    return found == properties_.end() ? nullptr : &found->second;
}

Property* PropertySet::find(std::string_view name) {
    const auto found = properties_.find(name);
    return found == properties_.end() ? nullptr : &found->second;
}

namespace {

template <class T>
T valueOf(const PropertySet& set, std::string_view name, std::size_t index) {
    const Property* property = set.find(name);
    if (!property || index >= property->values.size()) return T{};
    const T* value = std::get_if<T>(&property->values[index]);
    return value ? *value : T{};
}

}  // namespace

int PropertySet::number(std::string_view name, std::size_t index) const {
    return valueOf<int>(*this, name, index);
}

double PropertySet::real(std::string_view name, std::size_t index) const {
    return valueOf<double>(*this, name, index);
}

std::string PropertySet::text(std::string_view name, std::size_t index) const {
    return valueOf<std::string>(*this, name, index);
}

void* PropertySet::pointer(std::string_view name, std::size_t index) const {
    return valueOf<void*>(*this, name, index);
}

std::vector<std::string> PropertySet::texts(std::string_view name) const {
    std::vector<std::string> result;
    if (const Property* property = find(name)) {
        for (const PropertyValue& value : property->values) {
            if (const auto* text = std::get_if<std::string>(&value)) result.push_back(*text);
        }
    }
    return result;
}

void PropertySet::set(std::string_view name, PropertyValues values) {
    if (Property* property = find(name)) property->values = std::move(values);
}

PropertyValues ints(std::initializer_list<int> values) {
    return {values.begin(), values.end()};
}

PropertyValues reals(std::initializer_list<double> values) {
    return {values.begin(), values.end()};
}

PropertyValues texts(std::initializer_list<const char*> values) {
    PropertyValues result;
    for (const char* value : values) result.emplace_back(std::string(value));
    return result;
}

}  // namespace ruvex::ofxhost
