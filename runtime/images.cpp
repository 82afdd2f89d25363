#include "runtime/images.h"

#include <cstring>
#include <string>

#include "runtime/error.h"

namespace ruvex::runtime {
namespace {

std::string cannotMake(int width, int height) {
    return "cannot make an image of " + std::to_string(width) + "x" + std::to_string(height) +
           " pixels";
}

}  // namespace

DSFloatPair worldSizeOf(const Project& project) {
    return {static_cast<float>(project.width),
            static_cast<float>(project.height / project.pixelAspect)};
}

void checkImage(int width, int height, const GUID& format) {
    if (width < 1 || height < 1 || DSBytesPerPixel(format) == 0) {
        throw Error(cannotMake(width, height));
    }
}

void checkMade(const IDSImage* image, int width, int height) {
    if (!image) throw OutOfMemory(cannotMake(width, height) + ": out of memory");
}

bool isOfForm(const CDSPixelImage* image, int width, int height, const GUID& format) {
    return image && image->width() == width && image->height() == height &&
           image->format() == format;
}

bool isShared(CDSPixelImage* image) {
    if (!image) return false;
    image->AddRef();
    return image->Release() > 1;
}

ComPtr<CDSMemoryImage> makeImage(int width, int height, const GUID& format) {
    checkImage(width, height, format);
    auto image = CDSMemoryImage::create(width, height, format);
    checkMade(image.get(), width, height);
    return image;
}

ComPtr<CDSMemoryImage> makeProjectImage(const Project& project, int width, int height,
                                        const GUID& format) {
    auto image = makeImage(width, height, format);
    image->setWorldSize(worldSizeOf(project));
    return image;
}

ComPtr<CDSMemoryImage> copyImage(IDSImage& image) {
    if (const HRESULT status = image.GetStatus(); status != S_OK) {
        throw StatusError("the image to copy is not ready", status);
    }
    LONG width = 0;
    LONG height = 0;
    GUID format{};
    DSFloatPair worldSize{};
    DSFloatPair worldOrigin{};
    require(image.GetSize(&width, &height), "the image to copy has no size");
    require(image.GetFormat(&format), "the image to copy has no format");
    require(image.GetWorldSize(&worldSize), "the image to copy has no world size");
    require(image.GetWorldOrigin(&worldOrigin), "the image to copy has no world origin");
    auto copy = makeImage(width, height, format);
    std::memcpy(copy->bytes(), image.GetPixels(), copy->byteCount());
    copy->setWorldSize(worldSize);
    copy->setWorldOrigin(worldOrigin);
    return copy;
}

}  // namespace ruvex::runtime
