#include "media/hdr_metadata.h"

extern "C" {
#include <libavutil/mastering_display_metadata.h>
}

#include <cstring>
#include <new>

#include "media/av_library.h"

namespace ruvex::media {
namespace {

/// A record of the libraries, from the picture or else from the stream; null if there is none.
template <class Record>
const Record* findRecord(const AVFrame& picture, AVFrameSideDataType inPicture,
                         const AVStream& stream, AVPacketSideDataType inStream) {
    if (const AVFrameSideData* data = av_frame_get_side_data(&picture, inPicture)) {
        return reinterpret_cast<const Record*>(data->data);
    }
    std::size_t size = 0;
    const std::uint8_t* data = av_stream_get_side_data(&stream, inStream, &size);
    return size >= sizeof(Record) ? reinterpret_cast<const Record*>(data) : nullptr;
}

void addRecord(AVStream& stream, AVPacketSideDataType type, const void* record, std::size_t size) {
    std::uint8_t* data = av_stream_new_side_data(&stream, type, size);
    if (data == nullptr) {
        throw std::bad_alloc();
    }
    std::memcpy(data, record, size);
}

Rational fromAv(const AVRational& value) {
    return value.den == 0 ? Rational{} : makeRational(value.num, value.den);
}

MasteringDisplay fromRecord(const AVMasteringDisplayMetadata& record) {
    MasteringDisplay display;
    if (record.has_primaries != 0) {
        DisplayColours& colours = display.colours.emplace();
        for (std::size_t axis = 0; axis < 2; ++axis) {
            for (std::size_t i = 0; i < 3; ++i) {
                colours.primaries[i][axis] = fromAv(record.display_primaries[i][axis]);
            }
            colours.white[axis] = fromAv(record.white_point[axis]);
        }
    }
    if (record.has_luminance != 0) {
        display.luminance = {fromAv(record.min_luminance), fromAv(record.max_luminance)};
    }
    return display;
}

AVMasteringDisplayMetadata toRecord(const MasteringDisplay& display) {
    AVMasteringDisplayMetadata record{};
    if (display.colours) {
        record.has_primaries = 1;
        for (std::size_t axis = 0; axis < 2; ++axis) {
            for (std::size_t i = 0; i < 3; ++i) {
                record.display_primaries[i][axis] =
                    toAvRational(display.colours->primaries[i][axis]);
            }
            record.white_point[axis] = toAvRational(display.colours->white[axis]);
        }
    }
    if (display.luminance) {
        record.has_luminance = 1;
        record.min_luminance = toAvRational(display.luminance->least);
        record.max_luminance = toAvRational(display.luminance->most);
    }
    return record;
}

}  // namespace

HdrMetadata readHdr(const AVFrame& picture, const AVStream& stream) {
    HdrMetadata hdr;
    if (const auto* record = findRecord<AVMasteringDisplayMetadata>(
            picture, AV_FRAME_DATA_MASTERING_DISPLAY_METADATA, stream,
            AV_PKT_DATA_MASTERING_DISPLAY_METADATA)) {
        hdr.display = fromRecord(*record);
    }
    if (const auto* record = findRecord<AVContentLightMetadata>(
            picture, AV_FRAME_DATA_CONTENT_LIGHT_LEVEL, stream, AV_PKT_DATA_CONTENT_LIGHT_LEVEL)) {
        hdr.light = {record->MaxCLL, record->MaxFALL};
    }
    return hdr;
}

void writeHdr(const HdrMetadata& hdr, AVStream& stream) {
    if (hdr.display) {
        const AVMasteringDisplayMetadata record = toRecord(*hdr.display);
        addRecord(stream, AV_PKT_DATA_MASTERING_DISPLAY_METADATA, &record, sizeof(record));
    }
    if (hdr.light) {
        AVContentLightMetadata record{};
        record.MaxCLL = hdr.light->brightestPixel;
        record.MaxFALL = hdr.light->brightestAverage;
        addRecord(stream, AV_PKT_DATA_CONTENT_LIGHT_LEVEL, &record, sizeof(record));
    }
}

}  // namespace ruvex::media
