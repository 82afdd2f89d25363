// The effect's own interface: what a front end may ask of it beyond the host's interfaces.

#pragma once

#include <cstdint>

#include "sdk/com/guid.h"

namespace ruvex {

/// What the effect works out for a frame before it touches a pixel. Amounts are what an artefact
/// does at the frame's level: 0 up to its threshold, its maximum at a level of 1; the table of
/// `parameters/artefacts.h` says which parameters they come from.
struct FrameValues {
    double seconds;       ///< time of the frame
    double playTime;      ///< seconds of the clip played up to it
    std::int32_t frame;   ///< number of the frame in the output
    std::int32_t source;  ///< number of the frame in the clip
    std::int32_t shown;   ///< the same, with frames repeated
    float level;          ///< how poor the signal is, 0 to 1

    double colourDegrade;   ///< fraction
    double ghostDistance;   ///< pixels of the project frame
    double edgeDistortion;  ///< pixels of the project frame
    double snow;            ///< fraction; may be negative
    double shash;           ///< fraction
    double lineSpeed;       ///< pixels of the project frame a second
    double verticalOffset;  ///< pixels of the project frame
    double rollSpeed;       ///< pixels of the project frame a second

    double lineTravel;           ///< how far the creeping lines have crept, pixels of the project
    std::int32_t verticalSum;    ///< how far the picture hangs and has rolled, the same
    std::int32_t shashFramesOn;  ///< for how many frames there has been shash
};

/// The most workers that an effect object can be given.
inline constexpr std::int32_t kMostWorkers = 1024;

/// Asked for like any interface of the effect, with `kRuvexControlId`. The query takes a reference
/// to the effect, which is released through one of the effect's own interfaces; the pointer is good
/// as long as the effect lives.
struct IRuvexControl {
    /// Sets the number of workers, each of which renders one share of a pass's rows, for the frames
    /// of this object; 0 stands for the machine's number of processors. A clone starts with the
    /// count of its source; other objects keep theirs. Not while this object renders. Returns 0,
    /// or 0x80070057, changing nothing, for a negative number and for one above kMostWorkers.
    virtual std::int32_t setWorkerCount(std::int32_t count) = 0;
    /// The number of workers of this object's frames, at least 1.
    virtual std::int32_t workerCount() const = 0;

    /// The values behind the frame at `seconds`, at a rate in frames per second. 0, or 0x80004003
    /// for a null pointer, 0x80070057 for a rate that is not above 0 and finite, 0x8007000E.
    virtual std::int32_t frameValues(double seconds, double framesPerSecond,
                                     FrameValues* values) const = 0;

protected:
    ~IRuvexControl() = default;
};

inline constexpr GUID kRuvexControlId = guidFromText("6B1E5A80-7C54-4A0E-8E0B-0D1B7F2C9A31");

}  // namespace ruvex
