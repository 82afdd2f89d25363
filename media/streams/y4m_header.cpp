#include "media/streams/y4m_header.h"

#include <algorithm>
#include <charconv>

#include "files/words.h"
#include "media/media_error.h"

namespace ruvex::media {
namespace {

/// A pixel format and its name in the header. The first of several names for one format is written.
struct PixelKind {
    std::string_view name;  ///< The value of the "C" tag.
    AVPixelFormat format;
    AVChromaLocation siting = AVCHROMA_LOC_UNSPECIFIED;
};

/// Formats of more than 8 bits are little-endian.
constexpr PixelKind kPixelKinds[] = {
    {"420jpeg", AV_PIX_FMT_YUV420P, AVCHROMA_LOC_CENTER},
    {"420mpeg2", AV_PIX_FMT_YUV420P, AVCHROMA_LOC_LEFT},
    {"420paldv", AV_PIX_FMT_YUV420P, AVCHROMA_LOC_TOPLEFT},
    {"420", AV_PIX_FMT_YUV420P, AVCHROMA_LOC_CENTER},
    {"411", AV_PIX_FMT_YUV411P},
    {"422", AV_PIX_FMT_YUV422P},
    {"444", AV_PIX_FMT_YUV444P},
    {"444alpha", AV_PIX_FMT_YUVA444P},
    {"mono", AV_PIX_FMT_GRAY8},
    {"mono9", AV_PIX_FMT_GRAY9LE},
    {"mono10", AV_PIX_FMT_GRAY10LE},
    {"mono12", AV_PIX_FMT_GRAY12LE},
    {"mono16", AV_PIX_FMT_GRAY16LE},
    {"420p9", AV_PIX_FMT_YUV420P9LE},
    {"422p9", AV_PIX_FMT_YUV422P9LE},
    {"444p9", AV_PIX_FMT_YUV444P9LE},
    {"420p10", AV_PIX_FMT_YUV420P10LE},
    {"422p10", AV_PIX_FMT_YUV422P10LE},
    {"444p10", AV_PIX_FMT_YUV444P10LE},
    {"420p12", AV_PIX_FMT_YUV420P12LE},
    {"422p12", AV_PIX_FMT_YUV422P12LE},
    {"444p12", AV_PIX_FMT_YUV444P12LE},
    {"420p14", AV_PIX_FMT_YUV420P14LE},
    {"422p14", AV_PIX_FMT_YUV422P14LE},
    {"444p14", AV_PIX_FMT_YUV444P14LE},
    {"420p16", AV_PIX_FMT_YUV420P16LE},
    {"422p16", AV_PIX_FMT_YUV422P16LE},
    {"444p16", AV_PIX_FMT_YUV444P16LE},
};

/// An invalid value for a message, made printable and cut to a length that fits.
std::string quoted(std::string_view text) {
    constexpr std::size_t kLongestQuote = 60;
    return std::string("'").append(files::printable(text, kLongestQuote)).append("'");
}

/// Parses the signature, then tags separated by blanks: a letter and its value.
class Parser {
public:
    Parser(std::string_view line, const std::string& name) : line_(line), name_(name) {}

    Y4mHeader parse() {
        if (!line_.starts_with(kY4mMagic)) {
            fail("it does not begin with " + std::string(kY4mMagic));
        }
        line_.remove_prefix(kY4mMagic.size());
        while (!line_.empty()) {
            const auto end = std::min(line_.find(' '), line_.size());
            take(line_.substr(0, end));
            line_.remove_prefix(std::min(end + 1, line_.size()));
        }
        checkFrameSize(header_.size, Depth::Bits8, name_);
        return header_;
    }

private:
    [[noreturn]] void fail(const std::string& what) const {
        throw MediaError("Cannot read " + name_ + " as Y4M: " + what + ".");
    }

