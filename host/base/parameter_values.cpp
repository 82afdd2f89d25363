#include "host/base/parameter_values.h"

namespace ruvex {

void ParameterValues::setDefaults() {
    for (const ParameterRow& row : parameterTable()) {
        values_[index(row.id)] = {row.defaultValue, row.defaultInt()};
    }
}

void* ParameterValues::member(ParameterId id) {
    Value& value = values_[index(id)];
    return isReal(row(id).kind) ? static_cast<void*>(&value.real) : &value.integer;
}

}  // namespace ruvex
