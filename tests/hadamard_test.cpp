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
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <regex>
#include <sstream>
#include <zlib.h>

namespace
{

namespace fs = std::filesystem;
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

// Half the grey range plus one Walsh pattern, another for every block of length x length.
Image patterns(int length, int across, int down, Kind kind)
{
    Image image = {length * across, length * down, kind, {}};
    for (int y = 0; y < image.height; ++y)
        for (int x = 0; x < image.width; ++x) {
            const int block = y / length * across + x / length;
            const int sign = walsh(x % length, (3 * block + 1) % length) *
                             walsh(y % length, (block + 1) % length);
            for (int i = 0; i < image.channels(); ++i)
                image.bytes.push_back(static_cast<std::uint8_t>(128 + 90 * sign));
        }
    return image;
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
        {1, 1, PNG_COLOR_TYPE_GRAY, 8, 3, 0},         {1, 1, PNG_COLOR_TYPE_RGB, 8, 7, 0},
        {64, 32, PNG_COLOR_TYPE_GRAY, 8, 4, 0},       {37, 101, PNG_COLOR_TYPE_GRAY, 16, 3, 1},
        {101, 37, PNG_COLOR_TYPE_RGB, 8, 1, 1},       {101, 37, PNG_COLOR_TYPE_RGB, 16, 5, 0},
        {19, 300, PNG_COLOR_TYPE_RGB, 8, 8, 0},       {40, 9, PNG_COLOR_TYPE_RGB_ALPHA, 8, 3, 0},
        {40, 9, PNG_COLOR_TYPE_GRAY_ALPHA, 16, 2, 1}, {41, 6, PNG_COLOR_TYPE_GRAY, 2, 3, 0},
        {43, 7, PNG_COLOR_TYPE_PALETTE, 2, 3, 0},     {600, 20, PNG_COLOR_TYPE_RGB, 16, 10, 0},
    };
    for (const auto& c : cases) {
        write("in.png", noise(c.width, c.height, {c.colorType, c.depth}), c.interlace);
        const RunResult result = run("in.png -o out.png -k 1 -b " + std::to_string(c.order));
        ASSERT_EQ(result.status, 0) << result.err;
        const std::string what = result.found("(picture.*)") + ", order " + std::to_string(c.order);
        EXPECT_TRUE(read("out.png") == read("in.png")) << what;
        EXPECT_EQ(psnr(result), INFINITY) << what;
        EXPECT_EQ(result.found("largest error +([0-9]+) of"), "0") << what;
    }
}

TEST_F(Hadamard, OneCoefficientCarriesAWalshPattern)
{
    for (const Kind kind : {grey8, color8})
        for (const int order : {1, 2, 3, 4, 6, 8}) {
            const Image image = patterns(1 << order, 3, 2, kind);
            const double share = 1.0 / (image.channels() << (2 * order));
            EXPECT_EQ(rebuild(image, order, share).found("kept +([0-9]+) of"), "6");
            EXPECT_TRUE(read("out.png") == image) << "order " << order;
            EXPECT_LT(psnr(rebuild(image, order, share / 2)), 15) << "order " << order;
        }
    const Image one = patterns(8, 1, 1, grey8);
    EXPECT_EQ(psnr(rebuild(one, 3, 1e-9)), INFINITY);
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
        {PNG_COLOR_TYPE_GRAY, 8, 3, 0.1, 80 * 56, smooth},
        {PNG_COLOR_TYPE_RGB, 8, 4, 0.25, 80 * 64 * 3, noise},
        {PNG_COLOR_TYPE_RGB_ALPHA, 8, 2, 0.03, 80 * 52 * 3, smooth},
        {PNG_COLOR_TYPE_GRAY_ALPHA, 16, 5, 0.07, 96 * 64, noise},
        {PNG_COLOR_TYPE_RGB, 16, 7, 0.001, 128 * 128 * 3, smooth},
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
        EXPECT_NEAR(std::stod(result.found("share ([^)]+)")), static_cast<double>(kept) / c.total,
                    1e-6);
        EXPECT_EQ(result.found("([0-9]+ x .*)-bit"), "77 x 50 pixels, " + std::to_string(c.depth));
        EXPECT_EQ(result.found("([0-9]+ of length [0-9]+)"),
                  std::to_string((4 * c.total) >> c.order) + " of length " +
                      std::to_string(1 << c.order));
    }
}

