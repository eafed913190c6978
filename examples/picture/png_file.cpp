// png_file.cpp - the picture's bytes through libpng's simplified interface.
#include "png_file.h"

#include <png.h>

namespace examples
{

void writePng(PartFile& file, const Canvas& canvas)
{
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(canvas.width());
    image.height = static_cast<png_uint_32>(canvas.height());
    image.format = PNG_FORMAT_RGB;
    if (!png_image_write_to_stdio(&image, file.stream(), 0, canvas.rgb().data(), 0, nullptr))
        file.fail(image.message);
    if (std::fflush(file.stream()) != 0)
        file.fail("the file could not be written");
}

} // namespace examples
