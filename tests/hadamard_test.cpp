// hadamard_test.cpp - the hadamard example does its job on real files: all coefficients rebuild a
// picture exactly, few of them rebuild what they carry, and the numbers printed are those of the
// two files.
//
// Pictures are written and read back by libpng, which the program does not use. HADAMARD_PROGRAM is
// the program's path.
#include "program_test.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <memory>
#include <png.h>
#include <random>
#include <zlib.h>

namespace
{

using namespace rvn::tests;

struct Image {
    unsigned width = 0, height = 0;
    int colorType = PNG_COLOR_TYPE_GRAY, depth = 8, interlace = 0;
    std::vector<std::uint8_t> bytes = {}; // rows packed as in the file

    bool operator==(const Image& other) const
    {
        return std::tie(width, height, colorType, depth, bytes) ==
               std::tie(other.width, other.height, other.colorType, other.depth, other.bytes);
    }
    bool hasAlpha() const { return (colorType & PNG_COLOR_MASK_ALPHA) != 0; }
    unsigned channels() const
    {
        const bool isColor = (colorType & PNG_COLOR_MASK_COLOR) != 0;
        return (isColor && colorType != PNG_COLOR_TYPE_PALETTE ? 3 : 1) + hasAlpha();
    }
    std::size_t rowBytes() const
    {
        return (width * channels() * static_cast<unsigned>(depth) + 7) / 8;
    }

    // The samples of the colours, without alpha; for 8 and 16 bits.
    std::vector<int> colors() const
    {
        std::vector<int> samples;
        const std::size_t size = static_cast<std::size_t>(depth / 8);
        for (std::size_t i = 0; i < bytes.size() / size; ++i)
            if (i % channels() < channels() - hasAlpha())
                samples.push_back(size == 1 ? bytes[i] : bytes[2 * i] << 8 | bytes[2 * i + 1]);
        return samples;
    }
};

// With many extremes, where rounding could leave the range.
Image noise(Image image)
{
    std::mt19937 generator(image.width);
    image.bytes.resize(image.rowBytes() * image.height);
    for (std::uint8_t& byte : image.bytes)
        byte = static_cast<std::uint8_t>(std::clamp(static_cast<int>(generator() % 400), 72, 327) -
                                         72);
    return image;
}

// Waves with a little noise; the high bytes of 16-bit samples.
Image smooth(Image image)
{
    image = noise(image);
    for (std::size_t i = 0; i < image.bytes.size(); i += static_cast<std::size_t>(image.depth / 8))
        image.bytes[i] = static_cast<std::uint8_t>(
            128 + 60 * std::sin(static_cast<double>(i % image.rowBytes()) / 31) +
            50 * std::cos(static_cast<double>(i / image.rowBytes()) / 9) + image.bytes[i] % 16);
    return image;
}

// The error power that is left when a grey picture keeps its largest coefficients, all of them
// computed as the definition says: signs are (-1)^(number of ones in the bits of i AND j).
double droppedPower(const Image& image, unsigned length, std::size_t kept)
{
    std::vector<double> squares;
    for (unsigned top = 0; top < image.height; top += length)
        for (unsigned left = 0; left < image.width; left += length)
            for (unsigned i = 0; i < length * length; ++i) {
                double sum = 0;
                for (unsigned j = 0; j < length * length; ++j) {
                    const unsigned pixel = (top + j / length) * image.width + left + j % length;
                    sum += (image.bytes[pixel] - 128) * (std::popcount(i & j) % 2 == 0 ? 1 : -1);
                }
                squares.push_back(sum * sum / (length * length));
            }
    std::ranges::sort(squares, std::greater<>());
    double power = 0;
    for (std::size_t i = kept; i < squares.size(); ++i)
        power += squares[i];
    return power / static_cast<double>(squares.size());
}

class Hadamard : public ProgramTest
{
protected:
    Hadamard() : ProgramTest(HADAMARD_PROGRAM) {}

