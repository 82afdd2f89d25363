// The host's own memory as an image of the effect, for the time of a render.

#pragma once

#include <cstddef>

#include "runtime/project.h"
#include "sdk/com/com_ptr.h"
#include "sdk/images/borrowed_image.h"

namespace ruvex::runtime {

/// One image that is lent for render after render: nothing is copied, and after the first render
/// nothing is allocated. One thread at a time.
class LentImage {
public:
    LentImage() = default;
    ~LentImage() { takeBack(); }
    LentImage(LentImage&&) noexcept = default;
    LentImage& operator=(LentImage&&) = delete;

    /// The image over `pixels`, which fills the project's frame. The caller keeps the memory, and
    /// writes to it no more, until `takeBack`, the next call of this, or the destructor. Throws as
    /// makeImage does.
    ComPtr<IDSImage> lend(const Project& project, int width, int height, const GUID& format,
                          std::byte* pixels);

    /// Ends the use of the memory. Whoever still holds the image finds it without pixels.
    void takeBack();

    /// Whether somebody else holds the image.
    bool isHeld() const;

private:
    ComPtr<CDSBorrowedImage> image_;
};

/// An image that is lent as long as this lives.
class Loan {
public:
    Loan(LentImage& lent, const Project& project, int width, int height, const GUID& format,
         std::byte* pixels)
        : lent_(lent), image_(lent.lend(project, width, height, format, pixels)) {}
    ~Loan() {
        image_.reset();
        lent_.takeBack();
    }
    Loan(const Loan&) = delete;
    Loan& operator=(const Loan&) = delete;

    const ComPtr<IDSImage>& image() const { return image_; }

private:
    LentImage& lent_;
    ComPtr<IDSImage> image_;
};

}  // namespace ruvex::runtime
