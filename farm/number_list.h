// Lists of numbers as text.

#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace ruvex::farm {

/// "3,7-9" for rising numbers, with `comma` between its parts.
inline std::string numberList(std::span<const std::int64_t> numbers, const char* comma = ",") {
    std::string text;
    for (std::size_t i = 0; i < numbers.size();) {
        std::size_t last = i;
        while (last + 1 < numbers.size() && numbers[last + 1] == numbers[last] + 1) ++last;
        text.append(text.empty() ? "" : comma).append(std::to_string(numbers[i]));
        if (last > i) text.append("-").append(std::to_string(numbers[last]));
        i = last + 1;
    }
    return text;
}

}  // namespace ruvex::farm
