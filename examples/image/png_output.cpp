// png_output.cpp - writing through libpng, a row at a time.
//
// As in png_input.cpp, what runs between setjmp and an error owns nothing.
#include "png_output.h"

#include <array>
#include <csetjmp>
#include <cstdio>
#include <png.h>

namespace examples
{
namespace
{

constexpr std::array<int, 5> colorTypes = {-1, PNG_COLOR_TYPE_GRAY, PNG_COLOR_TYPE_GRAY_ALPHA,
                                           PNG_COLOR_TYPE_RGB, PNG_COLOR_TYPE_RGB_ALPHA};

using Message = std::array<char, 200>;

[[noreturn]] void onError(png_structp png, png_const_charp text)
{
    auto* message = static_cast<Message*>(png_get_error_ptr(png));
    std::snprintf(message->data(), message->size(), "%s", text);
    png_longjmp(png, 1);
}

void onWarning(png_structp, png_const_charp) {}

// A row's samples as the file has them: bytes, or pairs of them with the high one first.
void packRow(const Picture& picture, const std::uint16_t* samples, png_bytep row)
{
    for (std::size_t i = 0; i < picture.rowSamples(); ++i) {
        if (picture.depth == 16)
            *row++ = static_cast<png_byte>(samples[i] >> 8);
        *row++ = static_cast<png_byte>(samples[i] & 0xff);
    }
}

// The calls of libpng; row has room for the bytes of one row. Returns whether all went well.
bool writeAll(png_structp png, png_infop info, std::FILE* file, const Picture& picture,
              png_bytep row)
{
    if (setjmp(png_jmpbuf(png)))
        return false;
    png_init_io(png, file);
    png_set_user_limits(png, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
    png_set_IHDR(png, info, static_cast<png_uint_32>(picture.width),
                 static_cast<png_uint_32>(picture.height), picture.depth,
                 colorTypes[static_cast<std::size_t>(picture.channels)], PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    for (std::size_t start = 0; start < picture.samples.size(); start += picture.rowSamples()) {
        packRow(picture, &picture.samples[start], row);
        png_write_row(png, row);
    }
    png_write_end(png, info);
    return true;
}

} // namespace

void writePng(PartFile& file, const Picture& picture)
{
    std::vector<png_byte> row(picture.rowSamples() * 2);
    Message message = {};
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, &message, onError, onWarning);
    png_infop info = png ? png_create_info_struct(png) : nullptr;
    const bool written = info && writeAll(png, info, file.stream(), picture, row.data());
    png_destroy_write_struct(&png, &info);
    if (!written)
        file.fail(message[0] != 0 ? message.data() : "not enough memory");
    if (std::fflush(file.stream()) != 0)
        file.fail("the file could not be written");
}

} // namespace examples
