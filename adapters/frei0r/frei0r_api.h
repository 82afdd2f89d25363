// The interface of frei0r plug-ins, version 1.2, as this project declares it.

#pragma once

#include <cstdint>

#ifdef _WIN32
#define RUVEX_F0R_EXPORT extern "C" __declspec(dllexport)
#else
#define RUVEX_F0R_EXPORT extern "C" __attribute__((visibility("default")))
#endif

namespace ruvex::frei0r {

inline constexpr int kMajorVersion = 1;
inline constexpr int kMinorVersion = 2;

/// A plug-in's kind: one picture in, one out.
inline constexpr int kFilter = 0;

/// The order of a pixel's bytes in memory: red, green, blue, alpha.
inline constexpr int kRgba8888 = 1;

/// The kinds of parameters, and what a host's pointer to a value points at. There are positions
/// too (3), which several hosts leave out.
enum class ParameterType : int {
    Bool = 0,    ///< double: 0.5 and more is true
    Double = 1,  ///< double, 0 to 1
    Colour = 2,  ///< Colour
    String = 4,  ///< char*, ended by a zero byte
};

/// Channels from 0 to 1.
struct Colour {
    float r;
    float g;
    float b;

    friend bool operator==(const Colour&, const Colour&) = default;
};

/// What a plug-in says about itself. Texts are constants of the plug-in.
struct PlugInInfo {
    const char* name;
    const char* author;
    int plugInType;
    int colourModel;
    int frei0rVersion;  ///< kMajorVersion
    int majorVersion;   ///< of the plug-in
    int minorVersion;
    int parameterCount;
    const char* explanation;
};

/// What a plug-in says about one of its parameters.
struct ParameterInfo {
    const char* name;
    int type;  ///< ParameterType
    const char* explanation;
};

using InstanceHandle = void*;
using ParameterPointer = void*;

}  // namespace ruvex::frei0r

/// Called before all others; 0 refuses. Hosts call it and f0r_deinit any number of times, for each
/// instance or once in a process, and f0r_deinit also while instances exist.
RUVEX_F0R_EXPORT int f0r_init();
RUVEX_F0R_EXPORT void f0r_deinit();

RUVEX_F0R_EXPORT void f0r_get_plugin_info(ruvex::frei0r::PlugInInfo* info);
/// Changes nothing for an index that does not exist.
RUVEX_F0R_EXPORT void f0r_get_param_info(ruvex::frei0r::ParameterInfo* info, int index);

/// An instance for pictures of this size, in pixels; null if there is no memory for it.
RUVEX_F0R_EXPORT ruvex::frei0r::InstanceHandle f0r_construct(unsigned width, unsigned height);
RUVEX_F0R_EXPORT void f0r_destruct(ruvex::frei0r::InstanceHandle instance);

/// The value is read through the pointer or stored there. The text of a string that is read belongs
/// to the instance, and is valid until the parameter is set again.
RUVEX_F0R_EXPORT void f0r_set_param_value(ruvex::frei0r::InstanceHandle instance,
                                          ruvex::frei0r::ParameterPointer value, int index);
RUVEX_F0R_EXPORT void f0r_get_param_value(ruvex::frei0r::InstanceHandle instance,
                                          ruvex::frei0r::ParameterPointer value, int index);

/// Renders one picture, rows from the top. The time is in seconds, but see frame_clock.h.
RUVEX_F0R_EXPORT void f0r_update(ruvex::frei0r::InstanceHandle instance, double time,
                                 const std::uint32_t* input, std::uint32_t* output);
