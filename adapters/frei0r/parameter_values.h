// The values of all parameters of one instance, as its host has set them.

#pragma once

#include <string>
#include <vector>

#include "adapters/frei0r/frame_clock.h"
#include "adapters/frei0r/parameter_list.h"
#include "looks/parameter_change.h"

namespace ruvex::frei0r {

/// Longer strings are ignored.
inline constexpr std::size_t kLongestString = 4096;

/// Values by the indices of parameterList, at first their defaults.
class ParameterValues {
public:
    ParameterValues();

    /// Sets a value through a host's pointer. Numbers beyond 0 and 1 are held to these. Ignored
    /// are: an index that does not exist, a null pointer, a number or a channel that is NaN, a
    /// string that is null or longer than kLongestString.
    void set(int index, const void* value);

    /// Stores a value through a host's pointer; nothing for an index that does not exist and for a
    /// null pointer. The text of a string is valid until it is set again.
    void get(int index, void* value) const;

    /// The name or path of the look; empty for none.
    const std::string& look() const;
    /// In frames per second; 25, with a message, for a text that is no rate.
    double framesPerSecond() const;
    TimeUnit timeUnit() const;
    bool effectAlpha() const;

    /// The values that are set over the look: those that the host has set to something else than
    /// the parameter's default, and those of the parameters named in `override`. Hosts set all
    /// parameters before each frame, so that a value alone tells what the user has chosen. A number
    /// within a millionth of the default counts as the default, and a colour within half a step of
    /// 8 bits: hosts store them as text and as bytes.
    std::vector<looks::Setting> valuesOverLook() const;

private:
    const Value& valueOf(OwnParameter which) const;
    const std::string& text(OwnParameter which) const;
    bool isOverridden(std::size_t index, const std::vector<std::string>& names) const;

    std::vector<Value> values_;
};

}  // namespace ruvex::frei0r
