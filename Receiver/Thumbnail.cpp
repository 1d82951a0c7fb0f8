#include "Thumbnail.h"

#include <algorithm>
#include <memory>
#include <turbojpeg.h>
#include <vector>

namespace wexel::receiver {

namespace {

constexpr std::int64_t maximumPixels = std::int64_t(33) * 1024 * 1024;
/// A progressive picture is held as a whole while it is decoded, and gone over once for each of its scans.
constexpr std::int64_t maximumProgressivePixels = std::int64_t(8) * 1024 * 1024;
constexpr std::ptrdiff_t maximumScans = 20;
constexpr char startOfProgressiveFrame = '\xc2';
constexpr char startOfScan = '\xda';
constexpr int maximumHeight = 160;
constexpr int maximumWidth = 640;
constexpr int channels = 3;
constexpr int quality = 80;

using Coder = std::unique_ptr<void, int (*)(tjhandle)>;

struct Picture {
    int width = 0;
    int height = 0;
    std::vector<unsigned char> pixels; ///< red, green, blue; rows without gaps
};

const unsigned char *bytesOf(std::string_view text)
{
    return reinterpret_cast<const unsigned char *>(text.data());
}

/// The size that fits, by the picture's proportions; never larger than the picture.
Picture fitted(const Picture &source)
{
    const double scale
        = std::min({1.0, double(maximumHeight) / source.height, double(maximumWidth) / source.width});
    Picture result = {std::max(1, int(source.width * scale)), std::max(1, int(source.height * scale)), {}};
    result.pixels.resize(std::size_t(result.width) * std::size_t(result.height) * channels);
    return result;
}

/// How often the marker's bytes occur, which in data between markers they hardly do.
std::ptrdiff_t markers(std::string_view jpeg, char kind)
{
    std::ptrdiff_t count = 0;
    for (std::size_t at = jpeg.find('\xff'); at < jpeg.size() - 1; at = jpeg.find('\xff', at + 1))
        count += jpeg[at + 1] == kind ? 1 : 0;
    return count;
}

bool isAffordable(std::string_view jpeg, std::int64_t pixels)
{
    return pixels <= maximumPixels && markers(jpeg, startOfScan) <= maximumScans
        && (pixels <= maximumProgressivePixels || markers(jpeg, startOfProgressiveFrame) == 0);
}

/// Sets the decoder to the smallest size that is not below the thumbnail's, which saves most of its work.
bool chooseSize(tjhandle decoder, std::string_view jpeg, Picture &picture)
{
    int width = 0;
    int height = 0;
    int subsampling = 0;
    int colours = 0;
    if (tjDecompressHeader3(decoder, bytesOf(jpeg), jpeg.size(), &width, &height, &subsampling, &colours) != 0
        || !isAffordable(jpeg, std::int64_t(width) * height))
        return false;
    const Picture wanted = fitted({width, height, {}});
    int count = 0;
    const tjscalingfactor *factors = tjGetScalingFactors(&count);
    picture = {width, height, {}};
    for (const tjscalingfactor *factor = factors; factor != factors + count; ++factor) {
        const int scaledWidth = TJSCALED(width, (*factor));
        const int scaledHeight = TJSCALED(height, (*factor));
        if (scaledWidth >= wanted.width && scaledHeight >= wanted.height && scaledHeight < picture.height)
            picture = {scaledWidth, scaledHeight, {}};
    }
    return true;
}

std::optional<Picture> decode(std::string_view jpeg)
{
    const Coder decoder(tjInitDecompress(), tjDestroy);
    Picture picture;
    if (!decoder || !chooseSize(decoder.get(), jpeg, picture))
        return std::nullopt;
    picture.pixels.resize(std::size_t(picture.width) * std::size_t(picture.height) * channels);
    const int fault = tjDecompress2(decoder.get(), bytesOf(jpeg), jpeg.size(), picture.pixels.data(),
                                    picture.width, 0, picture.height, TJPF_RGB, TJFLAG_FASTDCT);
    if (fault != 0 && tjGetErrorCode(decoder.get()) != TJERR_WARNING)
        return std::nullopt;
    return picture;
}

/// The mean of each channel over a part of the source.
void average(const Picture &source, int left, int right, int top, int bottom, unsigned char *pixel)
{
    int sums[channels] = {};
    for (int y = top; y < bottom; ++y) {
        const unsigned char *from = source.pixels.data()
            + (std::size_t(y) * std::size_t(source.width) + std::size_t(left)) * channels;
        for (int i = 0; i < (right - left) * channels; ++i)
            sums[i % channels] += from[i];
    }
    for (int c = 0; c < channels; ++c)
        pixel[c] = static_cast<unsigned char>(sums[c] / ((right - left) * (bottom - top)));
}

Picture shrunk(const Picture &source)
{
    Picture result = fitted(source);
    unsigned char *pixel = result.pixels.data();
    for (int y = 0; y < result.height; ++y) {
        for (int x = 0; x < result.width; ++x, pixel += channels)
            average(source, x * source.width / result.width, (x + 1) * source.width / result.width,
                    y * source.height / result.height, (y + 1) * source.height / result.height, pixel);
    }
    return result;
}

std::optional<std::string> encode(const Picture &picture)
{
    const Coder encoder(tjInitCompress(), tjDestroy);
    unsigned char *bytes = nullptr;
    unsigned long size = 0;
    const bool done = encoder
        && tjCompress2(encoder.get(), picture.pixels.data(), picture.width, 0, picture.height, TJPF_RGB,
                       &bytes, &size, TJSAMP_420, quality, 0)
            == 0;
    const std::unique_ptr<unsigned char, void (*)(unsigned char *)> owner(bytes, tjFree);
    return done ? std::optional(std::string(bytes, bytes + size)) : std::nullopt;
}

} // namespace

std::optional<std::string> jpegThumbnail(std::string_view jpeg)
{
    const std::optional<Picture> picture = decode(jpeg);
    return picture ? encode(shrunk(*picture)) : std::nullopt;
}

} // namespace wexel::receiver
