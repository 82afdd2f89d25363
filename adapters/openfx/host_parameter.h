// A parameter of an instance in the host: its values, keys and properties.

#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "adapters/openfx/properties.h"

namespace ruvex::openfx {

using HostColour = std::array<double, 3>;

/// Times are the host's. A parameter that the host does not have gives no values, and setting it
/// does nothing.
class HostParameter {
public:
    HostParameter(const Host& host, OfxParamSetHandle set, const std::string& name);

    bool exists() const { return handle_ != nullptr; }
    Properties properties() const;

    // The value at a time; nothing if the host fails. Reals and channels may be anything.
    std::optional<double> realAt(double time) const;
    std::optional<HostColour> colourAt(double time) const;
    /// Of integers, choices and check boxes.
    std::optional<int> wholeAt(double time) const;

    /// In ascending order, finite, without two at one time; at most kMostKeys.
    std::vector<double> keyTimes() const;
    /// Whether the value changes with time, by keys or otherwise.
    bool isAnimating() const;

    // Sets one value for all times; keys are removed.
    void setReal(double value) const;
    void setColour(const HostColour& value) const;
    void setWhole(int value) const;

    // Sets a key, or the value if the host refuses keys.
    void setRealAt(double time, double value) const;
    void setColourAt(double time, const HostColour& value) const;
    void removeKeys() const;

    static constexpr unsigned kMostKeys = 100000;

private:
    bool hasKeys() const;

    Host host_;
    OfxParamHandle handle_ = nullptr;
};

/// The parameters of one effect.
class ParameterSet {
public:
    /// Throws Failure with kOfxStatErrBadHandle if the effect has no parameters.
    ParameterSet(const Host& host, OfxImageEffectHandle effect);

    HostParameter find(const std::string& name) const { return {host_, handle_, name}; }
    const Host& host() const { return host_; }
    OfxParamSetHandle handle() const { return handle_; }

private:
    Host host_;
    OfxParamSetHandle handle_ = nullptr;
};

}  // namespace ruvex::openfx
