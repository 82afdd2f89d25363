#include "imaging/pixel.h"
