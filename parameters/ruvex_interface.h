// The one interface of our own: what a front end may ask of the effect beyond the host's
// interfaces.

#pragma once

#include <cstdint>

#include "sdk/guid.h"

namespace ruvex {

/// Asked for like any interface of the effect, with `kRuvexControlId`. The query takes a reference
/// to the effect, which is released through one of the effect's own interfaces; the pointer is good
/// as long as the effect lives.
struct IRuvexControl {
    /// How many shares the rows of a pass are cut into, in the whole module; 0 goes back to the
    /// machine's number of processors. To be set before the first frame is rendered. Returns 0, or
    /// a COM status and changes nothing: 0x80070057 for a number that the module does not allow,
    /// 0x8000FFFF when it is too late.
    virtual std::int32_t setWorkerCount(std::int32_t count) = 0;
    virtual std::int32_t workerCount() const = 0;

protected:
    ~IRuvexControl() = default;
};

inline constexpr GUID kRuvexControlId = guidFromText("6B1E5A80-7C54-4A0E-8E0B-0D1B7F2C9A31");

}  // namespace ruvex
