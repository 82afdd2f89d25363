// An effect with one input picture, one output picture and a render request.

#pragma once

#include "sdk/com_ptr.h"
#include "sdk/coord_man.h"
#include "sdk/effect_host.h"
#include "sdk/effect_info.h"
#include "sdk/image.h"
#include "sdk/plug_in.h"

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

/// Keeps what the host hands in and answers the questions that need no more than that. A concrete
/// effect adds at least Execute and Clone.
class DSSDK_API CDSImageEffect : public CDSPlugInEffect, public IDSImageEffect {
public:
    /// Adds IDSImageEffect.
    HRESULT QueryInterface(const GUID& id, void** out) override;
    ULONG AddRef() override { return CDSPlugInEffect::AddRef(); }
    ULONG Release() override { return CDSPlugInEffect::Release(); }

    /// Refuses a null pointer and leaves the record alone.
    HRESULT GetImageEffectInfo(DSIMAGEEFFECTINFO* info) override;
    /// E_INVALIDARG for a rate that is not above 0 and finite.
    HRESULT SetSampleRate(double framesPerSecond) override;
    /// Asks the image for its format and hands it to TestFormat.
    HRESULT IsFormatSupported(IDSImage* image) override;
    /// S_FALSE for every format.
    HRESULT TestFormat(const GUID& format) override;
    HRESULT Setup() override { return S_OK; }
    /// Lets go of all images and of the host's interfaces.
    HRESULT Cleanup() override;
    /// The region of interest, or the whole input; empty without an input.
    HRESULT GetInputBbox(DSRECT* box) override;
    /// Both are 0 on every edge.
    HRESULT GetInputOverscan(DSOVERSCAN* overscan) override;
    HRESULT GetOutputOverscan(DSOVERSCAN* overscan) override;
    HRESULT SetInput(IDSImage* image) override;
    HRESULT SetOutput(IDSImage* image) override;
    HRESULT SetChannelMask(ULONG mask) override;
    HRESULT SetPixelMask(IDSImage* mask, LONG offsetX, LONG offsetY) override;
    /// E_INVALIDARG for a region without pixels.
    HRESULT SetROI(const DSRECT* region) override;
    HRESULT SetQuality(LONG level) override;
    HRESULT SetInput2(IDSImage* image) override;
    HRESULT SetInput2Offset(LONG offsetX, LONG offsetY) override;
    /// Finds nothing to object to.
    HRESULT Verify() override { return S_OK; }
    HRESULT CloneAtTime(double seconds, const GUID& id, void** out) override;
    HRESULT SetDirection(double value) override;
    HRESULT SetPressure(double value) override;
    HRESULT SetOriginalImage(IDSImage* image) override;
    HRESULT SetTransfo4(const double* matrix) override;
    HRESULT SetProcessingMode(LONG mode) override;
    HRESULT GetProcessingMode(LONG* mode) override;
    HRESULT SetExecuteContext(IUnknown* context) override;
    HRESULT SetEffectHost(IDSEffectHost* host) override;
    HRESULT SetCoordMan(IDSCoordMan* manager) override;
    HRESULT GetCoordMan(IDSCoordMan** manager) override;
    HRESULT BeginFrameRange(double, double) override { return S_OK; }
    HRESULT EndFrameRange() override { return S_OK; }
    HRESULT BeginFrame(double) override { return S_OK; }
    HRESULT EndFrame() override { return S_OK; }

protected:
    CDSImageEffect() = default;
    /// Copies everything that the host has handed in; the host replaces it for each clone.
    CDSImageEffect(const CDSImageEffect&) = default;
    ~CDSImageEffect() override = default;

    /// Called at the start of Execute; a result other than 0 ends it. The base has nothing to
    /// prepare.
    virtual HRESULT PrepareData() { return S_OK; }

    ComPtr<IDSImage> input;
    ComPtr<IDSImage> input2;
    ComPtr<IDSImage> output;
    ComPtr<IDSImage> pixelMask;
    ComPtr<IDSImage> originalImage;
    ComPtr<IDSCoordMan> coordMan;
    ComPtr<IDSEffectHost> effectHost;
    ComPtr<IUnknown> executeContext;
    LONG maskOffsetX = 0;
    LONG maskOffsetY = 0;
    LONG input2OffsetX = 0;
    LONG input2OffsetY = 0;
    double sampleRate = 25.0;
    bool roiSet = false;
    DSRECT roi{};
    LONG fieldMode = 0;
    ULONG channelMask = 15;
    LONG quality = 0;
    double direction = 0.0;
    double pressure = 1.0;
    double transfo4[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
};
