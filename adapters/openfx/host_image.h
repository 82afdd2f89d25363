// An image of a clip, from fetching to releasing it.

#pragma once

#include "adapters/common/host_picture.h"
#include "adapters/openfx/host_clip.h"

namespace ruvex::openfx {

/// May hold no image: the host has none at that time.
class HostImage {
public:
    /// Fetches the whole image of a clip at a time.
    HostImage(const Host& host, const HostClip& clip, double time);
    ~HostImage();
    HostImage(const HostImage&) = delete;
    HostImage& operator=(const HostImage&) = delete;

    bool exists() const { return properties_.handle() != nullptr; }
    const Properties& properties() const { return properties_; }

    // The pixels, valid as long as this object; the image has to exist. `alpha` is the form of its
    // alpha where the host does not say. Throws Failure with kOfxStatErrImageFormat for an image
    // that cannot be read: without data, with bounds that no picture has, with rows that overlap,
    // or with depths or components that the plug-in did not offer.

    /// Throws Failure with kOfxStatFailed, too, for an image at another scale than `renderScale`.
    adapters::SourcePicture source(adapters::HostAlpha alpha, OfxPointD renderScale) const;
    adapters::TargetPicture target(adapters::HostAlpha alpha) const;

private:
    Host host_;
    Properties properties_;
};

}  // namespace ruvex::openfx
