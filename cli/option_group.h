// The groups in which the help lists options.

#pragma once

#include <array>

#include "cli/command_table.h"

namespace ruvex::cli {

enum class OptionGroup { InAndOut, Look, Time, Picture, Work, Farm, Other };

struct GroupTitle {
    OptionGroup group;
    const char* title;
};

/// All groups, in the order of the help.
inline constexpr std::array<GroupTitle, 7> kGroupTitles = {{
    {OptionGroup::InAndOut, "Input and output"},
    {OptionGroup::Look, "Look"},
    {OptionGroup::Time, "Time"},
    {OptionGroup::Picture, "Picture"},
    {OptionGroup::Work, "How it is rendered and reported"},
    {OptionGroup::Farm, "Chunks and scheduler"},
    {OptionGroup::Other, "Other"},
}};

/// By the option's long name; Other for names that are not listed.
OptionGroup groupOf(const Option& option);

}  // namespace ruvex::cli
