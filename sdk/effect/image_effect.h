// The host's base class of image effects.

#pragma once

#include "sdk/com/com_ptr.h"
#include "sdk/effect/image_effect_interface.h"
#include "sdk/effect/plug_in.h"

/// Stores the images, regions and interfaces that the host sets, and implements the functions that
/// only need these. A concrete effect implements at least TestFormat, Execute and Clone. One that
/// overrides Verify calls it here first.
class DSSDK_API CDSImageEffect : public ComObjectWith<CDSPlugInEffect, IDSImageEffect> {
public:
    /// Does not change the record. E_POINTER for null.
    HRESULT GetImageEffectInfo(DSIMAGEEFFECTINFO* info) override;
    /// E_INVALIDARG unless the rate is finite and above 0.
    HRESULT SetSampleRate(double framesPerSecond) override;
    /// Returns TestFormat of the image's format.
    HRESULT IsFormatSupported(IDSImage* image) override;
    /// S_FALSE for every format.
    HRESULT TestFormat(const GUID& format) override;
    HRESULT Setup() override { return S_OK; }
    /// Releases all images and the host's interfaces.
    HRESULT Cleanup() override;
    /// Gives the region of interest or, without one, the whole input; empty without an input.
    HRESULT GetInputBbox(DSRECT* box) override;
    /// Both give 0 for every edge.
    HRESULT GetInputOverscan(DSOVERSCAN* overscan) override;
    HRESULT GetOutputOverscan(DSOVERSCAN* overscan) override;
    HRESULT SetInput(IDSImage* image) override;
    HRESULT SetOutput(IDSImage* image) override;
    HRESULT SetChannelMask(ULONG mask) override;
    HRESULT SetPixelMask(IDSImage* mask, LONG offsetX, LONG offsetY) override;
    /// E_INVALIDARG, and no change, for a region without pixels and for one that begins outside the
    /// output. It may end outside.
    HRESULT SetROI(const DSRECT* region) override;
    HRESULT SetQuality(LONG level) override;
    HRESULT SetInput2(IDSImage* image) override;
    HRESULT SetInput2Offset(LONG offsetX, LONG offsetY) override;
    /// E_INVALIDARG if the output's format is not supported, if an input has another format than
    /// the output, and for a region that begins outside the output. Which images are needed is the
    /// effect's to check; without an output nothing is checked here.
    HRESULT Verify() override;
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
    /// Copies the images and interfaces from the host; the host sets new ones for each clone.
    CDSImageEffect(const CDSImageEffect&) = default;
    ~CDSImageEffect() override = default;

    /// Called at the start of Execute, which returns any result other than 0. Does nothing here.
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