    void write(const std::string& name, Image image) const
    {
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(
            std::fopen(path(name).c_str(), "wb"), std::fclose);
        png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
        png_infop info = png_create_info_struct(png);
        png_init_io(png, file.get());
        png_set_IHDR(png, info, image.width, image.height, image.depth, image.colorType,
                     image.interlace, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
        const png_color palette[] = {{250, 3, 90}, {0, 255, 7}, {31, 41, 59}, {255, 255, 0}};
        const png_byte alpha[] = {255, 0, 77, 200};
        if (image.colorType == PNG_COLOR_TYPE_PALETTE) {
            png_set_PLTE(png, info, palette, 4);
            png_set_tRNS(png, info, alpha, 4, nullptr);
        }
        std::vector<png_bytep> rows;
        for (std::size_t i = 0; i < image.bytes.size(); i += image.rowBytes())
            rows.push_back(&image.bytes[i]);
        png_set_rows(png, info, rows.data());
        png_write_png(png, info, PNG_TRANSFORM_IDENTITY, nullptr);
        png_destroy_write_struct(&png, &info);
    }

    // Palettes and samples of less than 8 bits come expanded.
    Image read(const std::string& name) const
    {
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(
            std::fopen(path(name).c_str(), "rb"), std::fclose);
        png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
        png_infop info = png_create_info_struct(png);
        png_init_io(png, file.get());
        png_read_png(png, info, PNG_TRANSFORM_EXPAND, nullptr);
        Image image = {png_get_image_width(png, info), png_get_image_height(png, info),
                       png_get_color_type(png, info), png_get_bit_depth(png, info)};
        for (unsigned y = 0; y < image.height; ++y) {
            const png_bytep row = png_get_rows(png, info)[y];
            image.bytes.insert(image.bytes.end(), row, row + image.rowBytes());
        }
        png_destroy_read_struct(&png, &info, nullptr);
        return image;
    }

    // Runs it on a picture; the result is then in out.png. Infinite for equal pictures.
    double rebuild(const Image& image, int order, double share)
    {
        write("in.png", image);
        std::ostringstream arguments;
        arguments.precision(17);
        arguments << "in.png -o out.png -b " << order << " -k " << share;
        result_ = run(arguments.str());
        EXPECT_EQ(result_.status, 0) << arguments.str() << '\n' << result_.err;
        if (result_.out.find("rebuilt exactly") != std::string::npos)
            return INFINITY;
        return result_.number("PSNR +([0-9.]+) dB");
    }

    RunResult result_;
};

TEST_F(Hadamard, AllCoefficientsRebuildEveryKindOfPictureExactly)
{
    const std::pair<Image, int> cases[] = {
        {{1, 1, PNG_COLOR_TYPE_RGB}, 7},          {{37, 101, PNG_COLOR_TYPE_GRAY, 16, 1}, 3},
        {{101, 37, PNG_COLOR_TYPE_RGB, 8, 1}, 1}, {{600, 20, PNG_COLOR_TYPE_RGB, 16}, 10},
        {{40, 9, PNG_COLOR_TYPE_RGB_ALPHA}, 3},   {{40, 9, PNG_COLOR_TYPE_GRAY_ALPHA, 16, 1}, 2},
        {{41, 6, PNG_COLOR_TYPE_GRAY, 2}, 3},     {{43, 7, PNG_COLOR_TYPE_PALETTE, 2}, 3}};
    for (const auto& [image, order] : cases) {
        EXPECT_EQ(rebuild(noise(image), order, 1), INFINITY);
        EXPECT_TRUE(read("out.png") == read("in.png")) << image.width << ", order " << order;
        EXPECT_EQ(result_.number("largest error +([0-9]+) of"), 0);
    }
    // Blocks beyond the edges repeat the last column and row: what is flat stays flat.
    for (const int colorType : {PNG_COLOR_TYPE_GRAY, PNG_COLOR_TYPE_RGB}) {
        Image image = {21, 13, colorType};
        for (unsigned i = 0; i < 21 * 13 * image.channels(); ++i) {
            const unsigned x = i / image.channels() % 21, y = i / image.channels() / 21;
            image.bytes.push_back(
                static_cast<std::uint8_t>(x / 8 * 70 + y / 8 * 51 + i % image.channels() * 20));
        }
        EXPECT_EQ(rebuild(image, 3, 1.0 / 64), INFINITY);
        EXPECT_TRUE(read("out.png") == image);
    }
}

TEST_F(Hadamard, PrintsWhatTheTwoPicturesTell)
{
    const struct {
        Image image;
        int order;
        double share;
        int total; // coefficients of 77 x 50 pixels in whole blocks
    } cases[] = {{noise({77, 50, PNG_COLOR_TYPE_RGB}), 4, 0.25, 80 * 64 * 3},
                 {smooth({77, 50, PNG_COLOR_TYPE_RGB_ALPHA}), 2, 0.03, 80 * 52 * 3},
                 {noise({77, 50, PNG_COLOR_TYPE_GRAY_ALPHA, 16}), 5, 0.07, 96 * 64}};
    for (const auto& c : cases) {
        const double decibels = rebuild(c.image, c.order, c.share);
        const std::vector<int> before = c.image.colors(), after = read("out.png").colors();
        ASSERT_EQ(before.size(), after.size());
        double squares = 0;
        int largest = 0;
        for (std::size_t i = 0; i < before.size(); ++i) {
            largest = std::max(largest, std::abs(before[i] - after[i]));
            squares += std::pow(before[i] - after[i], 2);
        }
        const int peak = c.image.depth == 8 ? 255 : 65535;
        const double rms = std::sqrt(squares / static_cast<double>(before.size()));
        EXPECT_NEAR(decibels, 20 * std::log10(peak / rms), 0.01) << result_.out;
        EXPECT_EQ(result_.found("largest error +(.*)"),
                  std::to_string(largest) + " of " + std::to_string(peak));
        EXPECT_EQ(result_.found("kept +(.*) coefficients"),
                  std::to_string(std::lround(c.share * c.total)) + " of " +
                      std::to_string(c.total));
        result_.expectShare();
        result_.expectSpeed(1e6);
    }
}

TEST_F(Hadamard, KeepsTheLargestCoefficients)
{
    const Image image = smooth({64, 64});
    for (const int order : {1, 3, 5})
        for (const double share : {0.5, 0.05, 0.002}) {
            const auto kept = static_cast<std::size_t>(std::lround(share * 64 * 64));
            const double power = // rounded to whole numbers
                droppedPower(image, 1u << order, kept) + 1.0 / 12;
            EXPECT_NEAR(rebuild(image, order, share), 10 * std::log10(255 * 255 / power), 0.15)
                << order << share;
        }
}

TEST_F(Hadamard, RefusesBadInputInOneLine)
{
    write("good.png", noise({90, 70, PNG_COLOR_TYPE_RGB}));
    write("wide.png", noise({40000, 2}));
    const std::string good = content("good.png");
    put("text.png", "a text, not a picture");
    put("half.png", good.substr(0, good.size() / 2));
    std::string flipped = good, tall = good;
    flipped[good.size() - 13] ^= 1; // the checksum before the last chunk
    put("flipped.png", flipped);
    tall.replace(20, 4, std::string("\0\0\1\0", 4));
    const auto crc = crc32(0, reinterpret_cast<const Bytef*>(&tall[12]), 17);
    for (std::size_t i = 0; i < 4; ++i)
        tall[29 + i] = static_cast<char>(crc >> (24 - 8 * i));
    put("tall.png", tall);
    expectRefusals({
        {"", "PICTURE is required"},
        {"-b 14 good.png", "1 to 13"},
        {"-k 1.01 good.png", "above 0 to 1"},
        {"-k nan good.png", "above 0 to 1"},
        {"$'two\\nlines.png'", "No such file"},
        {"text.png", "no complete PNG"},
        {"half.png", "no complete PNG"},
        {"flipped.png", "no complete PNG"},
        {"tall.png", "no complete PNG"},
        {"-b 13 wide.png", "8192 x 8192"},
        {"good.png -o good.png", "is the input"},
        {"good.png -o absent/out.png", "No such file"},
    });
    EXPECT_EQ(content("good.png"), good);
    expectOldFilesKept("good.png -o older.png", 1, {"older.png"});
    expectHelp({"--block", "--keep"});
}

} // namespace
