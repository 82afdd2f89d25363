// Everything that a concrete image effect builds on.

#pragma once

#include "sdk/image_mi_effect.h"
