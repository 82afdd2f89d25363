// A picture in memory that a plug-in reads or writes, between bytes that it must not touch.

#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "tests/openfx/host/property_set.h"
#include "tests/openfx/host/raster.h"

namespace ruvex::ofxhost {

/// How rows lie in memory.
struct ImageLayout {
    int padding = 0;       ///< Bytes after each row, a multiple of those of a sample.
    bool topDown = false;  ///< The top row comes first: row bytes are negative.
};

/// What a render asked for. Any thread.
struct RenderRecord {
    struct Fetch {
        std::string clip;
        double time;
    };
    std::mutex mutex{};
    std::vector<Fetch> fetches{};
    std::atomic<int> unreleased{0};
    std::atomic<int> abortQueries{0};
};

/// What an image says about itself.
struct ImageInfo {
    OfxRectI regionOfDefinition{};
    OfxPointD scale{1.0, 1.0};
    double pixelAspect = 1.0;
    std::string field = kOfxImageFieldNone;
    std::string identifier{};
};

class Image {
public:
    /// The raster's pixels are copied. `record` counts releases.
    Image(Host& host, const Raster& raster, const ImageLayout& layout, const ImageInfo& info,
          std::shared_ptr<RenderRecord> record);

    /// The pixels as they are now.
    Raster raster() const;
    /// Whether no byte outside the rows was written.
    bool guardsIntact() const;
    /// Whether the properties still say where the pixels are, as they did at first.
    bool describesItself() const;
    RenderRecord& record() const { return *record_; }

    PropertySet properties;

private:
    std::byte* firstByte(int y);
    const std::byte* firstByte(int y) const;

    PropertyValues placement() const;

    OfxRectI bounds_;
    PixelFormat format_;
    PropertyValues placement_;
    ImageLayout layout_;
    std::vector<std::byte> memory_;
    std::shared_ptr<RenderRecord> record_;
};

/// The images that plug-ins hold, by their handles. Any thread.
class ImageTable {
public:
    static ImageTable& instance();

    /// Counts as a fetch until the release.
    void add(const std::shared_ptr<Image>& image);
    /// Null for a handle that is not held.
    std::shared_ptr<Image> release(OfxPropertySetHandle handle);
    /// Forgets what was not released; for plug-ins that leave images behind.
    void forget(const RenderRecord& record);

private:
    std::mutex mutex_;
    std::vector<std::shared_ptr<Image>> held_;
};

}  // namespace ruvex::ofxhost
