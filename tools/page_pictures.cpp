// Draws the property pages of the module as SVG pictures: plain frames and texts, each text cut off
// at its control's frame. They show what the windows in memory hold: values, choices, and what is
// hidden or disabled.
//
//   page_pictures MODULE FOLDER [PRESET]     PRESET: 1 to 8, chosen before the pages are drawn

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "host/base/class_ids.h"
#include "pages/resources/resource_ids.h"
#include "runtime/editor.h"
#include "runtime/error.h"
#include "sdk/com/utf8.h"
#include "sdk/controls/host_controls.h"
#include "sdk/window/window_tree.h"

namespace ruvex {
namespace {

/// Pixels of a dialog unit for Arial with 11 points at 96 dots per inch.
constexpr double kUnitWidth = 2.25;
constexpr double kUnitHeight = 2.125;
constexpr double kFontSize = 11 * 96.0 / 72;
/// The width of an average character, for breaking lines.
constexpr double kCharacterWidth = kFontSize * 0.47;
/// A closed drop-down list is as high as its font, whatever its template says.
constexpr double kClosedListHeight = 24;

struct Frame {
    double x, y, width, height;  // in pixels
};

Frame frameOf(const DSWindowState& window) {
    return {window.rect.x * kUnitWidth, window.rect.y * kUnitHeight, window.rect.width * kUnitWidth,
            window.rect.height * kUnitHeight};
}

std::string escaped(const std::string& text) {
    std::string result;
    for (const char c : text) result += c == '&' ? "&amp;" : c == '<' ? "&lt;" : std::string(1, c);
    return result;
}

/// The text in lines that fit into a width in pixels.
std::vector<std::string> linesOf(const std::string& text, double width) {
    const auto most = static_cast<std::size_t>(width / kCharacterWidth);
    std::vector<std::string> lines;
    std::istringstream paragraphs(text);
    for (std::string paragraph; std::getline(paragraphs, paragraph);) {
        std::istringstream words(paragraph);
        std::string line;
        for (std::string word; words >> word;) {
            if (!line.empty() && line.size() + 1 + word.size() > most) {
                lines.push_back(std::exchange(line, ""));
            }
            line += line.empty() ? word : ' ' + word;
        }
        lines.push_back(line);
    }
    return lines;
}

class Picture {
public:
    explicit Picture(const DSDialogRect& dialog) {
        svg_ << "<svg xmlns='http://www.w3.org/2000/svg' width='" << dialog.width * kUnitWidth
             << "' height='" << dialog.height * kUnitHeight
             << "' font-family='Arial, sans-serif' font-size='" << kFontSize
             << "'>\n<rect width='100%' height='100%' fill='#f0f0f0'/>\n";
    }

    void rectangle(const Frame& frame, const std::string& fill, const char* line) {
        svg_ << "<rect " << attributes(frame) << " fill='" << fill << "' stroke='" << line
             << "'/>\n";
    }

    /// Lines from the height `middle` on, within the frame alone.
    void text(const Frame& frame, const std::vector<std::string>& lines, double indent,
              double middle, const char* colour) {
        svg_ << "<svg " << attributes(frame) << " fill='" << colour << "'>";
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const double y = middle + kFontSize * (0.35 + 1.15 * static_cast<double>(i));
            svg_ << "<text x='" << indent << "' y='" << y << "'>" << escaped(lines[i]) << "</text>";
        }
        svg_ << "</svg>\n";
    }
    void line(const Frame& frame, const std::string& words, double indent, const char* colour) {
        text(frame, {words}, indent, frame.height / 2, colour);
    }

    std::string finished() const { return svg_.str() + "</svg>\n"; }

private:
    static std::string attributes(const Frame& frame) {
        std::ostringstream text;
        text << "x='" << frame.x << "' y='" << frame.y << "' width='" << frame.width << "' height='"
             << frame.height << "'";
        return text.str();
    }

