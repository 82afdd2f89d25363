#include "runtime/lent_image.h"

#include "runtime/images.h"

namespace ruvex::runtime {

bool LentImage::isHeld() const {
    return isShared(image_.get());
}

ComPtr<IDSImage> LentImage::lend(const Project& project, int width, int height, const GUID& format,
                                 std::byte* pixels) {
    takeBack();
    // An image that somebody kept from an earlier render never shows the pixels of another one.
    if (!isOfForm(image_.get(), width, height, format) || isHeld()) {
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
