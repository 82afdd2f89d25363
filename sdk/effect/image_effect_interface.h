// The interface through which a host runs an image effect.

#pragma once

#include "sdk/effect/coord_man.h"
#include "sdk/effect/effect_host.h"
#include "sdk/effect/effect_info.h"
#include "sdk/images/image.h"

/// For a frame, the host calls the Set functions, then Verify, then Execute. The effect keeps a
/// reference to each interface that was set until another one (or null) is set or Cleanup is
/// called.
struct IDSImageEffect : IUnknown {
    virtual HRESULT GetImageEffectInfo(DSIMAGEEFFECTINFO* info) = 0;
    /// Frames per second.
    virtual HRESULT SetSampleRate(double framesPerSecond) = 0;
    /// 0 if the effect supports the image's format, otherwise S_FALSE.
    virtual HRESULT IsFormatSupported(IDSImage* image) = 0;
    /// 0 if the effect supports the format, otherwise another value.
    virtual HRESULT TestFormat(const GUID& format) = 0;
    virtual HRESULT Setup() = 0;
    virtual HRESULT Cleanup() = 0;
    /// Gives the part of the input that is needed for the region of interest.
    virtual HRESULT GetInputBbox(DSRECT* box) = 0;
    virtual HRESULT GetInputOverscan(DSOVERSCAN* overscan) = 0;
    virtual HRESULT GetOutputOverscan(DSOVERSCAN* overscan) = 0;
    virtual HRESULT SetInput(IDSImage* image) = 0;
    virtual HRESULT SetOutput(IDSImage* image) = 0;
    /// The channels that the effect may change: bit 0 red, 1 green, 2 blue, 3 alpha.
    virtual HRESULT SetChannelMask(ULONG mask) = 0;
    /// Sets the mask of a paint stroke and its offset in the input, in pixels.
    virtual HRESULT SetPixelMask(IDSImage* mask, LONG offsetX, LONG offsetY) = 0;
    /// The region to render, in pixels of the output, in which it begins; null for all of it.
    virtual HRESULT SetROI(const DSRECT* region) = 0;
    virtual HRESULT SetQuality(LONG level) = 0;
    virtual HRESULT SetInput2(IDSImage* image) = 0;
    virtual HRESULT SetInput2Offset(LONG offsetX, LONG offsetY) = 0;
    /// Checks whether everything needed for a render is set, and whether the images and the region
    /// go together: 0, or an error code.
    virtual HRESULT Verify() = 0;
    /// Renders the frame at `seconds` into the output.
    virtual HRESULT Execute(double seconds) = 0;
    /// Creates a second object with the same parameters, for a concurrent render.
    virtual HRESULT Clone(const GUID& id, void** out) = 0;
    /// The same, with every animated parameter replaced by its value at `seconds`.
    virtual HRESULT CloneAtTime(double seconds, const GUID& id, void** out) = 0;
    virtual HRESULT SetDirection(double direction) = 0;
    virtual HRESULT SetPressure(double pressure) = 0;
    virtual HRESULT SetOriginalImage(IDSImage* image) = 0;
    /// Sets a 4 by 4 matrix: sixteen numbers in row-major order.
    virtual HRESULT SetTransfo4(const double* matrix) = 0;
    /// The field mode: 0 whole frame, 1 first field, 2 second field.
    virtual HRESULT SetProcessingMode(LONG mode) = 0;
    virtual HRESULT GetProcessingMode(LONG* mode) = 0;
    /// Sets the context that the effect passes to IDSEffectHost::GetInputFrame.
    virtual HRESULT SetExecuteContext(IUnknown* context) = 0;
    virtual HRESULT SetEffectHost(IDSEffectHost* host) = 0;
    virtual HRESULT SetCoordMan(IDSCoordMan* manager) = 0;
    virtual HRESULT GetCoordMan(IDSCoordMan** manager) = 0;
    /// Announces that the next frames are in this range of seconds, inclusive.
    virtual HRESULT BeginFrameRange(double first, double last) = 0;
    virtual HRESULT EndFrameRange() = 0;
    virtual HRESULT BeginFrame(double seconds) = 0;
    virtual HRESULT EndFrame() = 0;

protected:
    ~IDSImageEffect() = default;
};

inline constexpr GUID IID_IDSImageEffect =
    ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A16");
template <>
struct DSInterfaceTraits<IDSImageEffect> : DSInterface<IID_IDSImageEffect> {};
