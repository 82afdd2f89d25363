#include "media/video/chunk_reader.h"

#include <algorithm>
#include <utility>

#include "media/av_library.h"

namespace ruvex::media {
namespace {

constexpr const char* kOtherSettings =
    "was coded with other settings, or by another version of the program";

std::span<const std::uint8_t> headersOf(const std::uint8_t* bytes, int size) {
    return {bytes, static_cast<std::size_t>(std::max(size, 0))};
}

}  // namespace

template <class Read>
auto ChunkReader::reading(const Read& read) const {
    try {
        return read();
    } catch (const MediaError& error) {
        throw ChunkError(chunk_, "Chunk " + chunk_.frames +
                                     " has to be rendered again: " + std::string(error.what()));
    }
}

ChunkReader::ChunkReader(ChunkFile chunk, bool decodes) : chunk_(std::move(chunk)) {
    digest_.add(chunk_.frames);
    std::error_code ignored;
    if (!std::filesystem::exists(chunk_.file, ignored)) refuse("is missing");
    reading([&] { open(decodes); });
}

void ChunkReader::open(bool decodes) {
    if (decodes) {
        decoder_.emplace(chunk_.file, FileLook::Header,
                         [this](const AVPacket& packet) { take(packet); });
    } else {
        file_.emplace(chunk_.file, FileLook::Header);
    }
}

void ChunkReader::refuse(const std::string& what) const {
    throw ChunkError(chunk_, "Chunk " + chunk_.frames + ", " + chunk_.file.string() + ", " + what +
                                 ". Render it again.");
}

void ChunkReader::checkCoding(const AVCodecContext& coder) const {
    const AVCodecParameters& found = *file_->stream().codecpar;
    const auto wanted = headersOf(coder.extradata, coder.extradata_size);
    const auto headers = headersOf(found.extradata, found.extradata_size);
    // A container may add to them: Matroska makes their length even.
    const bool same =
        wanted.size() <= headers.size() && std::ranges::equal(wanted, headers.first(wanted.size()));
    if (found.codec_id != coder.codec_id || found.width != coder.width ||
        found.height != coder.height || !same) {
        refuse(kOtherSettings);
    }
}

bool ChunkReader::next(AVPacket& packet) {
    if (!reading([&] { return file_->next(packet); })) return false;
    take(packet);
    return true;
}

bool ChunkReader::next(AVFrame& picture, const AVCodecContext& coder) {
    if (!reading([&] { return decoder_->next(picture); })) return false;
    if (picture.width != coder.width || picture.height != coder.height ||
        picture.format != coder.pix_fmt) {
        refuse(kOtherSettings);
    }
    ++pictures_;
    return true;
}

void ChunkReader::take(const AVPacket& packet) {
    digest_.add(std::as_bytes(std::span(packet.data, static_cast<std::size_t>(packet.size))));
    ++packets_;
}

void ChunkReader::checkCount(std::int64_t frames) const {
    if (frames == chunk_.count) return;
    refuse("holds " + std::to_string(frames) + " frames instead of " +
           std::to_string(chunk_.count));
}

std::string ChunkReader::finish() {
    checkCount(packets_);
    if (decoder_) checkCount(pictures_);
    return digest_.finish();
}

std::string digestOfChunk(const ChunkFile& chunk) {
    ChunkReader reader(chunk, false);
    const AvPacket packet = newAvPacket();
    while (reader.next(*packet)) {
    }
    return reader.finish();
}

}  // namespace ruvex::media
