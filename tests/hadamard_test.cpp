// hadamard_test.cpp - the hadamard example does its job on real files: all coefficients rebuild a
// picture exactly, few of them rebuild what they carry, and the numbers printed are those of the
// two files.
//
// The program runs on pictures made here, and its pictures are read back with libpng's high-level
// interface, which it does not use itself. HADAMARD_PROGRAM is the program's path.
#include "program_test.h"

#include <gtest/gtest.h>
#include <png.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <random>
#include <sstream>
#include <zlib.h>

namespace
{

using rvn::tests::RunResult;

struct Kind {
    int colorType, depth;

    bool operator==(const Kind&) const = default;
};
constexpr Kind grey8 = {PNG_COLOR_TYPE_GRAY, 8};
constexpr Kind color8 = {PNG_COLOR_TYPE_RGB, 8};

struct Image {
    int width = 0, height = 0;
    Kind kind = grey8;
    std::vector<std::uint8_t> bytes; // of the samples, rows packed as in the file

    bool operator==(const Image&) const = default;

    int channels() const
    {
        const int colors = (kind.colorType & PNG_COLOR_MASK_COLOR) != 0 ? 3 : 1;
        const bool palette = kind.colorType == PNG_COLOR_TYPE_PALETTE;
        return (palette ? 1 : colors) + ((kind.colorType & PNG_COLOR_MASK_ALPHA) != 0);
    }
    std::size_t rowBytes() const
    {
        return static_cast<std::size_t>((width * channels() * kind.depth + 7) / 8);
    }
    // The samples of the colours, without alpha; for 8 and 16 bits.
    std::vector<int> colors() const
    {
        std::vector<int> samples;
        const auto size = static_cast<std::size_t>(kind.depth / 8);
        const auto step = static_cast<std::size_t>(channels());
        const std::size_t used = step - ((kind.colorType & PNG_COLOR_MASK_ALPHA) != 0);
        for (std::size_t i = 0; i < bytes.size() / size; ++i)
            if (i % step < used)
                samples.push_back(size == 1 ? bytes[i] : bytes[2 * i] << 8 | bytes[2 * i + 1]);
        return samples;
    }
};

Image noise(int width, int height, Kind kind)
{
    Image image = {width, height, kind, {}};
    image.bytes.resize(image.rowBytes() * static_cast<std::size_t>(height));
    std::mt19937 generator(static_cast<unsigned>(width));
    for (std::uint8_t& byte : image.bytes) // with many extremes, where rounding could leave range
        byte = static_cast<std::uint8_t>(std::clamp(static_cast<int>(generator() % 400), 72, 327) -
                                         72);
    return image;
}

// Waves with a little noise; the high bytes of 16-bit samples.
Image smooth(int width, int height, Kind kind)
{
    Image image = noise(width, height, kind);
    const auto step = static_cast<std::size_t>(kind.depth / 8);
    for (std::size_t i = 0; i < image.bytes.size(); i += step) {
        const double x = static_cast<double>(i % image.rowBytes());
        const double y = static_cast<double>(i / image.rowBytes());
        image.bytes[i] = static_cast<std::uint8_t>(
            std::lround(128 + 60 * std::sin(x / 31) + 50 * std::cos(y / 9) + image.bytes[i] % 16));
    }
    return image;
}

// (-1)^(number of ones in the bits of i AND j)
int walsh(int i, int j)
{
    return std::popcount(static_cast<unsigned>(i & j)) % 2 == 0 ? 1 : -1;
}

// The error power that is left when a grey picture keeps its largest coefficients, all of them
// computed as the definition says.
double droppedPower(const Image& image, int length, std::size_t kept)
{
    std::vector<double> squares;
    for (int top = 0; top < image.height; top += length)
        for (int left = 0; left < image.width; left += length)
            for (int i = 0; i < length * length; ++i) {
                double sum = 0;
                for (int j = 0; j < length * length; ++j) {
                    const int pixel = (top + j / length) * image.width + left + j % length;
                    sum += (image.bytes[static_cast<std::size_t>(pixel)] - 128) * walsh(i, j);
                }
                squares.push_back(sum * sum / (length * length));
            }
    std::ranges::sort(squares, std::greater<>());
    double power = 0;
    for (std::size_t i = kept; i < squares.size(); ++i)
        power += squares[i];
    return power / static_cast<double>(squares.size());
}

double psnr(const RunResult& result)
{
    return std::stod(result.out.find("rebuilt exactly") != std::string::npos
                         ? "inf"
                         : result.found("PSNR +([0-9.]+) dB"));
}

class Hadamard : public rvn::tests::ProgramTest
{
protected:
    Hadamard() : ProgramTest(HADAMARD_PROGRAM) {}

