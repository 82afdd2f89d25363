// The module's string table: all texts by their number.

#pragma once

#include <span>
#include <string_view>

namespace ruvex::strings {

/// One string resource. The text is UTF-8.
struct Entry {
    int id;
    std::string_view text;
};

/// The whole table, sorted by number, without duplicates.
std::span<const Entry> table();

/// The text of a string; empty if there is none. The number with which the tool is registered has
/// no text.
std::string_view text(int id);

}  // namespace ruvex::strings
