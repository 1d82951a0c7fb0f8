#pragma once

#include <string>

/// A red JPEG of that size.
std::string jpeg(int width, int height);

/// The width and height in a JPEG's header; zeros if there is none.
struct PictureSize {
    int width = 0;
    int height = 0;
};
PictureSize jpegSize(const std::string &bytes);
