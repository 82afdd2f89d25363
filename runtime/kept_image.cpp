#include "runtime/kept_image.h"

#include "runtime/images.h"

namespace ruvex::runtime {

const ComPtr<CDSMemoryImage>& KeptImage::take(const Project& project, int width, int height,
                                              const GUID& format) {
    if (!isOfForm(image_.get(), width, height, format) || isShared(image_.get())) {
        image_.reset();
        image_ = makeImage(width, height, format);
    }
    image_->setWorldSize(worldSizeOf(project));
    return image_;
}

}  // namespace ruvex::runtime
