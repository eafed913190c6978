// png_file.h - pictures written and read back by libpng, which the programs do not use.
#pragma once

#include <gtest/gtest.h>

#include <png.h>
#include <string>
#include <vector>

namespace rvn::tests
{

struct PngImage {
    unsigned width, height;
    png_uint_32 format; // of libpng's simplified interface; its linear formats have 16 bits
    std::vector<std::uint8_t> bytes = {};

    bool operator==(const PngImage&) const = default;

    // Writes the picture, or reads another one, in the format of its file.
    void write(const std::string& path) const
    {
        png_image png = {};
        png.version = PNG_IMAGE_VERSION;
        png.width = width;
        png.height = height;
        png.format = format;
        EXPECT_TRUE(png_image_write_to_file(&png, path.c_str(), 0, bytes.data(), 0, nullptr));
    }
    static PngImage read(const std::string& path)
    {
        png_image png = {};
        png.version = PNG_IMAGE_VERSION;
        EXPECT_TRUE(png_image_begin_read_from_file(&png, path.c_str())) << png.message;
        PngImage image = {png.width, png.height, png.format};
        image.bytes.resize(PNG_IMAGE_SIZE(png));
        EXPECT_TRUE(png_image_finish_read(&png, nullptr, image.bytes.data(), 0, nullptr));
        return image;
    }
};

} // namespace rvn::tests
