// Every function of the FFmpeg libraries that this folder calls. Within the namespace, their names
// stand for these objects: each loads its library at the first call, so that a command that reads
// and writes no pictures does not wait for the libraries and the hundred others that they need.

#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavfilter/avfilter.h>
#include <libavfilter/buffersink.h>
#include <libavformat/avformat.h>
#include <libavutil/frame.h>
#include <libavutil/imgutils.h>
#include <libavutil/murmur3.h>
#include <libavutil/opt.h>
#include <libavutil/pixdesc.h>
#include <libavutil/timecode.h>
#include <libswresample/swresample.h>
#include <libswscale/swscale.h>
}

#include "media/av_loading.h"

namespace ruvex::media {

// Attributes of the declarations, such as that a result must be used, are not part of their types.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wignored-attributes"
#define RUVEX_FUNCTION(name) \
    inline constinit LoadedFunction<decltype(::name)> name(RUVEX_LIBRARY, #name)

#define RUVEX_LIBRARY "libavutil.so." AV_STRINGIFY(LIBAVUTIL_VERSION_MAJOR)
RUVEX_FUNCTION(av_channel_layout_copy);
RUVEX_FUNCTION(av_channel_layout_default);
RUVEX_FUNCTION(av_color_space_name);
RUVEX_FUNCTION(av_dict_copy);
RUVEX_FUNCTION(av_dict_get);
RUVEX_FUNCTION(av_dict_set);
RUVEX_FUNCTION(av_fourcc_make_string);
RUVEX_FUNCTION(av_frame_alloc);
RUVEX_FUNCTION(av_frame_free);
RUVEX_FUNCTION(av_frame_get_buffer);
RUVEX_FUNCTION(av_frame_get_side_data);
RUVEX_FUNCTION(av_frame_is_writable);
RUVEX_FUNCTION(av_free);
RUVEX_FUNCTION(av_freep);
RUVEX_FUNCTION(av_get_packed_sample_fmt);
RUVEX_FUNCTION(av_get_pix_fmt_name);
RUVEX_FUNCTION(av_image_fill_arrays);
RUVEX_FUNCTION(av_image_get_buffer_size);
RUVEX_FUNCTION(av_log_set_callback);
RUVEX_FUNCTION(av_mallocz);
RUVEX_FUNCTION(av_murmur3_alloc);
RUVEX_FUNCTION(av_murmur3_final);
RUVEX_FUNCTION(av_murmur3_init);
RUVEX_FUNCTION(av_murmur3_update);
RUVEX_FUNCTION(av_opt_set);
RUVEX_FUNCTION(av_opt_set_int);
RUVEX_FUNCTION(av_pix_fmt_desc_get);
RUVEX_FUNCTION(av_read_image_line2);
RUVEX_FUNCTION(av_realloc_array);
RUVEX_FUNCTION(av_reduce);
RUVEX_FUNCTION(av_rescale);
RUVEX_FUNCTION(av_rescale_q);
RUVEX_FUNCTION(av_rescale_q_rnd);
RUVEX_FUNCTION(av_strerror);
RUVEX_FUNCTION(av_timecode_init_from_string);
RUVEX_FUNCTION(av_timecode_make_string);
RUVEX_FUNCTION(av_version_info);
#undef RUVEX_LIBRARY

#define RUVEX_LIBRARY "libavcodec.so." AV_STRINGIFY(LIBAVCODEC_VERSION_MAJOR)
RUVEX_FUNCTION(av_new_packet);
RUVEX_FUNCTION(av_packet_alloc);
RUVEX_FUNCTION(av_packet_free);
RUVEX_FUNCTION(av_packet_ref);
RUVEX_FUNCTION(av_packet_rescale_ts);
RUVEX_FUNCTION(av_packet_unref);
RUVEX_FUNCTION(avcodec_alloc_context3);
RUVEX_FUNCTION(avcodec_find_decoder);
RUVEX_FUNCTION(avcodec_find_encoder);
RUVEX_FUNCTION(avcodec_find_encoder_by_name);
RUVEX_FUNCTION(avcodec_flush_buffers);
RUVEX_FUNCTION(avcodec_free_context);
RUVEX_FUNCTION(avcodec_get_name);
RUVEX_FUNCTION(avcodec_open2);
RUVEX_FUNCTION(avcodec_parameters_copy);
RUVEX_FUNCTION(avcodec_parameters_from_context);
RUVEX_FUNCTION(avcodec_parameters_to_context);
RUVEX_FUNCTION(avcodec_receive_frame);
RUVEX_FUNCTION(avcodec_receive_packet);
RUVEX_FUNCTION(avcodec_send_frame);
RUVEX_FUNCTION(avcodec_send_packet);
#undef RUVEX_LIBRARY

#define RUVEX_LIBRARY "libavformat.so." AV_STRINGIFY(LIBAVFORMAT_VERSION_MAJOR)
RUVEX_FUNCTION(av_find_best_stream);
RUVEX_FUNCTION(av_guess_format);
RUVEX_FUNCTION(av_interleaved_write_frame);
RUVEX_FUNCTION(av_read_frame);
RUVEX_FUNCTION(av_seek_frame);
RUVEX_FUNCTION(av_stream_get_side_data);
RUVEX_FUNCTION(av_stream_new_side_data);
RUVEX_FUNCTION(av_write_frame);
RUVEX_FUNCTION(av_write_trailer);
RUVEX_FUNCTION(avformat_alloc_output_context2);
RUVEX_FUNCTION(avformat_close_input);
RUVEX_FUNCTION(avformat_find_stream_info);
RUVEX_FUNCTION(avformat_free_context);
RUVEX_FUNCTION(avformat_index_get_entries_count);
RUVEX_FUNCTION(avformat_new_stream);
RUVEX_FUNCTION(avformat_open_input);
RUVEX_FUNCTION(avformat_query_codec);
RUVEX_FUNCTION(avformat_write_header);
RUVEX_FUNCTION(avio_close_dyn_buf);
RUVEX_FUNCTION(avio_closep);
RUVEX_FUNCTION(avio_flush);
RUVEX_FUNCTION(avio_open);
RUVEX_FUNCTION(avio_open_dyn_buf);
#undef RUVEX_LIBRARY

#define RUVEX_LIBRARY "libavfilter.so." AV_STRINGIFY(LIBAVFILTER_VERSION_MAJOR)
RUVEX_FUNCTION(av_buffersink_get_frame);
RUVEX_FUNCTION(avfilter_get_by_name);
RUVEX_FUNCTION(avfilter_graph_alloc);
RUVEX_FUNCTION(avfilter_graph_alloc_filter);
RUVEX_FUNCTION(avfilter_graph_config);
RUVEX_FUNCTION(avfilter_graph_free);
RUVEX_FUNCTION(avfilter_init_str);
RUVEX_FUNCTION(avfilter_link);
#undef RUVEX_LIBRARY

#define RUVEX_LIBRARY "libswscale.so." AV_STRINGIFY(LIBSWSCALE_VERSION_MAJOR)
RUVEX_FUNCTION(sws_freeContext);
RUVEX_FUNCTION(sws_getCoefficients);
RUVEX_FUNCTION(sws_getContext);
RUVEX_FUNCTION(sws_scale);
RUVEX_FUNCTION(sws_setColorspaceDetails);
#undef RUVEX_LIBRARY

#define RUVEX_LIBRARY "libswresample.so." AV_STRINGIFY(LIBSWRESAMPLE_VERSION_MAJOR)
RUVEX_FUNCTION(swr_alloc_set_opts2);
RUVEX_FUNCTION(swr_convert);
RUVEX_FUNCTION(swr_free);
RUVEX_FUNCTION(swr_get_out_samples);
RUVEX_FUNCTION(swr_init);
#undef RUVEX_LIBRARY

#undef RUVEX_FUNCTION
#pragma GCC diagnostic pop

}  // namespace ruvex::media
