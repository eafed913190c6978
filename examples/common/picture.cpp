// picture.cpp - through libspng: libpng's simplified interface would bend 16-bit samples to linear
// light, and its other one returns by longjmp. All kinds of PNG are decoded to red, green, blue and
// alpha, of which the channels are kept that the file has.
#include "picture.h"

#include "program.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <spng.h>

namespace
{

constexpr std::int64_t mostPixels = std::int64_t{1} << 26;

using Context = std::unique_ptr<spng_ctx, decltype(&spng_ctx_free)>;

Context context(int flags)
{
    Context made(spng_ctx_new(flags), &spng_ctx_free);
    return made ? std::move(made) : throw std::bad_alloc();
}

// Every stride-th value of the decoded ones, and those beside it, that the picture keeps.
template <typename Sample>
void keepChannels(const std::vector<std::byte>& decoded, Picture& picture)
{
    const auto* rgba = reinterpret_cast<const Sample*>(decoded.data());
    for (std::size_t i = 0; i < decoded.size() / sizeof(Sample); i += 4) {
        picture.samples.insert(picture.samples.end(), rgba + i, rgba + i + picture.colors());
        if (picture.channels % 2 == 0)
            picture.samples.push_back(rgba[i + 3]);
    }
}

} // namespace

Picture readPicture(const std::string& path)
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"),
                                                               std::fclose);
    if (!file)
        throw Failure("cannot read '" + path + "': " + std::strerror(errno));
    const auto expectDone = [&](int error) {
        if (error == SPNG_EMEM)
            throw std::bad_alloc();
        if (error != 0)
            throw Failure("'" + path + "' is no complete PNG: " + spng_strerror(error));
    };
    const Context png = context(0);
    expectDone(spng_set_png_file(png.get(), file.get()));
    spng_ihdr header = {};
    expectDone(spng_get_ihdr(png.get(), &header));
    if (static_cast<std::int64_t>(header.width) * header.height > mostPixels)
        throw Failure("'" + path + "': " + std::to_string(header.width) + " x " +
                      std::to_string(header.height) + " pixels are more than the " +
                      std::to_string(mostPixels) + " that can be handled");

    const bool isDeep = header.bit_depth == 16;
    const int format = isDeep ? SPNG_FMT_RGBA16 : SPNG_FMT_RGBA8;
    std::size_t size = 0;
    expectDone(spng_decoded_image_size(png.get(), format, &size));
    std::vector<std::byte> decoded(size);
    expectDone(spng_decode_image(png.get(), decoded.data(), size, format, SPNG_DECODE_TRNS));
    expectDone(spng_decode_chunks(png.get()));

    spng_trns transparent = {};
    const bool hasAlpha = (header.color_type & SPNG_COLOR_TYPE_GRAYSCALE_ALPHA) != 0 ||
                          spng_get_trns(png.get(), &transparent) == 0;
    const bool isColor = (header.color_type & SPNG_COLOR_TYPE_TRUECOLOR) != 0;
    Picture picture = {static_cast<int>(header.width),
                       static_cast<int>(header.height),
                       (isColor ? 3 : 1) + (hasAlpha ? 1 : 0),
                       isDeep ? 16 : 8,
                       {}};
    if (isDeep)
        keepChannels<std::uint16_t>(decoded, picture);
    else
        keepChannels<std::uint8_t>(decoded, picture);
    return picture;
}

void writePicture(PartFile& file, const Picture& picture)
{
    constexpr std::uint8_t types[] = {SPNG_COLOR_TYPE_GRAYSCALE, SPNG_COLOR_TYPE_GRAYSCALE_ALPHA,
                                      SPNG_COLOR_TYPE_TRUECOLOR, SPNG_COLOR_TYPE_TRUECOLOR_ALPHA};
    spng_ihdr header = {};
    header.width = static_cast<std::uint32_t>(picture.width);
    header.height = static_cast<std::uint32_t>(picture.height);
    header.bit_depth = static_cast<std::uint8_t>(picture.depth);
    header.color_type = types[picture.channels - 1];
    std::vector<std::uint8_t> bytes;
    if (picture.depth == 8)
        bytes.assign(picture.samples.begin(), picture.samples.end());
    const void* const data =
        picture.depth == 8 ? static_cast<const void*>(bytes.data()) : picture.samples.data();
    const std::size_t size = picture.samples.size() * (picture.depth / 8);

    const Context png = context(SPNG_CTX_ENCODER);
    int error = spng_set_png_file(png.get(), file.stream());
    if (error == 0)
        error = spng_set_ihdr(png.get(), &header);
    if (error == 0)
        error = spng_encode_image(png.get(), data, size, SPNG_FMT_PNG, SPNG_ENCODE_FINALIZE);
    if (error != 0)
        file.fail(spng_strerror(error));
    if (std::fflush(file.stream()) != 0)
        file.fail("the file could not be written");
}

void printPicture(const std::string& path, const Picture& picture)
{
    std::printf("picture        %s: %d x %d pixels, %d-bit %s%s\n", printable(path).c_str(),
                picture.width, picture.height, picture.depth,
                picture.colors() == 1 ? "grey" : "colour",
                picture.channels % 2 == 0 ? " and alpha" : "");
}

Comparison compare(const Picture& original, const Picture& rebuilt)
{
    Comparison comparison;
    std::int64_t squares = 0, count = 0; // 2^26 pixels of 3 x 32 bits fit
    for (std::size_t i = 0; i < original.samples.size(); ++i) {
        if (!original.isColor(i))
            continue;
        const int difference = std::abs(rebuilt.samples[i] - original.samples[i]);
        squares += static_cast<std::int64_t>(difference) * difference;
        comparison.largest = std::max(comparison.largest, difference);
        ++count;
    }
    comparison.meanSquare = static_cast<double>(squares) / static_cast<double>(count);
    return comparison;
}

void printPeakRatio(const Comparison& comparison, const Picture& picture, const char* ifEqual)
{
    const double peak = picture.peak();
    if (comparison.meanSquare == 0)
        std::printf("PSNR           infinite: %s\n", ifEqual);
    else
        std::printf("PSNR           %.2f dB\n",
                    10 * std::log10(peak * peak / comparison.meanSquare));
}
