// Compares our declarations of the interface with the system's header, where it is installed.

#include <cstddef>
#include <gtest/gtest.h>
#include <type_traits>

#include "adapters/frei0r/frei0r_api.h"

namespace ours = ruvex::frei0r;

#if __has_include(<frei0r.h>)

// The header declares the functions too, with other names for the types: it gets names of its own.
#define f0r_init header_init
#define f0r_deinit header_deinit
#define f0r_get_plugin_info header_get_plugin_info
#define f0r_get_param_info header_get_param_info
#define f0r_construct header_construct
#define f0r_destruct header_destruct
#define f0r_set_param_value header_set_param_value
#define f0r_get_param_value header_get_param_value
#define f0r_update header_update
#include <frei0r.h>

TEST(ApiHeader, RecordsHaveTheLayoutOfTheHeader) {
    static_assert(sizeof(ours::PlugInInfo) == sizeof(f0r_plugin_info_t));
    static_assert(offsetof(ours::PlugInInfo, name) == offsetof(f0r_plugin_info_t, name));
    static_assert(offsetof(ours::PlugInInfo, author) == offsetof(f0r_plugin_info_t, author));
    static_assert(offsetof(ours::PlugInInfo, plugInType) ==
                  offsetof(f0r_plugin_info_t, plugin_type));
    static_assert(offsetof(ours::PlugInInfo, colourModel) ==
                  offsetof(f0r_plugin_info_t, color_model));
    static_assert(offsetof(ours::PlugInInfo, frei0rVersion) ==
                  offsetof(f0r_plugin_info_t, frei0r_version));
    static_assert(offsetof(ours::PlugInInfo, majorVersion) ==
                  offsetof(f0r_plugin_info_t, major_version));
    static_assert(offsetof(ours::PlugInInfo, minorVersion) ==
                  offsetof(f0r_plugin_info_t, minor_version));
    static_assert(offsetof(ours::PlugInInfo, parameterCount) ==
                  offsetof(f0r_plugin_info_t, num_params));
    static_assert(offsetof(ours::PlugInInfo, explanation) ==
                  offsetof(f0r_plugin_info_t, explanation));
    static_assert(sizeof(ours::ParameterInfo) == sizeof(f0r_param_info_t));
    static_assert(offsetof(ours::ParameterInfo, type) == offsetof(f0r_param_info_t, type));
    static_assert(sizeof(ours::Colour) == sizeof(f0r_param_color_t));
    static_assert(offsetof(ours::Colour, b) == offsetof(f0r_param_color_t, b));
}

TEST(ApiHeader, NumbersAreThoseOfTheHeader) {
    EXPECT_EQ(ours::kMajorVersion, FREI0R_MAJOR_VERSION);
    EXPECT_EQ(ours::kFilter, F0R_PLUGIN_TYPE_FILTER);
    EXPECT_EQ(ours::kRgba8888, F0R_COLOR_MODEL_RGBA8888);
    EXPECT_EQ(static_cast<int>(ours::ParameterType::Bool), F0R_PARAM_BOOL);
    EXPECT_EQ(static_cast<int>(ours::ParameterType::Double), F0R_PARAM_DOUBLE);
    EXPECT_EQ(static_cast<int>(ours::ParameterType::Colour), F0R_PARAM_COLOR);
    EXPECT_EQ(static_cast<int>(ours::ParameterType::String), F0R_PARAM_STRING);
}

#else

TEST(ApiHeader, IsNotInstalled) {
    GTEST_SKIP() << "there is no <frei0r.h> to compare with (Debian: frei0r-plugins-dev)";
}

#endif

TEST(ApiHeader, RecordsHaveThePublishedSizesOnThisProcessor) {
    EXPECT_EQ(offsetof(ours::PlugInInfo, explanation), 2 * sizeof(char*) + 6 * sizeof(int));
    EXPECT_EQ(offsetof(ours::ParameterInfo, type), sizeof(char*));
    EXPECT_EQ(sizeof(ours::Colour), 3 * sizeof(float));
}
