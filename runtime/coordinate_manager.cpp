#include "runtime/coordinate_manager.h"

#include <cmath>

#include "sdk/com/com_object.h"

namespace ruvex::runtime {

namespace {

/// The nearest whole number; what a LONG does not hold goes to its nearer end.
LONG toPixels(double value) {
    if (!(value > -2147483648.0)) return INT32_MIN;
    return value < 2147483647.0 ? static_cast<LONG>(std::floor(value + 0.5)) : INT32_MAX;
}

class CoordinateManager final : public ComObject<IDSCoordMan> {
public:
    CoordinateManager(const Project& project, int width, int height)
        : ratioX_(static_cast<double>(width) / project.width),
          ratioY_(static_cast<double>(height) / project.height),
          pixelAspect_(project.pixelAspect) {}

    HRESULT WorldToImage(double worldX, double worldY, double* x, double* y) override {
        const HRESULT status = WorldToProject(worldX, worldY, x, y);
        if (FAILED(status)) return status;
        *x *= ratioX_;
        *y *= ratioY_;
        return S_OK;
    }

    HRESULT WorldToProject(double worldX, double worldY, double* x, double* y) override {
        if (!x || !y) return E_POINTER;
        *x = worldX;
        *y = worldY * pixelAspect_;
        return S_OK;
    }

    HRESULT ImageToPixels(DSFloatPair origin, DSFloatPair, LONG* offsetX, LONG* offsetY) override {
        if (!offsetX || !offsetY) return E_POINTER;
        // The caller's factor is the pixel aspect: it turns world Y into project pixels, and has to
        // be taken out of X again.
        *offsetX = toPixels(origin.x / pixelAspect_ * ratioX_);
        *offsetY = toPixels(origin.y * ratioY_);
        return S_OK;
    }

private:
    double ratioX_;
    double ratioY_;
    double pixelAspect_;
};

}  // namespace

ComPtr<IDSCoordMan> makeCoordinateManager(const Project& project, int width, int height) {
    return ComPtr<IDSCoordMan>::attach(new CoordinateManager(project, width, height));
}

}  // namespace ruvex::runtime
