#include "cli/text_table.h"

#include <algorithm>

namespace ruvex::cli {
namespace {

std::vector<std::size_t> widthsOf(const std::vector<TextRow>& rows) {
    std::vector<std::size_t> widths(rows.empty() ? 0 : rows[0].size());
    for (const TextRow& row : rows) {
        for (std::size_t i = 0; i < widths.size(); ++i) {
            widths[i] = std::max(widths[i], row[i].size());
        }
    }
    return widths;
}

}  // namespace

std::string alignedTable(const std::vector<TextRow>& rows, Align side) {
    constexpr std::size_t kGap = 2;
    const std::vector<std::size_t> widths = widthsOf(rows);
    std::string table;
    for (const TextRow& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < widths.size(); ++i) {
            const std::string space(widths[i] - row[i].size(), ' ');
            line.append(i > 0 ? kGap : 0, ' ');
            line += side == Align::Left ? row[i] + space : space + row[i];
        }
        line.erase(line.find_last_not_of(' ') + 1);
        table += line + '\n';
    }
    return table;
}

}  // namespace ruvex::cli
