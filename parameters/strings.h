// Every text that the module's string resources hold, by its identifier.

#pragma once

#include <span>
#include <string_view>

namespace ruvex::strings {

/// One string resource. The text is UTF-8.
struct Entry {
    int id;
    std::string_view text;
};

/// The whole table, in rising order of identifiers, each of them once.
std::span<const Entry> table();

/// The text of a string; empty where the table has none. The identifier that the tool is
/// registered with has no text, and never had one.
std::string_view text(int id);

}  // namespace ruvex::strings
