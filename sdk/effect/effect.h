// Everything that a concrete image effect builds on.

#pragma once

#include "sdk/effect/image_mi_effect.h"
