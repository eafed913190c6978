// Pictures that a program drew, read back.
#pragma once

#include "canvas.h"

#include <gtest/gtest.h>
#include <png.h>

#include <cstdint>
#include <string>
#include <vector>

namespace rvn::tests
{

struct Image {
    int width = 0, height = 0;
    std::vector<std::uint8_t> rgb;

    int brightness(int x, int y) const
    {
        const auto pixel = 3 * static_cast<std::size_t>(y * width + x);
        return rgb[pixel] + rgb[pixel + 1] + rgb[pixel + 2];
    }
    int brightestRow(examples::Rectangle area, int x) const
    {
        int best = area.top;
        for (int y = area.top; y < area.bottom(); ++y)
            if (brightness(x, y) > brightness(x, best))
                best = y;
        return best;
    }
};

inline Image readImage(const std::string& path)
{
    png_image png = {};
    png.version = PNG_IMAGE_VERSION;
    Image image;
    if (!png_image_begin_read_from_file(&png, path.c_str())) {
        ADD_FAILURE() << path << ": " << png.message;
        return image;
    }
    png.format = PNG_FORMAT_RGB;
    image.width = static_cast<int>(png.width);
    image.height = static_cast<int>(png.height);
    image.rgb.resize(PNG_IMAGE_SIZE(png));
    EXPECT_TRUE(png_image_finish_read(&png, nullptr, image.rgb.data(), 0, nullptr));
    return image;
}

} // namespace rvn::tests
