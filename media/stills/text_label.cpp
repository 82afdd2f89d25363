#include "media/stills/text_label.h"

extern "C" {
#include <libavfilter/avfilter.h>
#include <libavfilter/buffersink.h>
#include <libavutil/opt.h>
}

#include <array>
#include <cstdio>
#include <memory>
#include <new>
#include <utility>

#include "media/av_library.h"
#include "media/media_error.h"
#include "media/pixels/rgb_lines.h"

namespace ruvex::media {
namespace {

/// From Debian's fonts-dejavu-core; if it is missing, the system chooses another.
constexpr const char* kFont = "DejaVu Sans";

struct GraphDelete {
    void operator()(AVFilterGraph* graph) const { avfilter_graph_free(&graph); }
};
using Graph = std::unique_ptr<AVFilterGraph, GraphDelete>;

using Settings = std::initializer_list<std::pair<const char*, std::string>>;

std::string colourText(unsigned colour) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "0x%06X", colour & 0xFFFFFFU);
    return text.data();
}

/// Throws MediaError for an error code of the libraries.
void require(int result) {
    if (result < 0) {
        throw MediaError("Cannot draw text: " + takeLibraryReason(result) +
                         ". Install a font, for example Debian's fonts-dejavu-core.");
    }
}

/// Adds a filter. Its settings are set one by one, so that no character of a text is taken for
/// syntax.
AVFilterContext* addFilter(AVFilterGraph& graph, const char* kind, const Settings& settings) {
    const AVFilter* filter = avfilter_get_by_name(kind);
    if (filter == nullptr) {
        throw MediaError(std::string("This build of the FFmpeg libraries has no filter ") + kind +
                         ". Install a build with it.");
    }
    AVFilterContext* context = avfilter_graph_alloc_filter(&graph, filter, kind);
    if (context == nullptr) {
        throw std::bad_alloc();
    }
    for (const auto& [name, value] : settings) {
        require(av_opt_set(context, name, value.c_str(), AV_OPT_SEARCH_CHILDREN));
    }
    require(avfilter_init_str(context, nullptr));
    return context;
}

/// Builds a filter graph that draws the label in RGBA, and returns its sink.
AVFilterContext* buildGraph(AVFilterGraph& graph, const std::string& text, FrameSize size,
                            const LabelStyle& style) {
    const std::array chain = {
        addFilter(graph, "color", {{"color", colourText(style.ground)}, {"size", toText(size)}}),
        addFilter(graph, "format", {{"pix_fmts", "rgba"}}),
        addFilter(graph, "drawtext",
                  {{"font", kFont},
                   {"text", text},
                   {"expansion", "none"},
                   {"fontsize", std::to_string(style.fontSize)},
                   {"fontcolor", colourText(style.text)},
                   {"x", "(w-text_w)/2"},
                   // The baseline does not depend on the letters. It is placed so that capitals,
                   // about 0.7 of the font size high, are centred.
                   {"y", "(h+0.7*" + std::to_string(style.fontSize) + ")/2-ascent"}}),
        addFilter(graph, "buffersink", {}),
    };
    for (std::size_t i = 1; i < chain.size(); ++i) {
        require(avfilter_link(chain[i - 1], 0, chain[i], 0));
    }
    require(avfilter_graph_config(&graph, nullptr));
    return chain.back();
}

}  // namespace

Frame textLabel(const std::string& text, FrameSize size, const LabelStyle& style) {
    quietLibraries();
    takeLibraryError();
    const Graph graph(avfilter_graph_alloc());
    if (!graph) {
        throw std::bad_alloc();
    }
    graph->nb_threads = 1;
    AVFilterContext* end = buildGraph(*graph, text, size, style);
    const AvFrame picture = newAvFrame();
    require(av_buffersink_get_frame(end, picture.get()));
    Frame label(size, Depth::Bits8);
    unpackRgb(*picture, label);
    return label;
}

}  // namespace ruvex::media
