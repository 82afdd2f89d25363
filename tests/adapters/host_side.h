// What a frei0r host does: calls of the plug-in's functions, for tests.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "adapters/frei0r/frei0r_api.h"

namespace ruvex::frei0r::test {

/// Rows of RGBA pixels, top row first.
using Pixels = std::vector<std::uint32_t>;

/// Opaque pixels without a pattern, the same for one seed.
inline Pixels noisyPixels(unsigned width, unsigned height, std::uint32_t seed) {
    constexpr std::uint32_t kOpaque = 0xFF000000;
    Pixels pixels(std::size_t{width} * height);
    for (auto& pixel : pixels) {
        seed = seed * 1664525u + 1013904223u;
        pixel = seed >> 8 | kOpaque;
    }
    return pixels;
}

/// The index of a parameter; -1 if there is none of this name.
inline int indexOf(const std::string& name) {
    PlugInInfo info{};
    f0r_get_plugin_info(&info);
    for (int i = 0; i < info.parameterCount; ++i) {
        ParameterInfo parameter{};
        f0r_get_param_info(&parameter, i);
        if (name == parameter.name) return i;
    }
    return -1;
}

/// One instance.
class HostSide {
public:
    HostSide(unsigned width, unsigned height)
        : width_(width), height_(height), handle_(f0r_construct(width, height)) {}
    ~HostSide() { f0r_destruct(handle_); }
    HostSide(const HostSide&) = delete;
    HostSide& operator=(const HostSide&) = delete;

    InstanceHandle handle() const { return handle_; }

    void set(const std::string& name, double value) {
        f0r_set_param_value(handle_, &value, indexOf(name));
    }
    void set(const std::string& name, Colour value) {
        f0r_set_param_value(handle_, &value, indexOf(name));
    }
    void set(const std::string& name, const std::string& value) {
        const char* text = value.c_str();
        f0r_set_param_value(handle_, &text, indexOf(name));
    }

    Pixels frame(double time, const Pixels& input) {
        Pixels output(std::size_t{width_} * height_);
        f0r_update(handle_, time, input.data(), output.data());
        return output;
    }

private:
    unsigned width_;
    unsigned height_;
    InstanceHandle handle_;
};

}  // namespace ruvex::frei0r::test
