// The two fields of an interlaced frame: every second line each, taken half a frame apart.

#pragma once

#include <string>

#include "media/clip_info.h"

namespace ruvex::media {

/// The top field has a frame's first line and every second one after it, the bottom field the rest.
enum class Field { Top, Bottom };

/// The field's place among the two, and the line of the frame that it begins with.
constexpr int fieldIndex(Field field) {
    return field == Field::Top ? 0 : 1;
}

/// "top field first" or "bottom field first"; `order` is not Progressive.
std::string toText(FieldOrder order);

/// The field that was taken first, or half a frame later; `order` is not Progressive.
Field firstField(FieldOrder order);
Field secondField(FieldOrder order);

/// Lines of a field: half of the frame's; of an odd number the top field has the odd one.
int fieldHeight(int frameHeight, Field field);

/// The chain row of the frame that holds row `row` of one of its fields.
int frameRowOf(int row, int frameHeight, Field field);

/// Copies a field's lines out of the frame. `picture` gets the frame's width and depth and the
/// field's height; its memory is kept where that fits. The field must have a line.
void takeField(const Frame& frame, Field field, Frame& picture);

/// Puts a picture that takeField could have made back into its lines of the frame.
void putField(const Frame& picture, Field field, Frame& frame);

}  // namespace ruvex::media