    void write(const std::string& name, const Image& image, int interlace = 0) const
    {
        std::FILE* file = std::fopen(path(name).c_str(), "wb");
        png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
        png_infop info = png_create_info_struct(png);
        png_init_io(png, file);
        png_set_IHDR(png, info, static_cast<png_uint_32>(image.width),
                     static_cast<png_uint_32>(image.height), image.kind.depth, image.kind.colorType,
                     interlace, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
        const png_color palette[] = {{250, 3, 90}, {0, 255, 7}, {31, 41, 59}, {255, 255, 0}};
        const png_byte alpha[] = {255, 0, 77, 200};
        if (image.kind.colorType == PNG_COLOR_TYPE_PALETTE) {
            png_set_PLTE(png, info, palette, 4);
            png_set_tRNS(png, info, alpha, 4, nullptr);
        }
        std::vector<std::uint8_t> bytes = image.bytes;
        std::vector<png_bytep> rows;
        for (std::size_t i = 0; i < bytes.size(); i += image.rowBytes())
            rows.push_back(&bytes[i]);
        png_set_rows(png, info, rows.data());
        png_write_png(png, info, PNG_TRANSFORM_IDENTITY, nullptr);
        png_destroy_write_struct(&png, &info);
        std::fclose(file);
    }

    // Palettes and samples of less than 8 bits come expanded.
    Image read(const std::string& name) const
    {
        std::FILE* file = std::fopen(path(name).c_str(), "rb");
        if (!file) {
            ADD_FAILURE() << name << " is not there";
            return {};
        }
        png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
        png_infop info = png_create_info_struct(png);
        png_init_io(png, file);
        png_read_png(png, info, PNG_TRANSFORM_EXPAND, nullptr);
        Image image = {static_cast<int>(png_get_image_width(png, info)),
                       static_cast<int>(png_get_image_height(png, info)),
                       {png_get_color_type(png, info), png_get_bit_depth(png, info)},
                       {}};
        for (int y = 0; y < image.height; ++y) {
            const png_bytep row = png_get_rows(png, info)[y];
            image.bytes.insert(image.bytes.end(), row, row + image.rowBytes());
        }
        png_destroy_read_struct(&png, &info, nullptr);
        std::fclose(file);
        return image;
    }

    // Runs it on a picture; the result is then in out.png.
    RunResult rebuild(const Image& image, int order, double share) const
    {
        write("in.png", image);
        std::ostringstream arguments;
        arguments.precision(17);
        arguments << "in.png -o out.png -b " << order << " -k " << share;
        const RunResult result = run(arguments.str());
        EXPECT_EQ(result.status, 0) << arguments.str() << '\n' << result.err;
        return result;
    }
};

TEST_F(Hadamard, AllCoefficientsRebuildThePictureExactly)
{
    const struct {
        int width, height, colorType, depth, order, interlace;
    } cases[] = {
        {1, 1, PNG_COLOR_TYPE_RGB, 8, 7, 0},        {37, 101, PNG_COLOR_TYPE_GRAY, 16, 3, 1},
        {101, 37, PNG_COLOR_TYPE_RGB, 8, 1, 1},     {600, 20, PNG_COLOR_TYPE_RGB, 16, 10, 0},
        {40, 9, PNG_COLOR_TYPE_RGB_ALPHA, 8, 3, 0}, {40, 9, PNG_COLOR_TYPE_GRAY_ALPHA, 16, 2, 1},
        {41, 6, PNG_COLOR_TYPE_GRAY, 2, 3, 0},      {43, 7, PNG_COLOR_TYPE_PALETTE, 2, 3, 0},
    };
    for (const auto& c : cases) {
        write("in.png", noise(c.width, c.height, {c.colorType, c.depth}), c.interlace);
        const RunResult result = run("in.png -o out.png -k 1 -b " + std::to_string(c.order));
        ASSERT_EQ(result.status, 0) << result.err;
        EXPECT_TRUE(read("out.png") == read("in.png")) << c.width << ", order " << c.order;
        EXPECT_EQ(psnr(result), INFINITY);
        EXPECT_EQ(result.number("largest error +([0-9]+) of"), 0);
    }
}

// Blocks beyond the edges repeat the last column and row: what is flat in the picture stays flat.
TEST_F(Hadamard, FlatBlocksOfAnyPictureNeedOneCoefficientAPlane)
{
    for (const Kind kind : {grey8, color8}) {
        Image image = {21, 13, kind, {}};
        for (int y = 0; y < image.height; ++y)
            for (int x = 0; x < image.width; ++x)
                for (int i = 0; i < image.channels(); ++i)
                    image.bytes.push_back(
                        static_cast<std::uint8_t>(x / 8 * 70 + y / 8 * 51 + i * 20));
        EXPECT_EQ(psnr(rebuild(image, 3, 1.0 / 64)), INFINITY);
        EXPECT_TRUE(read("out.png") == image);
    }
}

TEST_F(Hadamard, PrintsWhatTheTwoPicturesTell)
{
    const struct {
        int colorType, depth, order;
        double share;
        int total; // coefficients of 77 x 50 pixels in whole blocks
        Image (*picture)(int, int, Kind);
    } cases[] = {
        {PNG_COLOR_TYPE_RGB, 8, 4, 0.25, 80 * 64 * 3, noise},
        {PNG_COLOR_TYPE_RGB_ALPHA, 8, 2, 0.03, 80 * 52 * 3, smooth},
        {PNG_COLOR_TYPE_GRAY_ALPHA, 16, 5, 0.07, 96 * 64, noise},
    };
    for (const auto& c : cases) {
        const Image image = c.picture(77, 50, {c.colorType, c.depth});
        const RunResult result = rebuild(image, c.order, c.share);
        const std::vector<int> before = image.colors();
        const std::vector<int> after = read("out.png").colors();
        ASSERT_EQ(before.size(), after.size());
        double squares = 0;
        int largest = 0;
        for (std::size_t i = 0; i < before.size(); ++i) {
            largest = std::max(largest, std::abs(before[i] - after[i]));
            squares += std::pow(before[i] - after[i], 2);
        }
        const int peak = c.depth == 8 ? 255 : 65535;
        const double rms = std::sqrt(squares / static_cast<double>(before.size()));
        EXPECT_NEAR(psnr(result), 20 * std::log10(peak / rms), 0.01) << result.out;
        EXPECT_EQ(result.found("largest error +(.*)"),
                  std::to_string(largest) + " of " + std::to_string(peak));

        const long kept = std::lround(c.share * c.total);
        EXPECT_EQ(result.found("kept +(.*) coefficients"),
                  std::to_string(kept) + " of " + std::to_string(c.total));
        result.expectShare();
        result.expectSpeed(1e6);
    }
}

TEST_F(Hadamard, KeepsTheLargestCoefficients)
{
    const Image image = smooth(64, 64, grey8);
    for (const int order : {1, 3, 5})
        for (const double share : {0.5, 0.05, 0.002}) {
            const double decibels = psnr(rebuild(image, order, share));
            const auto kept = static_cast<std::size_t>(std::lround(share * 64 * 64));
            const double power =
                droppedPower(image, 1 << order, kept) + 1.0 / 12; // rounded to whole numbers
            EXPECT_NEAR(decibels, 10 * std::log10(255 * 255 / power), 0.15) << order << share;
        }
}

TEST_F(Hadamard, RefusesBadInputInOneLine)
{
    write("good.png", noise(90, 70, color8));
    const std::string good = content("good.png");
    put("text.png", "a text, not a picture");
    put("half.png", good.substr(0, good.size() / 2));
    std::string flipped = good;
    flipped[good.size() - 13] ^= 1; // the checksum before the last chunk
    put("flipped.png", flipped);
    std::string tall = good;
    tall.replace(20, 4, std::string("\0\0\1\0", 4));
    const auto crc = crc32(0, reinterpret_cast<const Bytef*>(&tall[12]), 17);
    for (std::size_t i = 0; i < 4; ++i)
        tall[29 + i] = static_cast<char>(crc >> (24 - 8 * i));
    put("tall.png", tall);
    write("wide.png", noise(40000, 2, grey8));
    expectRefusals({
        {"", "PICTURE is required"},
        {"--fast good.png", "--fast"},
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
    expectHelp({"--help"});
}

} // namespace