TEST_F(Hadamard, KeepsTheLargestCoefficients)
{
    const Image image = smooth(64, 48, grey8);
    double last = INFINITY;
    for (const double share : {0.5, 0.2, 0.05, 0.01, 0.002}) {
        const double decibels = psnr(rebuild(image, 3, share));
        const auto kept = static_cast<std::size_t>(std::lround(share * 64 * 48));
        const double power = droppedPower(image, 8, kept) + 1.0 / 12; // rounded to whole numbers
        EXPECT_NEAR(decibels, 10 * std::log10(255 * 255 / power), 0.15) << share;
        EXPECT_LT(decibels, last) << share;
        last = decibels;
    }
}

TEST_F(Hadamard, RefusesWhatItCannotDoInOneLine)
{
    write("good.png", smooth(90, 70, color8));
    const std::string good = content("good.png");
    const auto sized = [&](const std::string& height) { // four bytes
        std::string bytes = good.substr(0, 20) + height + good.substr(24);
        const auto crc = crc32(0, reinterpret_cast<const Bytef*>(&bytes[12]), 17);
        for (std::size_t i = 0; i < 4; ++i)
            bytes[29 + i] = static_cast<char>(crc >> (24 - 8 * i));
        return bytes;
    };
    put("nothing.png", "");
    put("text.png", "a text, not a picture");
    put("header.png", good.substr(0, 30));
    put("half.png", good.substr(0, good.size() / 2));
    put("endless.png", good.substr(0, good.size() - 12));
    std::string flipped = good;
    flipped[good.size() - 13] ^= 1; // the checksum before the last chunk
    put("flipped.png", flipped);
    put("zero.png", sized(std::string(4, '\0')));
    put("huge.png", sized("\x7f\xff\xff\xff"));
    put("tall.png", sized(std::string("\0\0\1\0", 4)));
    fs::create_directory(path("folder"));
    write("wide.png", noise(40000, 2, grey8));

    const struct {
        std::string arguments;
        int status;
        std::string words, before;
    } cases[] = {
        {"", 2, "no input file", ""},
        {"good.png text.png", 2, "text.png", ""},
        {"--fast good.png", 2, "--fast", ""},
        {"good.png -k", 2, "'-k' needs a value", ""},
        {"-b 0 good.png", 2, "1 to 13", ""},
        {"-b 14 good.png", 2, "1 to 13", ""},
        {"-b 3x good.png", 2, "3x", ""},
        {"-k 0 good.png", 2, "share", ""},
        {"-k 1.01 good.png", 2, "share", ""},
        {"-k nan good.png", 2, "share", ""},
        {"-k 0.1.2 good.png", 2, "share", ""},
        {"-o '' good.png", 2, "empty", ""},
        {"absent.png", 1, "No such file", ""},
        {"$'two\\nlines.png'", 1, "No such file", ""},
        {"folder", 1, "folder", ""},
        {"nothing.png", 1, "not a PNG", ""},
        {"text.png", 1, "not a PNG", ""},
        {"header.png", 1, "ends too early", ""},
        {"half.png", 1, "ends too early", ""},
        {"endless.png", 1, "ends too early", ""},
        {"flipped.png", 1, "CRC", ""},
        {"zero.png", 1, "IHDR", ""},
        {"huge.png", 1, "90 x 2147483647", ""},
        {"tall.png", 1, "not enough", ""},
        {"-b 13 wide.png", 1, "8192 x 8192", ""},
        {"good.png -o good.png", 1, "is the input", ""},
        {"good.png -o folder", 1, "not a plain file", ""},
        {"good.png -o absent/out.png", 1, "No such file", ""},
        {"good.png -o older.png", 1, "File too large", "trap '' XFSZ; ulimit -f 1;"},
    };
    put("older.png", "older");
    put("stdout.txt", "");
    put("stderr.txt", "");
    const auto files = std::distance(fs::directory_iterator(directory_), {});
    for (const auto& c : cases) {
        const RunResult result = run(c.arguments, c.before);
        EXPECT_EQ(result.status, c.status) << c.arguments;
        EXPECT_EQ(result.out, "") << c.arguments;
        EXPECT_TRUE(std::regex_match(result.err, std::regex("hadamard: [^\n]+\n"))) << result.err;
        EXPECT_NE(result.err.find(c.words), std::string::npos) << c.arguments << result.err;
        EXPECT_EQ(std::distance(fs::directory_iterator(directory_), {}), files) << c.arguments;
    }
    EXPECT_EQ(content("good.png"), good);
    EXPECT_EQ(content("older.png"), "older");
    EXPECT_EQ(run("--help").found("^(Usage):"), "Usage");
}

} // namespace
