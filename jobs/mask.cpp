#include "jobs/mask.h"

#include "files/numbered_path.h"
#include "jobs/job_error.h"
#include "media/file_kind.h"
#include "media/frame_reader.h"
#include "media/media_error.h"

namespace ruvex::jobs {
namespace {

constexpr int kWhite = 255;

}  // namespace

void checkMaskName(const std::filesystem::path& file) {
    if (!media::isStill(media::fileKind(file)) || files::NumberedPath(file).isPattern()) {
        throw JobError(
            JobField::Mask,
            file.string() + " is not the name of one still picture. Use a PNG, as in mask.png.");
    }
}

int maskValue(const std::uint8_t* pixel) {
    // The weights of Rec. 601 in thousandths.
    const int luma = (299 * pixel[0] + 587 * pixel[1] + 114 * pixel[2] + 500) / 1000;
    return (luma * pixel[3] + kWhite / 2) / kWhite;
}

media::Frame readMask(const std::filesystem::path& file, media::FrameSize size) {
    media::ReadOptions options{.depth = media::Depth::Bits8};
    if (media::rawDepth(media::fileKind(file))) {
        options.size = size;
    }
    const auto reader = media::openReader(file, options);
    media::Frame picture;
    if (!reader->read(reader->info().first, picture)) {
        throw media::MediaError(file.string() + " holds no picture.");
    }
    if (picture.size() != size) {
        throw JobError(JobField::Mask, file.string() + " is " + toText(picture.size()) +
                                           ", but the input is " + toText(size) +
                                           ". The mask needs the size of the input.");
    }
    return picture;
}

ComPtr<IDSImage> toMask(const media::Frame& picture, const runtime::Project& project) {
    auto mask = runtime::makeProjectImage(project, picture.width(), picture.height(), MFIF_A_RAW_8);
    std::byte* to = mask->bytes();
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            *to++ = static_cast<std::byte>(maskValue(picture.row8(y) + x * media::kChannels));
        }
    }
    return mask;
}

}  // namespace ruvex::jobs
