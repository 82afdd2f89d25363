#include "runtime/property_value.h"

#include <cmath>
#include <cstdint>
#include <string>

#include "runtime/error.h"

namespace ruvex::runtime {

namespace {

bool isWhole(double value) {
    return value >= INT32_MIN && value <= INT32_MAX && value == std::trunc(value);
}

}  // namespace

VARIANT toVariant(const CDSParamDef& definition, double value) {
    switch (definition.type) {
        case VT_R8:
            if (std::isfinite(value)) return DSVariantFromReal(value);
            break;
        case VT_BOOL:
            if (value == 0.0 || value == 1.0) return DSVariantFromBool(value != 0.0);
            break;
        default:
            if (isWhole(value)) return DSVariantFromLong(static_cast<LONG>(value));
    }
    throw Error("the value " + std::to_string(value) + " does not fit the parameter " +
                toText(definition.id));
}

double fromVariant(const VARIANT& value) {
    return value.vt == VT_R8 ? value.dblVal : static_cast<double>(value.lVal);
}

}  // namespace ruvex::runtime
