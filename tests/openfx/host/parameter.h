// One parameter: its properties, its value and its keys.

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tests/openfx/host/property_set.h"

namespace ruvex::ofxhost {

/// What a curve does from a key to the next one. Smooth: an ease with slopes of 0 at both keys.
enum class KeyShape { Hold, Linear, Smooth };

struct Key {
    double time = 0.0;
    std::vector<double> numbers{};
    KeyShape shape = KeyShape::Linear;

    friend bool operator==(const Key&, const Key&) = default;
};

/// What an undo step brings back. Colours have three numbers, strings a text, all other kinds with
/// a value one number.
struct ParameterState {
    std::vector<double> numbers{};
    std::string text{};
    std::vector<Key> keys{};  ///< In the order of their times.

    friend bool operator==(const ParameterState&, const ParameterState&) = default;
};

class ParameterSet;

class Parameter {
public:
    /// A descriptor with the properties of its type; `type` is one that isKnownType knows.
    Parameter(Host& host, const std::string& type, const std::string& name);
    /// The parameter of an instance, with its default.
    Parameter(const Parameter& descriptor, ParameterSet& set);
    Parameter(const Parameter&) = delete;
    Parameter& operator=(const Parameter&) = delete;

    static bool isKnownType(const std::string& type);

    OfxParamHandle handle() const { return handle_.get(); }
    Host& host() const { return properties.host(); }
    /// That of the instance; null for a descriptor.
    ParameterSet* set() const { return set_; }
    const std::string& type() const { return type_; }
    const std::string& name() const { return name_; }
    bool isType(const char* type) const { return type_ == type; }
    bool isString() const { return isType(kOfxParamTypeString); }
    /// Double, integer, boolean, choice or colour.
    bool hasNumbers() const { return !state_.numbers.empty(); }
    bool animates() const { return properties.number(kOfxParamPropAnimates) != 0; }

    const ParameterState& state() const { return state_; }
    void restore(ParameterState state);
    /// Values for each time without keys, as an expression of the host's user gives them.
    void setExpression(std::function<double(double)> expression);

    std::vector<double> numbersAt(double time) const;
    void setNumbers(std::vector<double> numbers);
    void setText(std::string text);
    /// Adds a key, or replaces the one at this time.
    void setKey(Key key);
    void deleteKey(std::size_t index);
    void deleteAllKeys();

    PropertySet properties;

private:
    void tellWhetherAnimating();

    ParameterSet* set_ = nullptr;
    std::string type_;
    std::string name_;
    ParameterState state_;
    std::function<double(double)> expression_;
    OwnHandle<HandleKind::Parameter, OfxParamHandle> handle_{this};
};

}  // namespace ruvex::ofxhost
