// Owners for the objects of the FFmpeg libraries, and their fractions.

#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/frame.h>
#include <libswscale/swscale.h>
}

#include <memory>

#include "media/rational.h"

namespace ruvex::media {

struct AvDelete {
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
    void operator()(AVCodecContext* codec) const { avcodec_free_context(&codec); }
    void operator()(SwsContext* scaler) const { sws_freeContext(scaler); }
};

using AvFrame = std::unique_ptr<AVFrame, AvDelete>;
using AvPacket = std::unique_ptr<AVPacket, AvDelete>;
using AvCodec = std::unique_ptr<AVCodecContext, AvDelete>;
using Scaler = std::unique_ptr<SwsContext, AvDelete>;

/// The object itself; std::bad_alloc if the library had no memory for it.
AvFrame newAvFrame();
AvPacket newAvPacket();
AvCodec newAvCodec(const AVCodec* codec);

/// A fraction of no more than 31 bits, as the libraries take it.
AVRational toAvRational(const Rational& value);

/// A picture buffer with padded rows: the library's fast paths write past the width.
AvFrame newPicture(int width, int height, AVPixelFormat format);

}  // namespace ruvex::media
