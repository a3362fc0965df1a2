// The decoder's own code.
#define STB_IMAGE_IMPLEMENTATION
#include "Data/Resources/StbImage.h"
