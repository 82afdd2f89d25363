// The two fields of an interlaced frame.

#pragma once

#include <string>

#include "media/clip_info.h"

namespace ruvex::media {

/// The top field has the lines 0, 2, 4, ... of a frame, from the top, the bottom field the others.
/// They are half a frame apart in time.
enum class Field { Top, Bottom };

/// 0 for the top field, 1 for the bottom field: also the first line of the field in the frame.
constexpr int fieldIndex(Field field) {
    return field == Field::Top ? 0 : 1;
}

/// "top field first" or "bottom field first"; `order` must not be Progressive.
std::string toText(FieldOrder order);

/// The field that is first or second in time; `order` must not be Progressive.
Field firstField(FieldOrder order);
Field secondField(FieldOrder order);

/// The number of lines of a field: half of the frame's, rounded up for the top field.
int fieldHeight(int frameHeight, Field field);

/// The chain row of the frame that holds chain row `row` of a field.
int frameRowOf(int row, int frameHeight, Field field);

/// Copies a field into `picture`, which gets the frame's width and depth and the field's height and
/// reuses its memory where that fits. The field must have at least one line.
void takeField(const Frame& frame, Field field, Frame& picture);

/// Copies `picture` into the lines of a field. It must have the size and depth that takeField
/// gives.
void putField(const Frame& picture, Field field, Frame& frame);

}  // namespace ruvex::media
