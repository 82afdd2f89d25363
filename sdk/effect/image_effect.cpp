#include "sdk/effect/image_effect.h"

#include <algorithm>
#include <cmath>

namespace {

/// Replaces the animation of a property by its value at `seconds`.
HRESULT freeze(IDSProperties& properties, const GUID& id, double seconds) {
    ULONG keyCount = 0;
    HRESULT status = properties.GetKeys(id, nullptr, 0, &keyCount);
    if (FAILED(status) || keyCount == 0) return status;
    VARIANT value{};
    status = properties.GetValue(id, seconds, &value);
    if (SUCCEEDED(status)) status = properties.ClearKeys(id);
    return FAILED(status) ? status : properties.SetValue(id, seconds, &value);
}

HRESULT freezeAll(IDSProperties& properties, double seconds) {
    ULONG count = 0;
    HRESULT status = properties.GetPropertyCount(&count);
    for (ULONG i = 0; i < count && SUCCEEDED(status); ++i) {
        const CDSParamDef* definition = nullptr;
        status = properties.GetPropertyDef(i, &definition);
        if (SUCCEEDED(status)) status = freeze(properties, definition->id, seconds);
    }
    return status;
}

HRESULT noOverscan(DSOVERSCAN* overscan) {
    if (!overscan) return E_POINTER;
    *overscan = {};
    return S_OK;
}

/// S_OK if the region has pixels and begins in the picture, otherwise E_INVALIDARG. A null picture
/// is not known yet: its size is not checked.
HRESULT checkRegion(const DSRECT& region, IDSImage* picture) {
    if (region.width < 1 || region.height < 1 || region.x < 0 || region.y < 0) return E_INVALIDARG;
    if (!picture) return S_OK;
    LONG width = 0;
    LONG height = 0;
    if (const HRESULT status = picture->GetSize(&width, &height); FAILED(status)) return status;
    return region.x < width && region.y < height ? S_OK : E_INVALIDARG;
}

/// S_OK if two images have one format, otherwise E_INVALIDARG.
HRESULT checkSameFormat(IDSImage& one, IDSImage& other) {
    GUID format{};
    GUID otherFormat{};
    if (const HRESULT status = one.GetFormat(&format); FAILED(status)) return status;
    if (const HRESULT status = other.GetFormat(&otherFormat); FAILED(status)) return status;
    return format == otherFormat ? S_OK : E_INVALIDARG;
}

}  // namespace

HRESULT CDSImageEffect::GetImageEffectInfo(DSIMAGEEFFECTINFO* info) {
    return info ? S_OK : E_POINTER;
}

HRESULT CDSImageEffect::SetSampleRate(double framesPerSecond) {
    if (!std::isfinite(framesPerSecond) || framesPerSecond <= 0.0) return E_INVALIDARG;
    sampleRate = framesPerSecond;
    return S_OK;
}

HRESULT CDSImageEffect::IsFormatSupported(IDSImage* image) {
    if (!image) return E_POINTER;
    GUID format{};
    const HRESULT status = image->GetFormat(&format);
    if (FAILED(status)) return status;
    return TestFormat(format) == S_OK ? S_OK : S_FALSE;
}

HRESULT CDSImageEffect::TestFormat(const GUID&) {
    return S_FALSE;
}

HRESULT CDSImageEffect::Cleanup() {
    for (auto* image : {&input, &input2, &output, &pixelMask, &originalImage}) image->reset();
    coordMan.reset();
    effectHost.reset();
    executeContext.reset();
    return S_OK;
}

HRESULT CDSImageEffect::GetInputBbox(DSRECT* box) {
    if (!box) return E_POINTER;
    *box = roiSet ? roi : DSRECT{};
    if (roiSet || !input) return S_OK;
    return input->GetSize(&box->width, &box->height);
}

HRESULT CDSImageEffect::GetInputOverscan(DSOVERSCAN* overscan) {
    return noOverscan(overscan);
}

HRESULT CDSImageEffect::GetOutputOverscan(DSOVERSCAN* overscan) {
    return noOverscan(overscan);
}

HRESULT CDSImageEffect::SetInput(IDSImage* image) {
    input = image;
    return S_OK;
}

HRESULT CDSImageEffect::SetOutput(IDSImage* image) {
    output = image;
    return S_OK;
}

HRESULT CDSImageEffect::SetChannelMask(ULONG mask) {
    channelMask = mask;
    return S_OK;
}

HRESULT CDSImageEffect::SetPixelMask(IDSImage* mask, LONG offsetX, LONG offsetY) {
    pixelMask = mask;
    maskOffsetX = offsetX;
    maskOffsetY = offsetY;
    return S_OK;
}

HRESULT CDSImageEffect::SetROI(const DSRECT* region) {
    if (region) {
        if (const HRESULT status = checkRegion(*region, output.get()); FAILED(status))
            return status;
    }
    roiSet = region != nullptr;
    roi = region ? *region : DSRECT{};
    return S_OK;
}

HRESULT CDSImageEffect::SetQuality(LONG level) {
    quality = level;
    return S_OK;
}

HRESULT CDSImageEffect::SetInput2(IDSImage* image) {
    input2 = image;
    return S_OK;
}

HRESULT CDSImageEffect::SetInput2Offset(LONG offsetX, LONG offsetY) {
    input2OffsetX = offsetX;
    input2OffsetY = offsetY;
    return S_OK;
}

HRESULT CDSImageEffect::Verify() {
    if (!output) return S_OK;
    const HRESULT supported = IsFormatSupported(output.get());
    if (supported != S_OK) return FAILED(supported) ? supported : E_INVALIDARG;
    for (const auto* image : {&input, &input2}) {
        if (!*image) continue;
        if (const HRESULT status = checkSameFormat(**image, *output); FAILED(status)) return status;
    }
    // The region may have been set before the output.
    return roiSet ? checkRegion(roi, output.get()) : S_OK;
}

HRESULT CDSImageEffect::CloneAtTime(double seconds, const GUID& id, void** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    ComPtr<IDSProperties> clone;
    HRESULT status = Clone(IID_IDSProperties, clone.putVoid());
    if (SUCCEEDED(status)) status = freezeAll(*clone, seconds);
    return FAILED(status) ? status : clone->QueryInterface(id, out);
}

HRESULT CDSImageEffect::SetDirection(double value) {
    direction = value;
    return S_OK;
}

HRESULT CDSImageEffect::SetPressure(double value) {
    pressure = value;
    return S_OK;
}

HRESULT CDSImageEffect::SetOriginalImage(IDSImage* image) {
    originalImage = image;
    return S_OK;
}

HRESULT CDSImageEffect::SetTransfo4(const double* matrix) {
    if (!matrix) return E_POINTER;
    std::copy_n(matrix, std::size(transfo4), transfo4);
    return S_OK;
}

HRESULT CDSImageEffect::SetProcessingMode(LONG mode) {
    fieldMode = mode;
    return S_OK;
}

HRESULT CDSImageEffect::GetProcessingMode(LONG* mode) {
    if (!mode) return E_POINTER;
    *mode = fieldMode;
    return S_OK;
}

HRESULT CDSImageEffect::SetExecuteContext(IUnknown* context) {
    executeContext = context;
    return S_OK;
}

HRESULT CDSImageEffect::SetEffectHost(IDSEffectHost* host) {
    effectHost = host;
    return S_OK;
}

HRESULT CDSImageEffect::SetCoordMan(IDSCoordMan* manager) {
    coordMan = manager;
    return S_OK;
}

HRESULT CDSImageEffect::GetCoordMan(IDSCoordMan** manager) {
    return copyReference(coordMan, manager);
}
