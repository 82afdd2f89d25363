// Prints a dialog of a compiled resource file as an SVG picture: plain frames and texts, each text
// cut off at its control's frame.
//
//   dialog_picture RES NUMBER [LEFT_OUT...]     LEFT_OUT: numbers of controls that are not drawn

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "sdk/resources/dialog_template.h"

namespace ruvex {
namespace {

/// Pixels of a dialog unit for Arial with 11 points at 96 dots per inch.
constexpr double kUnitWidth = 2.25;
constexpr double kUnitHeight = 2.125;
constexpr double kFontSize = 11 * 96.0 / 72;
/// A closed drop-down list is as high as its font, whatever its template says.
constexpr double kClosedListHeight = 24;

constexpr std::uint32_t kVisible = 0x10000000;

struct Frame {
    double x, y, width, height;  // in pixels
};

Frame frameOf(const DialogControl& control) {
    return {control.x * kUnitWidth, control.y * kUnitHeight, control.width * kUnitWidth,
            control.height * kUnitHeight};
}

/// The text for XML; characters beyond U+007F become question marks.
std::string escaped(const ResourceText& text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (unit == u'&') {
            result += "&amp;";
        } else if (unit == u'<') {
            result += "&lt;";
        } else {
            result += unit < 0x80 ? static_cast<char>(unit) : '?';
        }
    }
    return result;
}

class Picture {
public:
    explicit Picture(const DialogTemplate& dialog) {
        const int width = static_cast<int>(dialog.width * kUnitWidth);
        const int height = static_cast<int>(dialog.height * kUnitHeight);
        svg_ = "<svg xmlns='http://www.w3.org/2000/svg' width='" + std::to_string(width) +
               "' height='" + std::to_string(height) + "' font-family='Arial' font-size='" +
               std::to_string(kFontSize) +
               "'>\n<rect width='100%' height='100%' fill='#f0f0f0'/>\n";
    }

    void rectangle(const Frame& frame, const char* fill, const char* line) {
        svg_ += "<rect " + attributes(frame) + " fill='" + fill + "' stroke='" + line + "'/>\n";
    }

    /// The text from `indent` pixels behind the frame's left edge on, within the frame alone.
    void text(const Frame& frame, const std::string& words, double indent = 0) {
        svg_ += "<svg " + attributes(frame) + "><text x='" + std::to_string(indent) + "' y='" +
                std::to_string(frame.height / 2 + kFontSize * 0.35) + "'>" + words +
                "</text></svg>\n";
    }

    std::string finished() const { return svg_ + "</svg>\n"; }

private:
    static std::string attributes(const Frame& frame) {
        return "x='" + std::to_string(frame.x) + "' y='" + std::to_string(frame.y) + "' width='" +
               std::to_string(frame.width) + "' height='" + std::to_string(frame.height) + "'";
    }

    std::string svg_;
};

void drawButton(Picture& picture, const DialogControl& control, const Frame& frame) {
    constexpr double kCheckBoxSide = 13;
    constexpr double kHalfTextHeight = kFontSize / 2;
    const std::string title = escaped(control.title.text);
    switch (control.style & 0xF) {
        case 0x7: {  // group box: its line begins at half the height of its title
            picture.rectangle(
                {frame.x, frame.y + kHalfTextHeight, frame.width, frame.height - kHalfTextHeight},
                "none", "#a0a0a0");
            picture.text({frame.x + 8, frame.y, frame.width - 16, kFontSize}, title);
            break;
        }
        case 0x3:  // check box
            picture.rectangle({frame.x, frame.y + (frame.height - kCheckBoxSide) / 2, kCheckBoxSide,
                               kCheckBoxSide},
                              "white", "black");
            picture.text(frame, title, kCheckBoxSide + 4);
            break;
        default:
            picture.rectangle(frame, "#e0e0e0", "black");
            picture.text(frame, title, 8);
    }
}

void drawStatic(Picture& picture, const DialogControl& control, const Frame& frame) {
    const std::string title = escaped(control.title.text);
    const std::size_t behindLabel = title.find(";class=");
    if (control.title.number) {
        picture.rectangle(frame, "#c0c0c0", "none");
        picture.text(frame, "bitmap " + std::to_string(*control.title.number));
    } else if (title.find("colorchip") != std::string::npos) {
        picture.rectangle(frame, "#40a64d", "black");
    } else if (behindLabel != std::string::npos) {
        picture.rectangle(frame, "white", "#707070");
    } else if (title.empty()) {
        picture.rectangle(frame, "none", "#d0a0a0");
    } else {
        picture.text(frame, title);
    }
}

void draw(Picture& picture, const DialogControl& control) {
    Frame frame = frameOf(control);
    if (control.windowClass.number == kButtonClass) {
        drawButton(picture, control, frame);
    } else if (control.windowClass.number == kComboBoxClass) {
        frame.height = kClosedListHeight;
        picture.rectangle(frame, "#e8e8f8", "#707070");
    } else {
        drawStatic(picture, control, frame);
    }
}

int print(const char* path, std::uint16_t number, const std::set<std::uint32_t>& leftOut) {
    std::ifstream file(path, std::ios::binary);
    const std::vector<unsigned char> bytes(std::istreambuf_iterator<char>(file), {});
    const auto dialog = readDialog(ResourceFile(bytes), number);
    if (!dialog) {
        std::fprintf(stderr, "%s has no dialog %d\n", path, number);
        return 1;
    }
    Picture picture(*dialog);
    for (const DialogControl& control : dialog->controls) {
        const bool isDrawn = (control.style & kVisible) != 0 && !leftOut.contains(control.id);
        if (isDrawn) draw(picture, control);
    }
    std::fputs(picture.finished().c_str(), stdout);
    return 0;
}

}  // namespace
}  // namespace ruvex

int main(int count, char** arguments) {
    if (count < 3) {
        std::fputs("usage: dialog_picture RES NUMBER [LEFT_OUT...]\n", stderr);
        return 2;
    }
    std::set<std::uint32_t> leftOut;
    for (int i = 3; i < count; ++i) {
        leftOut.insert(static_cast<std::uint32_t>(std::strtoul(arguments[i], nullptr, 10)));
    }
    const auto number = static_cast<std::uint16_t>(std::strtoul(arguments[2], nullptr, 10));
    return ruvex::print(arguments[1], number, leftOut);
}
