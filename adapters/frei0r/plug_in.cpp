// The functions that a host calls. No exception leaves them: hosts are written in C.

#include <memory>
#include <type_traits>

#include "adapters/frei0r/frei0r_api.h"
#include "adapters/frei0r/instance.h"
#include "adapters/frei0r/parameter_list.h"

using namespace ruvex::frei0r;

namespace {

/// Runs an operation. If it throws, which happens when memory runs out, the result is null or
/// nothing.
template <class Operation>
auto withoutExceptions(Operation operation) noexcept {
    using Result = decltype(operation());
    try {
        return operation();
    } catch (...) {
        if constexpr (!std::is_void_v<Result>) return Result{};
    }
}

/// Null for a null handle.
Instance* instanceOf(InstanceHandle handle) {
    return static_cast<Instance*>(handle);
}

}  // namespace

// Nothing depends on these two. ffmpeg calls them for each filter, and f0r_deinit while another
// filter's instance is alive; other hosts call them once. All state is that of an instance.
int f0r_init() {
    return 1;
}
void f0r_deinit() {}

void f0r_get_plugin_info(PlugInInfo* info) {
    if (!info) return;
    withoutExceptions([&] {
        *info = {.name = "ruvex",
                 .author = "The V_Ruvex authors",
                 .plugInType = kFilter,
                 .colourModel = kRgba8888,
                 .frei0rVersion = kMajorVersion,
                 .majorVersion = RUVEX_MAJOR_VERSION,
                 .minorVersion = RUVEX_MINOR_VERSION,
                 .parameterCount = static_cast<int>(parameterList().size()),
                 .explanation = "Makes the picture look like faulty television"};
    });
}

void f0r_get_param_info(ParameterInfo* info, int index) {
    if (!info) return;
    withoutExceptions([&] {
        const auto list = parameterList();
        if (index < 0 || static_cast<std::size_t>(index) >= list.size()) return;
        const ListedParameter& parameter = list[static_cast<std::size_t>(index)];
        *info = {parameter.name.c_str(), static_cast<int>(parameter.type),
                 parameter.explanation.c_str()};
    });
}

InstanceHandle f0r_construct(unsigned width, unsigned height) {
    return withoutExceptions([&]() -> InstanceHandle { return new Instance(width, height); });
}

void f0r_destruct(InstanceHandle instance) {
    withoutExceptions([&] { delete instanceOf(instance); });
}

void f0r_set_param_value(InstanceHandle instance, ParameterPointer value, int index) {
    if (!instance) return;
    withoutExceptions([&] { instanceOf(instance)->setParameter(index, value); });
}

void f0r_get_param_value(InstanceHandle instance, ParameterPointer value, int index) {
    if (!instance) return;
    withoutExceptions([&] { instanceOf(instance)->getParameter(index, value); });
}

void f0r_update(InstanceHandle instance, double time, const std::uint32_t* input,
                std::uint32_t* output) {
    if (!instance) return;
    withoutExceptions([&] { instanceOf(instance)->update(time, input, output); });
}
