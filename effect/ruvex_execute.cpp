// The host's request for one frame.

#include <algorithm>
#include <new>

#include "effect/frame_driver.h"
#include "effect/ruvex.h"
#include "imaging/maths/wrap.h"
#include "imaging/threads.h"
#include "sdk/com/guarded.h"

namespace ruvex {
namespace {

// Asks the host whether to stop the render. `context` is the effect host.
std::uint32_t hostTest(void* context, std::atomic<std::uint32_t>* progress) {
    auto* host = static_cast<IDSEffectHost*>(context);
    if (!host || host->QueryInterruption() == S_OK) return 0;
    progress->store(kHostStopCode, std::memory_order_relaxed);
    return 1;
}

void shift(PixelRegion& region, const PictureGeometry& by) {
    region.x0 = wrapAdd(region.x0, by.offsetX);
    region.x1 = wrapAdd(region.x1, by.offsetX);
    region.y0 = wrapAdd(region.y0, by.offsetY);
    region.y1 = wrapAdd(region.y1, by.offsetY);
}

}  // namespace

HRESULT Ruvex::Execute(double seconds) {
    const WorkerCountScope workers(workers_);
    if (const HRESULT status = PrepareData(); status != S_OK) return status;
    startFrame();
    if (!output) return E_POINTER;
    if (const HRESULT status = output->GetStatus(); status != S_OK) return status;
    placePictures();
    frameOffsetValue = frameOffset(seconds);
    readCrop(seconds);
    geometry.input2 = pictureGeometry(input2.get(), coordMan.get());
    reportToSource();

    return guarded([&] {
        try {
            return renderByFormat(seconds);
        } catch (const std::bad_alloc&) {
            // Running out of memory during a frame is no error status: the frame stays incomplete.
            raiseOutOfMemory(&interruption);
            return S_OK;
        }
    });
}

HRESULT Ruvex::renderByFormat(double seconds) {
    GUID format{};
    output->GetFormat(&format);
    const FrameHost host = frameHost();
    const ParameterReader parametersOfFrame(*this, parameters, &interruption);
    const FrameTime time(seconds, host.sampleRate);
    if (format == MFIF_RGBA_RAW_32) {
        return FrameDriver<Rgba8>(*this, host, parametersOfFrame, time, memory8_).renderFrame();
    }
    if (format == MFIF_RGBA_S2_14) {
        return FrameDriver<RgbaS214>(*this, host, parametersOfFrame, time, memory16_).renderFrame();
    }
    return S_OK;
}

FrameHost Ruvex::frameHost() const {
    return {.input = input.get(),
            .output = output.get(),
            .pixelMask = pixelMask.get(),
            .maskOffsetX = maskOffsetX,
            .maskOffsetY = maskOffsetY,
            .coordMan = coordMan.get(),
            .effectHost = effectHost.get(),
            .executeContext = executeContext.get(),
            .sampleRate = sampleRate,
            .roiSet = roiSet};
}

void Ruvex::startFrame() {
    interruption.reset(effectHost.get(), hostTest);
    fieldSelector = fieldMode == 1 || fieldMode == 2 ? fieldMode : 0;
    fieldScaleY = rendersHalfHeight() ? 0.5f : 1.0f;
}

void Ruvex::placePictures() {
    LONG width = 0;
    LONG height = 0;
    output->GetSize(&width, &height);
    const DSRECT wanted = roiSet ? roi : DSRECT{0, 0, width, height};
    region = {.x0 = wanted.x,
              .x1 = wrapSubtract(wrapAdd(wanted.x, wanted.width), 1),
              .y0 = wanted.y,
              .y1 = wrapSubtract(wrapAdd(wanted.y, wanted.height), 1)};
    geometry.input = pictureGeometry(input.get(), coordMan.get());
    geometry.output = pictureGeometry(output.get(), coordMan.get());
    shift(region, input ? geometry.input : geometry.output);
}

void Ruvex::readCrop(double seconds) {
    if (cropMode == CropMode::None) return;
    const ParameterReader read = reader();
    const auto fraction = [&](ParameterId id) {
        return static_cast<float>(read.rawReal(id, seconds) / 100.0);
    };
    crop.left = fraction(ParameterId::CropLeft);
    crop.right = fraction(ParameterId::CropRight);
    crop.bottom = fraction(ParameterId::CropBottom);
    crop.top = fraction(ParameterId::CropTop);
    if (cropMode == CropMode::Window) return;
    const auto colour = [&](ParameterId id) { return std::clamp(fraction(id), 0.0f, 1.0f); };
    crop.edgeColour[0] = colour(ParameterId::CropColourR);
    crop.edgeColour[1] = colour(ParameterId::CropColourG);
    crop.edgeColour[2] = colour(ParameterId::CropColourB);
    // The alpha of the edge colour is always 0, whatever Crop Colour A says.
    crop.edgeColour[3] = 0.0f;
}

void Ruvex::reportToSource() {
    link->setGeometry(geometry);
    if (!sourceEffect) return;
    // The source effect's on-screen controls use the geometry; they ignore the second input's.
    reportGeometry(sourceEffect,
                   {.output = geometry.output, .input = geometry.input, .input2 = geometry.input});
}

}  // namespace ruvex
