// Owners for the objects of the FFmpeg libraries, their fractions, and their error messages.

#pragma once

#include <memory>
#include <string>

#include "media/av_functions.h"
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

/// A new, empty object, never null; std::bad_alloc if there is no memory for it.
AvFrame newAvFrame();
AvPacket newAvPacket();
AvCodec newAvCodec(const AVCodec* codec);

/// A picture with a buffer of its own. Its rows are padded: the libraries' vector code writes past
/// the width. Throws std::bad_alloc.
AvFrame newPicture(int width, int height, AVPixelFormat format);

/// The unit of this project's times: seconds in a microsecond.
inline constexpr AVRational kMicroseconds = {1, AV_TIME_BASE};

/// The fraction in the libraries' type; both terms must fit 31 bits.
AVRational toAvRational(const Rational& value);

/// Keeps the libraries from printing to the terminal, for the rest of the process; their error
/// messages are kept for takeLibraryError instead. May be called again.
void quietLibraries();

/// The first error message, of any thread, since the last call, without its line end; empty if
/// there was none.
std::string takeLibraryError();

/// The version of the libraries that were found on this machine: "5.1.6-0+deb12u1".
std::string libraryVersion();

/// An error code of the libraries in words.
std::string libraryReason(int code);

/// avcodec_open2, whose code it returns. Throws std::bad_alloc or std::system_error where memory or
/// threads have run out, for which the file is not to blame.
int openCodec(AVCodecContext& context, const AVCodec& codec);

/// Why a call has failed: the message that takeLibraryError gives, or else the code in words.
std::string takeLibraryReason(int code);

}  // namespace ruvex::media
