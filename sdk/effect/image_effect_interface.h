// An effect on one picture, as the host drives it.

#pragma once

#include "sdk/effect/coord_man.h"
#include "sdk/effect/effect_host.h"
#include "sdk/effect/effect_info.h"
#include "sdk/images/image.h"

/// The host describes a frame through the Set operations, calls Verify, then Execute. Interfaces
/// that are handed in are kept until they are replaced or Cleanup is called; null takes one away.
struct IDSImageEffect : IUnknown {
    virtual HRESULT GetImageEffectInfo(DSIMAGEEFFECTINFO* info) = 0;
    /// Frames per second.
    virtual HRESULT SetSampleRate(double framesPerSecond) = 0;
    /// 0 when the effect can work on an image of this format; otherwise S_FALSE.
    virtual HRESULT IsFormatSupported(IDSImage* image) = 0;
    /// The format test: 0 for a format that the effect renders, not 0 for any other.
    virtual HRESULT TestFormat(const GUID& format) = 0;
    virtual HRESULT Setup() = 0;
    virtual HRESULT Cleanup() = 0;
    /// The part of the input that the region of interest needs.
    virtual HRESULT GetInputBbox(DSRECT* box) = 0;
    virtual HRESULT GetInputOverscan(DSOVERSCAN* overscan) = 0;
    virtual HRESULT GetOutputOverscan(DSOVERSCAN* overscan) = 0;
    virtual HRESULT SetInput(IDSImage* image) = 0;
    virtual HRESULT SetOutput(IDSImage* image) = 0;
    /// Bit 0 red, 1 green, 2 blue, 3 alpha.
    virtual HRESULT SetChannelMask(ULONG mask) = 0;
    /// The mask of a paint stroke and its place in the input, in pixels.
    virtual HRESULT SetPixelMask(IDSImage* mask, LONG offsetX, LONG offsetY) = 0;
    /// The region to render, in pixels of the output; null for all of it.
    virtual HRESULT SetROI(const DSRECT* region) = 0;
    virtual HRESULT SetQuality(LONG level) = 0;
    virtual HRESULT SetInput2(IDSImage* image) = 0;
    virtual HRESULT SetInput2Offset(LONG offsetX, LONG offsetY) = 0;
    /// Whether what was handed in is enough for a render: 0, or what is wrong.
    virtual HRESULT Verify() = 0;
    /// Renders the frame at `seconds` into the output.
    virtual HRESULT Execute(double seconds) = 0;
    /// A second object with the same parameters, for a render beside this one.
    virtual HRESULT Clone(const GUID& id, void** out) = 0;
    /// The same with every animated parameter held at its value at `seconds`.
    virtual HRESULT CloneAtTime(double seconds, const GUID& id, void** out) = 0;
    virtual HRESULT SetDirection(double direction) = 0;
    virtual HRESULT SetPressure(double pressure) = 0;
    virtual HRESULT SetOriginalImage(IDSImage* image) = 0;
    /// Sixteen numbers, row by row.
    virtual HRESULT SetTransfo4(const double* matrix) = 0;
    /// The field mode: 0 whole frame, 1 first field, 2 second field.
    virtual HRESULT SetProcessingMode(LONG mode) = 0;
    virtual HRESULT GetProcessingMode(LONG* mode) = 0;
    /// Handed back to the host with each request for a frame.
    virtual HRESULT SetExecuteContext(IUnknown* context) = 0;
    virtual HRESULT SetEffectHost(IDSEffectHost* host) = 0;
    virtual HRESULT SetCoordMan(IDSCoordMan* manager) = 0;
    virtual HRESULT GetCoordMan(IDSCoordMan** manager) = 0;
    /// The frames that follow lie in this stretch, both ends in seconds.
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
