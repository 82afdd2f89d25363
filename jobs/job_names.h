// The words for the choices in a job, the same in job files and on the command line.

#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "jobs/clip_ends.h"
#include "jobs/comparison.h"
#include "jobs/result_alpha.h"
#include "media/clip_info.h"
#include "media/file_kind.h"
#include "media/pixels/alpha.h"
#include "media/stills/exr_form.h"

namespace ruvex::jobs {

template <class Choice>
struct NamedChoice {
    Choice value;
    std::string_view name;
};

/// All choices of a kind, with their names. Choice is one of AlphaForm ("straight",
/// "premultiplied"), FieldOrder ("top", "bottom", "none"), ResultAlpha ("effect", "opaque"),
/// ClipEnds ("blank", "hold", "loop"), Comparison::Kind ("sideBySide", "split"), ExrPixels ("half",
/// "float"), ExrCompression ("none", "rle", "zip1", "zip16"), or FileKind, of which only the kinds
/// that a stream may hold have names ("y4m", "rgba8", "s214").
template <class Choice>
std::span<const NamedChoice<Choice>> namedChoices();

template <>
std::span<const NamedChoice<media::AlphaForm>> namedChoices();
template <>
std::span<const NamedChoice<media::FieldOrder>> namedChoices();
template <>
std::span<const NamedChoice<ResultAlpha>> namedChoices();
template <>
std::span<const NamedChoice<ClipEnds>> namedChoices();
template <>
std::span<const NamedChoice<Comparison::Kind>> namedChoices();
template <>
std::span<const NamedChoice<media::FileKind>> namedChoices();
template <>
std::span<const NamedChoice<media::ExrPixels>> namedChoices();
template <>
std::span<const NamedChoice<media::ExrCompression>> namedChoices();

/// "blank, hold, loop", with `last` before the last one.
template <class Choice>
std::string choicesText(const char* last) {
    const auto all = namedChoices<Choice>();
    std::string text;
    for (std::size_t i = 0; i < all.size(); ++i) {
        text.append(i == 0 ? "" : i + 1 == all.size() ? last : ", ").append(all[i].name);
    }
    return text;
}

/// The choice with this name; empty if there is none.
template <class Choice>
std::optional<Choice> choiceNamed(std::string_view name) {
    for (const auto& [value, known] : namedChoices<Choice>()) {
        if (known == name) return value;
    }
    return std::nullopt;
}

/// The name of a choice; empty if it has none.
template <class Choice>
std::string_view nameOf(Choice choice) {
    for (const auto& [value, known] : namedChoices<Choice>()) {
        if (value == choice) return known;
    }
    return {};
}

}  // namespace ruvex::jobs
