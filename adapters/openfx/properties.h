// Properties of the host's objects, with defaults for those that are missing.

#pragma once

#include <optional>
#include <string>

#include "adapters/openfx/host.h"

namespace ruvex::openfx {

/// The properties of one object of the host: of the host itself, an effect, a clip, an image, a
/// parameter, or the arguments of an action. They may be none at all (a null handle); then nothing
/// is found and nothing can be set. Names and texts are not null.
class Properties {
public:
    Properties(const Host& host, OfxPropertySetHandle handle)
        : suite_(host.property), handle_(handle) {}

    OfxPropertySetHandle handle() const { return handle_; }

    // The value of a property; nothing if the host has none, or one of another type.
    std::optional<int> findInt(const char* name, int index = 0) const;
    std::optional<double> findDouble(const char* name, int index = 0) const;
    std::optional<std::string> findString(const char* name, int index = 0) const;

    // The same, or else `fallback`.
    int getInt(const char* name, int fallback) const { return findInt(name).value_or(fallback); }
    /// `fallback` for a value that is not finite, too.
    double getDouble(const char* name, double fallback) const;
    /// Empty if there is none.
    std::string getString(const char* name) const { return findString(name).value_or(""); }
    /// Null if there is none.
    void* getPointer(const char* name) const;

    /// Four whole numbers, or four reals; nothing if one of them is missing.
    std::optional<OfxRectI> findRectI(const char* name) const;
    std::optional<OfxRectD> findRectD(const char* name) const;
    /// Two reals; nothing if one of them is missing.
    std::optional<OfxPointD> findPointD(const char* name) const;

    // Sets a value; false if the host refuses it.
    bool setInt(const char* name, int value, int index = 0) const;
    bool setDouble(const char* name, double value, int index = 0) const;
    bool setString(const char* name, const std::string& value, int index = 0) const;
    bool setPointer(const char* name, void* value, int index = 0) const;
    bool setRectD(const char* name, const OfxRectD& value) const;

    /// Throws Failure with kOfxStatErrMissingHostFeature if the host refuses the value.
    void requireString(const char* name, const std::string& value, int index = 0) const;

private:
    const OfxPropertySuiteV1* suite_;
    OfxPropertySetHandle handle_;
};

}  // namespace ruvex::openfx