    std::ostringstream svg_;
};

const char* inkOf(const DSWindowState& window) {
    return window.enabled() ? "black" : "#a0a0a0";
}

void drawButton(Picture& picture, const DSWindowState& window, const Frame& frame) {
    constexpr double kBoxSide = 13;
    constexpr double kIndent = 8;
    const std::string title = toUtf8(window.text);
    const Frame box{frame.x, frame.y + (frame.height - kBoxSide) / 2, kBoxSide, kBoxSide};
    switch (window.style & BS_TYPEMASK) {
        case BS_GROUPBOX:  // its line begins at half the height of its title
            picture.rectangle(
                {frame.x, frame.y + kFontSize / 2, frame.width, frame.height - kFontSize / 2},
                "none", "#a0a0a0");
            picture.line({frame.x + kIndent, frame.y, frame.width - 2 * kIndent, kFontSize}, title,
                         0, "black");
            break;
        case BS_AUTOCHECKBOX:
            picture.rectangle(box, window.checked ? "#404040" : "white", inkOf(window));
            picture.line(frame, title, kBoxSide + 4, inkOf(window));
            break;
        default:
            picture.rectangle(frame, "#e0e0e0", "black");
            picture.line(frame, title, kIndent, inkOf(window));
    }
}

std::string cssColour(const CDSColourChip::Colour& colour) {
    std::ostringstream text;
    text << "rgb(" << colour[0] << ',' << colour[1] << ',' << colour[2] << ')';
    return text.str();
}

void drawText(Picture& picture, const DSWindowState& window, const Frame& frame) {
    const auto lines = linesOf(toUtf8(window.text), frame.width);
    if (window.bitmap != 0) {
        picture.rectangle(frame, "#c0c0c0", "none");
        picture.line(frame, "bitmap " + std::to_string(window.bitmap), 0, "black");
    } else {
        picture.text(frame, lines, 0, kFontSize * 0.6, inkOf(window));
    }
}

void draw(Picture& picture, HWND handle) {
    constexpr double kIndent = 4;
    const DSWindowState& window = *DSGetWindowState(handle);
    if (!window.shown()) return;
    Frame frame = frameOf(window);
    if (const auto number = DSNumberControlOf(handle)) {
        picture.rectangle(frame, "white", "#707070");
        picture.line(frame, number->text(), kIndent, inkOf(window));
    } else if (const auto chip = DSColourChipOf(handle)) {
        picture.rectangle(frame, cssColour(chip->colour()), "black");
    } else if (window.className == "combobox") {
        frame.height = kClosedListHeight;
        picture.rectangle(frame, "#e8e8f8", "#707070");
        const auto item = static_cast<std::size_t>(window.selection);
        if (item < window.items.size()) {
            picture.line(frame, toUtf8(window.items[item]), kIndent, inkOf(window));
        }
    } else if (window.className == "button") {
        drawButton(picture, window, frame);
    } else {
        drawText(picture, window, frame);
    }
}

void drawPage(const runtime::OpenPage& page, const std::filesystem::path& file) {
    const DSWindowState& dialog = *DSGetWindowState(page.window());
    Picture picture(dialog.rect);
    for (const HWND child : dialog.children) draw(picture, child);
    std::ofstream stream(file, std::ios::binary);
    stream << picture.finished() << std::flush;
    if (!stream) throw runtime::Error(file.string() + " cannot be written");
}

void drawPages(const std::filesystem::path& module, const std::filesystem::path& folder,
               int preset) {
    runtime::EffectSession session(
        {.module = runtime::Module::load(module), .project = {.width = 720, .height = 576}});
    runtime::Editor editor(session);
    if (preset > 0) {
        const auto main = editor.open(kRuvexPageId);
        main->show();
        DSChooseItem(GetDlgItem(main->window(), IDC_PRESETS), preset);
    }
    int number = 0;
    for (const GUID& id : editor.pages()) {
        const auto page = editor.open(id);
        page->show();
        drawPage(*page, folder / (std::to_string(++number) + ".svg"));
    }
}

}  // namespace
}  // namespace ruvex

int main(int count, char** arguments) {
    if (count < 3 || count > 4) {
        std::cerr << "usage: page_pictures MODULE FOLDER [PRESET]\n";
        return 2;
    }
    try {
        ruvex::drawPages(arguments[1], arguments[2], count == 4 ? std::atoi(arguments[3]) : 0);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
