#include "jobs/job_names.h"

namespace ruvex::jobs {

template <>
std::span<const NamedChoice<media::AlphaForm>> namedChoices() {
    using enum media::AlphaForm;
    static constexpr NamedChoice<media::AlphaForm> kAll[] = {{Straight, "straight"},
                                                             {Premultiplied, "premultiplied"}};
    return kAll;
}

template <>
std::span<const NamedChoice<media::FieldOrder>> namedChoices() {
    using enum media::FieldOrder;
    static constexpr NamedChoice<media::FieldOrder> kAll[] = {
        {TopFirst, "top"}, {BottomFirst, "bottom"}, {Progressive, "none"}};
    return kAll;
}

template <>
std::span<const NamedChoice<ResultAlpha>> namedChoices() {
    using enum ResultAlpha;
    static constexpr NamedChoice<ResultAlpha> kAll[] = {{Effect, "effect"}, {Opaque, "opaque"}};
    return kAll;
}

template <>
std::span<const NamedChoice<ClipEnds>> namedChoices() {
    using enum ClipEnds;
    static constexpr NamedChoice<ClipEnds> kAll[] = {
        {Blank, "blank"}, {Hold, "hold"}, {Loop, "loop"}};
    return kAll;
}

template <>
std::span<const NamedChoice<Comparison::Kind>> namedChoices() {
    using enum Comparison::Kind;
    static constexpr NamedChoice<Comparison::Kind> kAll[] = {{SideBySide, "sideBySide"},
                                                             {Split, "split"}};
    return kAll;
}

template <>
std::span<const NamedChoice<media::FileKind>> namedChoices() {
    using enum media::FileKind;
    static constexpr NamedChoice<media::FileKind> kAll[] = {
        {Y4m, "y4m"}, {RawRgba8, "rgba8"}, {RawS214, "s214"}};
    return kAll;
}

template <>
std::span<const NamedChoice<media::ExrPixels>> namedChoices() {
    using enum media::ExrPixels;
    static constexpr NamedChoice<media::ExrPixels> kAll[] = {{Half, "half"}, {Float, "float"}};
    return kAll;
}

template <>
std::span<const NamedChoice<media::ExrCompression>> namedChoices() {
    using enum media::ExrCompression;
    static constexpr NamedChoice<media::ExrCompression> kAll[] = {
        {None, "none"}, {Rle, "rle"}, {Zip1, "zip1"}, {Zip16, "zip16"}};
    return kAll;
}

}  // namespace ruvex::jobs
