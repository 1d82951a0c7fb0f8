#include "Support/Pictures.h"

#include <turbojpeg.h>
#include <vector>

std::string jpeg(int width, int height)
{
    std::vector<unsigned char> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3);
    for (std::size_t i = 0; i < pixels.size(); i += 3)
        pixels[i] = 0xff;
    unsigned char *bytes = nullptr;
    unsigned long size = 0;
    const tjhandle encoder = tjInitCompress();
    tjCompress2(encoder, pixels.data(), width, 0, height, TJPF_RGB, &bytes, &size, TJSAMP_420, 90, 0);
    std::string result(bytes, bytes + size);
    tjFree(bytes);
    tjDestroy(encoder);
    return result;
}

PictureSize jpegSize(const std::string &bytes)
{
    PictureSize size;
    int subsampling = 0;
    int colours = 0;
    const tjhandle decoder = tjInitDecompress();
    const int fault = tjDecompressHeader3(decoder, reinterpret_cast<const unsigned char *>(bytes.data()),
                                          bytes.size(), &size.width, &size.height, &subsampling, &colours);
    tjDestroy(decoder);
    return fault == 0 ? size : PictureSize{};
}
