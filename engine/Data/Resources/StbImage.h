#pragma once

// The image decoder as it is used here: from memory, and only the formats that are asked for.
#define STBI_NO_STDIO
#define STBI_ONLY_PNG
#define STBI_ONLY_JPEG
#define STBI_ONLY_TGA
#define STBI_ONLY_BMP
#define STBI_ONLY_HDR
#define STBI_MAX_DIMENSIONS 8192
#include <stb/stb_image.h>