    /// W width, H height, F frame rate, A pixel aspect, I interlacing, C pixel format, X
    /// extensions.
    void take(std::string_view tag) {
        if (tag.empty()) {
            return;
        }
        const std::string_view value = tag.substr(1);
        switch (tag.front()) {
            case 'W':
                header_.size.width = number(value);
                break;
            case 'H':
                header_.size.height = number(value);
                break;
            case 'F':
                header_.rate = ratio(value);
                break;
            case 'A':
                header_.pixelAspect = ratio(value).value_or(Rational{1, 1});
                break;
            case 'I':
                takeFields(value);
                break;
            case 'C':
                takeKind(value);
                break;
            case 'X':
                header_.full = value == "COLORRANGE=FULL" || header_.full;
                break;
            default:
                break;  // the format demands that unknown tags are ignored
        }
    }

    int number(std::string_view text) const {
        int value = 0;
        const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
        if (error != std::errc() || stop != text.data() + text.size() || value < 1) {
            fail(quoted(text) + " is not a width or height");
        }
        return value;
    }

    /// Parses "25:1"; empty for "0:0", which means unknown.
    std::optional<Rational> ratio(std::string_view text) const {
        if (text == "0:0") {
            return std::nullopt;
        }
        std::string fraction(text);
        std::replace(fraction.begin(), fraction.end(), ':', '/');
        const auto value = parsePositiveRational(fraction);
        if (!value) {
            fail(quoted(text) + " is not a ratio");
        }
        return value;
    }

    void takeFields(std::string_view text) {
        if (text == "t") {
            header_.fields = FieldOrder::TopFirst;
        } else if (text == "b") {
            header_.fields = FieldOrder::BottomFirst;
        } else if (text == "m") {
            fail("only some of its pictures are interlaced, which is not supported");
        }
    }

    void takeKind(std::string_view text) {
        const auto* kind =
            std::find_if(std::begin(kPixelKinds), std::end(kPixelKinds),
                         [text](const PixelKind& known) { return known.name == text; });
        if (kind == std::end(kPixelKinds)) {
            fail("its pixel format, " + quoted(text) + ", is unknown");
        }
        header_.format = kind->format;
        header_.siting = kind->siting;
    }

    std::string_view line_;
    const std::string& name_;
    Y4mHeader header_;
};

/// The name of the header's format and siting, or else of its format alone.
std::string_view pixelKindName(const Y4mHeader& header) {
    const auto fits = [&](const PixelKind& kind) {
        return kind.format == header.format && kind.siting == header.siting;
    };
    const auto sameFormat = [&](const PixelKind& kind) { return kind.format == header.format; };
    const auto* exact = std::find_if(std::begin(kPixelKinds), std::end(kPixelKinds), fits);
    return exact != std::end(kPixelKinds)
               ? exact->name
               : std::find_if(std::begin(kPixelKinds), std::end(kPixelKinds), sameFormat)->name;
}

std::string ratioText(const Rational& ratio) {
    return std::to_string(ratio.num) + ":" + std::to_string(ratio.den);
}

/// By FieldOrder: progressive, top field first, bottom field first.
constexpr char kFieldTags[] = {'p', 't', 'b'};

}  // namespace

Y4mHeader parseY4mHeader(std::string_view line, const std::string& name) {
    return Parser(line, name).parse();
}

std::string formatY4mHeader(const Y4mHeader& header) {
    std::string text(kY4mMagic);
    text.append(" W").append(std::to_string(header.size.width));
    text.append(" H").append(std::to_string(header.size.height));
    text.append(" F").append(header.rate ? ratioText(*header.rate) : "0:0");
    text.append(" I").append(1, kFieldTags[static_cast<int>(header.fields)]);
    text.append(" A").append(ratioText(header.pixelAspect));
    text.append(" C").append(pixelKindName(header));
    text.append(" XCOLORRANGE=").append(header.full ? "FULL" : "LIMITED");
    return text + '\n';
}

std::optional<AVPixelFormat> y4mFormat(Chroma chroma, int bits) {
    std::string name = chroma == Chroma::C422 ? "422" : chroma == Chroma::C444 ? "444" : "420";
    if (bits != 8) {
        name.append("p").append(std::to_string(bits));
    }
    const auto* kind = std::find_if(std::begin(kPixelKinds), std::end(kPixelKinds),
                                    [&](const PixelKind& known) { return known.name == name; });
    return kind == std::end(kPixelKinds) ? std::nullopt : std::optional(kind->format);
}

}  // namespace ruvex::media
