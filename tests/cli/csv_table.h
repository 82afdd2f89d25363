// What `ruvex level --csv` prints, by name.

#pragma once

#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "tests/cli/run_command.h"

namespace ruvex::cli {

using CsvTable = std::map<std::string, std::vector<std::string>>;

inline std::vector<std::string> cellsOf(const std::string& line) {
    std::vector<std::string> cells;
    std::istringstream rest(line);
    for (std::string cell; std::getline(rest, cell, ',');) {
        cells.push_back(cell);
    }
    return cells;
}

/// Columns by the names in the first line. A row of another length breaks off with an exception.
inline CsvTable readCsv(const std::string& text) {
    std::istringstream lines(text);
    std::string line;
    std::getline(lines, line);
    const std::vector<std::string> names = cellsOf(line);
    CsvTable table;
    while (std::getline(lines, line)) {
        const std::vector<std::string> cells = cellsOf(line);
        if (cells.size() != names.size()) throw std::runtime_error("a row of another length");
        for (std::size_t i = 0; i < names.size(); ++i) {
            table[names[i]].push_back(cells[i]);
        }
    }
    return table;
}

}  // namespace ruvex::cli
