#include "tests/openfx/typed_values.h"

#include <charconv>
#include <sstream>
#include <stdexcept>

namespace ruvex::ofxhost::test {

double numberOf(const std::string& text) {
    double number = 0.0;
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    if (result.ec != std::errc{} || result.ptr != end) {
        throw std::runtime_error("not a number: " + text);
    }
    return number;
}

std::vector<std::string> splitAt(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);) parts.push_back(part);
    return parts;
}

namespace {

/// The index of a label, or of a number that is an index.
double choiceOf(const std::string& name, const std::string& value,
                const std::vector<std::string>& labels) {
    std::string list;
    for (std::size_t i = 0; i < labels.size(); ++i) {
        if (labels[i] == value || std::to_string(i) == value) return static_cast<double>(i);
        list += (list.empty() ? "" : ", ") + labels[i];
    }
    throw std::runtime_error("no such choice of " + name + ": " + value + "; there are " + list);
}

std::vector<Key> keysOf(const std::string& value) {
    std::vector<Key> keys;
    for (const std::string& part : splitAt(value, ',')) {
        const auto colon = part.find(':');
        if (colon == part.npos) throw std::runtime_error("not a key as FRAME:NUMBER: " + part);
        keys.push_back({numberOf(part.substr(0, colon)), {numberOf(part.substr(colon + 1))}});
    }
    return keys;
}

}  // namespace

void setValue(Instance& instance, const std::string& name, const std::string& value) {
    Parameter* parameter = instance.parameters().find(name);
    if (!parameter) throw std::runtime_error("no parameter " + name);
    const auto labels = parameter->properties.texts(kOfxParamPropChoiceOption);
    const bool hasKeys = value.find(':') != value.npos;
    if (!labels.empty() && !(hasKeys && parameter->animates())) {
        return instance.set(name, choiceOf(name, value, labels));
    }
    if (hasKeys) return instance.setKeys(name, keysOf(value));
    std::vector<double> numbers;
    for (const std::string& part : splitAt(value, ',')) numbers.push_back(numberOf(part));
    if (numbers.size() != parameter->state().numbers.size()) {
        throw std::runtime_error("a wrong number of values for " + name);
    }
    instance.set(name, numbers);
}

}  // namespace ruvex::ofxhost::test
