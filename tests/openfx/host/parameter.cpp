#include "tests/openfx/host/parameter.h"

#include <algorithm>
#include <iterator>

#include "tests/openfx/host/parameter_properties.h"

namespace ruvex::ofxhost {
namespace {

/// How far the curve from one key to the next one is, 0 to 1, at `part` of their distance.
double shaped(KeyShape shape, double part) {
    if (shape == KeyShape::Hold) return 0.0;
    return shape == KeyShape::Linear ? part : part * part * (3.0 - 2.0 * part);
}

std::vector<double> between(const Key& from, const Key& to, double time) {
    const double part = shaped(from.shape, (time - from.time) / (to.time - from.time));
    std::vector<double> result = from.numbers;
    for (std::size_t i = 0; i < result.size(); ++i) {
        result[i] += (to.numbers[i] - from.numbers[i]) * part;
    }
    return result;
}

double asReal(const PropertyValue& value) {
    if (const int* whole = std::get_if<int>(&value)) return *whole;
    const double* real = std::get_if<double>(&value);
    return real ? *real : 0.0;
}

}  // namespace

Parameter::Parameter(Host& host, const std::string& type, const std::string& name)
    : properties(host), type_(type), name_(name) {
    addParameterProperties(properties, type, name);
}

Parameter::Parameter(const Parameter& descriptor, ParameterSet& set)
    : properties(descriptor.properties),
      set_(&set),
      type_(descriptor.type_),
      name_(descriptor.name_) {
    properties.set(kOfxPropType, text(kOfxTypeParameterInstance));
    const Property* initial = properties.find(kOfxParamPropDefault);
    state_.numbers.assign(numberCount(type_), 0.0);
    if (isString()) state_.text = properties.text(kOfxParamPropDefault);
    if (!initial || isString()) return;
    const std::size_t count = std::min(initial->values.size(), state_.numbers.size());
    for (std::size_t i = 0; i < count; ++i) state_.numbers[i] = asReal(initial->values[i]);
}

bool Parameter::isKnownType(const std::string& type) {
    return numberCount(type) > 0 || type == kOfxParamTypeString || type == kOfxParamTypeGroup ||
           type == kOfxParamTypePage || type == kOfxParamTypePushButton;
}

void Parameter::restore(ParameterState state) {
    state_ = std::move(state);
    tellWhetherAnimating();
}

void Parameter::setExpression(std::function<double(double)> expression) {
    expression_ = std::move(expression);
    tellWhetherAnimating();
}

std::vector<double> Parameter::numbersAt(double time) const {
    if (expression_) return std::vector<double>(state_.numbers.size(), expression_(time));
    const std::vector<Key>& keys = state_.keys;
    if (keys.empty()) return state_.numbers;
    const auto next = std::ranges::upper_bound(keys, time, {}, &Key::time);
    if (next == keys.begin()) return keys.front().numbers;
    if (next == keys.end()) return keys.back().numbers;
    return between(*std::prev(next), *next, time);
}

void Parameter::setNumbers(std::vector<double> numbers) {
    state_.numbers = std::move(numbers);
}

void Parameter::setText(std::string text) {
    state_.text = std::move(text);
}

void Parameter::setKey(Key key) {
    const auto place = std::ranges::lower_bound(state_.keys, key.time, {}, &Key::time);
    if (place != state_.keys.end() && place->time == key.time) {
        *place = std::move(key);
    } else {
        state_.keys.insert(place, std::move(key));
    }
    tellWhetherAnimating();
}

void Parameter::deleteKey(std::size_t index) {
    // The last key's value stays.
    if (state_.keys.size() == 1) state_.numbers = state_.keys.front().numbers;
    state_.keys.erase(state_.keys.begin() + static_cast<std::ptrdiff_t>(index));
    tellWhetherAnimating();
}

void Parameter::deleteAllKeys() {
    if (!state_.keys.empty()) state_.numbers = state_.keys.front().numbers;
    state_.keys.clear();
    tellWhetherAnimating();
}

void Parameter::tellWhetherAnimating() {
    const bool animating = expression_ || !state_.keys.empty();
    properties.set(kOfxParamPropIsAnimating, ints({animating}));
}

}  // namespace ruvex::ofxhost
