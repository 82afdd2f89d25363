#include "media/frame_reader.h"

#include <unistd.h>
#include <utility>

#include "files/numbered_path.h"
#include "media/file_kind.h"
#include "media/media_error.h"
#include "media/pixels/frame_convert.h"
#include "media/stills/still_reader.h"
#include "media/streams/stream_reader.h"
#include "media/video/video_reader.h"

namespace ruvex::media {

bool FrameReader::read(std::int64_t number, Frame& frame, Use use) {
    if (number < info().first || number > info().last) return false;
    if (depthOfFrames() == info().depth) return readOwn(number, frame, use);
    if (!readOwn(number, own_, use)) return false;
    if (own_.depth() == depthOfFrames()) {
        std::swap(own_, frame);
    } else {
        convertDepth(own_, depthOfFrames(), frame);
    }
    return true;
}

HeldMemory FrameReader::held() const {
    HeldMemory held;
    held.add(own_);
    addHeld(held);
    return held;
}

std::unique_ptr<FrameReader> openReader(const std::filesystem::path& path,
                                        const ReadOptions& options) {
    const FileKind kind = fileKind(path);
    if (kind == FileKind::Stream) {
        return std::make_unique<StreamReader>(STDIN_FILENO, "standard input", options);
    }
    if (!rawDepth(kind) && options.size) {
        throw MediaError(path.string() +
                         " stores its own size. A size can be given for raw frames only.");
    }
    if (!isStill(kind)) {
        return std::make_unique<VideoReader>(files::NumberedPath(path).plain(), options);
    }
    return std::make_unique<StillReader>(path, options);
}

}  // namespace ruvex::media
