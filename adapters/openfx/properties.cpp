#include "adapters/openfx/properties.h"

#include <cmath>

#include "adapters/openfx/failure.h"

namespace ruvex::openfx {

std::optional<int> Properties::findInt(const char* name, int index) const {
    int value = 0;
    if (!handle_ || suite_->propGetInt(handle_, name, index, &value) != kOfxStatOK) return {};
    return value;
}

std::optional<double> Properties::findDouble(const char* name, int index) const {
    double value = 0.0;
    if (!handle_ || suite_->propGetDouble(handle_, name, index, &value) != kOfxStatOK) return {};
    return value;
}

std::optional<std::string> Properties::findString(const char* name, int index) const {
    char* value = nullptr;
    if (!handle_ || suite_->propGetString(handle_, name, index, &value) != kOfxStatOK) return {};
    if (!value) return {};
    return std::string(value);
}

double Properties::getDouble(const char* name, double fallback) const {
    const double value = findDouble(name).value_or(fallback);
    return std::isfinite(value) ? value : fallback;
}

void* Properties::getPointer(const char* name) const {
    void* value = nullptr;
    if (!handle_ || suite_->propGetPointer(handle_, name, 0, &value) != kOfxStatOK) return nullptr;
    return value;
}

std::optional<OfxRectI> Properties::findRectI(const char* name) const {
    const auto x1 = findInt(name, 0), y1 = findInt(name, 1);
    const auto x2 = findInt(name, 2), y2 = findInt(name, 3);
    if (!x1 || !y1 || !x2 || !y2) return {};
    return OfxRectI{*x1, *y1, *x2, *y2};
}

std::optional<OfxRectD> Properties::findRectD(const char* name) const {
    const auto x1 = findDouble(name, 0), y1 = findDouble(name, 1);
    const auto x2 = findDouble(name, 2), y2 = findDouble(name, 3);
    if (!x1 || !y1 || !x2 || !y2) return {};
    return OfxRectD{*x1, *y1, *x2, *y2};
}

std::optional<OfxPointD> Properties::findPointD(const char* name) const {
    const auto x = findDouble(name, 0), y = findDouble(name, 1);
    if (!x || !y) return {};
    return OfxPointD{*x, *y};
}

bool Properties::setInt(const char* name, int value, int index) const {
    return handle_ && suite_->propSetInt(handle_, name, index, value) == kOfxStatOK;
}

bool Properties::setDouble(const char* name, double value, int index) const {
    return handle_ && suite_->propSetDouble(handle_, name, index, value) == kOfxStatOK;
}

bool Properties::setString(const char* name, const std::string& value, int index) const {
    return handle_ && suite_->propSetString(handle_, name, index, value.c_str()) == kOfxStatOK;
}

bool Properties::setPointer(const char* name, void* value, int index) const {
    return handle_ && suite_->propSetPointer(handle_, name, index, value) == kOfxStatOK;
}

bool Properties::setRectD(const char* name, const OfxRectD& value) const {
    const bool low = setDouble(name, value.x1, 0) && setDouble(name, value.y1, 1);
    return low && setDouble(name, value.x2, 2) && setDouble(name, value.y2, 3);
}

void Properties::requireString(const char* name, const std::string& value, int index) const {
    if (setString(name, value, index)) return;
    throw Failure(kOfxStatErrMissingHostFeature, std::string("the host refuses ") + name);
}

}  // namespace ruvex::openfx
