#include "runtime/lent_image.h"

#include "runtime/images.h"

namespace ruvex::runtime {

bool LentImage::isHeld() const {
    if (!image_) return false;
    image_->AddRef();
    return image_->Release() > 1;
}

bool LentImage::fits(int width, int height, const GUID& format) const {
    return image_ && image_->width() == width && image_->height() == height &&
           image_->format() == format;
}

ComPtr<IDSImage> LentImage::lend(const Project& project, int width, int height, const GUID& format,
                                 std::byte* pixels) {
    takeBack();
    // An image that somebody kept from an earlier render never shows the pixels of another one.
    if (!fits(width, height, format) || isHeld()) {
        checkImage(width, height, format);
        image_ = CDSBorrowedImage::create(width, height, format);
        checkMade(image_.get(), width, height);
    }
    image_->setWorldSize(worldSizeOf(project));
    image_->attach(pixels);
    return image_;
}

void LentImage::takeBack() {
    if (image_) image_->detach();
}

}  // namespace ruvex::runtime
