// Writes docs/parameters.md from the parameter table, or checks that the file is up to date.
//
//   parameter_reference FILE            write FILE
//   parameter_reference --check FILE    exit 1 when FILE is not what would be written

#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>

#include "parameters/parameter_table.h"
#include "parameters/parameter_text.h"
#include "parameters/strings.h"

namespace ruvex {
namespace {

/// One chapter of the reference: a page under its title, and a line about it.
struct Chapter {
    ParameterPage page;
    int titleString;
    const char* about;
};

constexpr int kNoTitle = 0;

constexpr Chapter kChapters[] = {
    {ParameterPage::Main, 3, "The television as a whole, and how poor its signal is."},
    {ParameterPage::Guns, 5, "The three electron guns: how bright each is, and where it points."},
    {ParameterPage::Breakup1, 7, "Colour, snow and ghosts, each from its own threshold on."},
    {ParameterPage::Breakup2, 9, "Edges, creeping lines, vertical offset and roll."},
    {ParameterPage::Shash, 11, "What a set shows where there is no signal at all."},
    {ParameterPage::Effects, 13, "The picture's resolution and lens, the player, the cable."},
    {ParameterPage::Cropping, 4996, "The part of the input that is used, and what lies beyond it."},
    {ParameterPage::Help, 15, "What the page itself needs."},
    {ParameterPage::Host, kNoTitle,
     "Set by the host. Where one is 0, that channel of the input comes back unchanged."},
};

constexpr char kPreamble[] =
    "# Parameters\n\n"
    "<!-- Made by tools/parameter_reference from parameters/parameter_rows.h; do not edit. -->\n\n"
    "A parameter is named by its label, without regard to case and spaces. Pixels (px) are those\n"
    "of the project frame, so that a length is the same part of the picture at any render size;\n"
    "work px are those of the picture after Resolution. Only reals can be animated.\n\n"
    "A render at a smaller size is not the full one made smaller. Snow and noise are drawn pixel\n"
    "by pixel at the render's own size, so they are coarser in a small render. A length of\n"
    "less than a pixel there is lost: scanlines 3 px wide in a project frame 2160 px high have\n"
    "no whole row in a render 540 px high, and do not show. To judge grain and fine lines, render\n"
    "a few frames at the full size; `--output-size` makes a small file of them.\n\n"
    "*Range* is what a user can enter. *Render* is the range that the render holds an animated\n"
    "value to; a dash means that it takes the value as it stands.\n";

std::string kindText(const ParameterRow& row) {
    switch (row.kind) {
        case ParameterKind::Real:
            return "real";
        case ParameterKind::Int:
            return "whole number";
        case ParameterKind::Enum:
        case ParameterKind::UiInt:
            return "choice";
        case ParameterKind::Bool:
        case ParameterKind::UiBool:
            return "check box";
    }
    return {};
}

std::string choicesText(const ParameterRow& row) {
    std::string text;
    for (std::size_t i = 0; i < row.choices.size(); ++i) {
        if (i > 0) text += ", ";
        text += std::to_string(i) + " " + std::string(row.choices[i].label);
    }
    return text;
}

std::string rangeText(const ParameterRow& row) {
    if (!row.choices.empty()) return choicesText(row);
    if (isCheckBox(row.kind)) return "on, off";
    if (!row.controlRange) return "any";
    if (!row.widerRange) return formatRange(*row.controlRange);
    return formatRange(*row.controlRange) + ", widened by the page to " +
           formatRange(*row.widerRange);
}

std::string renderText(const ParameterRow& row) {
    if (!row.rendered) return "not read";
    return row.clamp ? formatRange(*row.clamp) : "-";
}

std::string tableLine(const ParameterRow& row) {
    std::string line = "|";
    for (const std::string& cell :
         {std::string(row.label), kindText(row), formatValue(row, row.defaultValue), rangeText(row),
          renderText(row), std::string(unitText(row.unit)), std::string(row.hint)}) {
        line += (cell.empty() ? "" : " " + cell) + " |";
    }
    return line + "\n";
}

std::string chapterText(const Chapter& chapter) {
    const std::string title = chapter.titleString == kNoTitle
                                  ? "Channel masks"
                                  : std::string(strings::text(chapter.titleString));
    std::string text = "\n## " + title + "\n\n" + chapter.about + "\n\n" +
                       "| Label | Kind | Default | Range | Render | Unit | What it does |\n" +
                       "|---|---|---|---|---|---|---|\n";
    for (const ParameterRow& row : parameterTable()) {
        if (row.page == chapter.page) text += tableLine(row);
    }
    return text;
}

std::string identifiersText() {
    std::string text =
        "\n## Identifiers\n\n"
        "By these a host stores the parameters, in this order.\n\n"
        "| Label | Identifier |\n|---|---|\n";
    for (const ParameterRow& row : parameterTable()) {
        text += "| " + std::string(row.label) + " | `" + toText(row.identifier) + "` |\n";
    }
    return text;
}

std::string referenceText() {
    std::string text = kPreamble;
    for (const Chapter& chapter : kChapters) text += chapterText(chapter);
    return text + identifiersText();
}

int check(const char* path) {
    std::ifstream file(path, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    if (file && text == referenceText()) return 0;
    std::fprintf(stderr, "%s is stale: write it anew with parameter_reference %s\n", path, path);
    return 1;
}

int write(const char* path) {
    std::ofstream file(path, std::ios::binary);
    file << referenceText() << std::flush;
    if (file) return 0;
    std::fprintf(stderr, "%s cannot be written\n", path);
    return 1;
}

}  // namespace
}  // namespace ruvex

int main(int count, char** arguments) {
    if (count == 2) return ruvex::write(arguments[1]);
    if (count == 3 && std::strcmp(arguments[1], "--check") == 0) return ruvex::check(arguments[2]);
    std::fputs("usage: parameter_reference [--check] FILE\n", stderr);
    return 2;
}
