// The effect's own interface for front ends, in addition to the host's interfaces.

#pragma once

#include <cstdint>

#include "sdk/com/guid.h"

namespace ruvex {

/// Values that the effect computes for a frame before it renders a pixel. The amount of an artefact
/// depends on the frame's level: 0 up to its threshold, its maximum at a level of 1. The parameters
/// of each artefact are in `parameters/artefacts.h`.
struct FrameValues {
    double seconds;       ///< time of the frame
    double playTime;      ///< seconds of the clip played until then
    std::int32_t frame;   ///< number of the frame in the output
    std::int32_t source;  ///< number of the frame in the clip
    std::int32_t shown;   ///< the same, with frames repeated
    float level;          ///< signal level: 0 undisturbed, 1 worst

    double colourDegrade;   ///< fraction
    double ghostDistance;   ///< pixels of the project frame
    double edgeDistortion;  ///< pixels of the project frame
    double snow;            ///< fraction; may be negative
    double shash;           ///< fraction
    double lineSpeed;       ///< pixels of the project frame a second
    double verticalOffset;  ///< pixels of the project frame
    double rollSpeed;       ///< pixels of the project frame a second

    double lineTravel;           ///< distance the creeping lines have moved, project pixels
    std::int32_t verticalSum;    ///< vertical offset plus vertical roll, project pixels
    std::int32_t shashFramesOn;  ///< number of frames with shash up to this one
};

/// What became of a frame. The output of a frame that is not finished holds pixels without meaning.
enum class FrameOutcome : std::int32_t {
    Finished = 0,
    Stopped = 1,      ///< the host asked the effect to stop
    OutOfMemory = 2,  ///< there was not enough memory for the frame
};

/// The most workers that an effect object can be given.
inline constexpr std::int32_t kMostWorkers = 1024;

/// What a long computation asks from time to time: whether it has to stop. Asked on the thread that
/// computes.
struct StopQuestion {
    bool (*stops)(void* context);
    void* context;  ///< not owned
};

/// Obtained through QueryInterface of the effect with `kRuvexControlId`, which adds a COM
/// reference. The caller releases it through one of the effect's other interfaces. The pointer is
/// valid during the effect's lifetime.
struct IRuvexControl {
    /// Sets the number of workers for the frames of this object; each worker renders one share of
    /// the rows. 0 means the machine's number of processors. Clones made later start with the same
    /// count; other objects are not affected. Must not be called while this object renders. Returns
    /// 0; or 0x80070057 (invalid argument) and changes nothing, for a number below 0 or above
    /// kMostWorkers.
    virtual std::int32_t setWorkerCount(std::int32_t count) = 0;
    /// The number of workers for this object's frames, at least 1.
    virtual std::int32_t workerCount() const = 0;

    /// Gives the values of the frame at `seconds`. Returns 0; 0x80004003 for a null pointer;
    /// 0x80070057 (invalid argument) for a rate that is not finite and above 0; 0x8007000E if
    /// memory ran out.
    virtual std::int32_t frameValues(double seconds, double framesPerSecond,
                                     FrameValues* values) const = 0;

    /// What became of the frame of the last Execute that returned 0, which says nothing about that
    /// by itself; Finished before the first. Must not be called while this object renders.
    virtual FrameOutcome frameOutcome() const = 0;

    /// Gives the values of the frames `first` to `last`, both inclusive, frame k at k /
    /// framesPerSecond seconds, as frameValues gives them one by one. At a constant speed of the
    /// tape the level at each earlier moment is computed once for all frames; only the sums over
    /// the moments before a frame are added up for each. Stores last - first + 1 values in
    /// `values`, and needs about 200 bytes of memory for each frame from 0 to `last`. `question`
    /// may be null. Returns 0; 0x80004003 for null `values`; 0x80070057 (invalid argument) for a
    /// rate that is not finite and above 0, and unless 0 <= first <= last; 0x8007000E if memory ran
    /// out; 0x80004004 (aborted), with values that have no meaning, if the question was answered
    /// with true.
    virtual std::int32_t levels(std::int64_t first, std::int64_t last, double framesPerSecond,
                                FrameValues* values, const StopQuestion* question) const = 0;

    /// Bytes of the pictures that this object keeps for its next frame, and of no other memory.
    /// Must not be called while this object renders.
    virtual std::int64_t keptPictureBytes() const = 0;

protected:
    ~IRuvexControl() = default;
};

inline constexpr GUID kRuvexControlId = guidFromText("7B1E52D4-0A6F-4C93-8E2D-41F7C9A3605E");

}  // namespace ruvex
