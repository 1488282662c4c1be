// The image library behind a C interface, so that the engine can load it when a first image is read or saved and not
// before. Nothing here knows the engine. Calls may come from any thread.
#pragma once

#ifdef __cplusplus
extern "C" {
#endif

enum VelmarPixelType { VELMAR_PIXEL_BYTE = 0, VELMAR_PIXEL_FLOAT = 1 };

/// An image in memory: rows from the top, channels of a pixel together, no padding.
struct VelmarImage {
    int width, height, channels;
    enum VelmarPixelType type;
    const void* pixels;
};

/// Writes `image` to the file `path` in the format that its library calls `format` ("png", "openexr"). Bytes are marked
/// as sRGB, floats as linear. 1 for success; else 0, and a reason of at most `error_size` bytes with its end in
/// `error`.
int velmar_write_image(const char* path, const char* format, const struct VelmarImage* image, char* error,
                       unsigned error_size);

#ifdef __cplusplus
}
#endif
