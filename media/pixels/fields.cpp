#include "media/pixels/fields.h"

#include <cstring>

#include "media/frame.h"

namespace ruvex::media {

std::string toText(FieldOrder order) {
    return order == FieldOrder::TopFirst ? "top field first" : "bottom field first";
}

Field firstField(FieldOrder order) {
    return order == FieldOrder::BottomFirst ? Field::Bottom : Field::Top;
}

Field secondField(FieldOrder order) {
    return order == FieldOrder::BottomFirst ? Field::Top : Field::Bottom;
}

int fieldHeight(int frameHeight, Field field) {
    return (frameHeight + 1 - fieldIndex(field)) / 2;
}

int frameRowOf(int row, int frameHeight, Field field) {
    const int line = chainRowOfLine(row, fieldHeight(frameHeight, field));
    return chainRowOfLine(2 * line + fieldIndex(field), frameHeight);
}

void takeField(const Frame& frame, Field field, Frame& picture) {
    makeRoom(picture, {frame.width(), fieldHeight(frame.height(), field)}, frame.depth());
    for (int row = 0; row < picture.height(); ++row) {
        std::memcpy(picture.row(row), frame.row(frameRowOf(row, frame.height(), field)),
                    picture.rowBytes());
    }
}

void putField(const Frame& picture, Field field, Frame& frame) {
    for (int row = 0; row < picture.height(); ++row) {
        std::memcpy(frame.row(frameRowOf(row, frame.height(), field)), picture.row(row),
                    picture.rowBytes());
    }
}

}  // namespace ruvex::media
