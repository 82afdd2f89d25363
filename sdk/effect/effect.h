// Includes all headers that an image effect needs.

#pragma once

#include "sdk/effect/image_mi_effect.h"
