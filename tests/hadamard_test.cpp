// hadamard_test.cpp - the hadamard example does its job on real files: all coefficients rebuild a
// picture exactly, few of them rebuild what they carry, and the numbers printed are those of the
// two files.
//
// HADAMARD_PROGRAM is the program's path.
#include "png_file.h"
#include "program_test.h"

#include <algorithm>
#include <bit>
#include <numeric>
#include <random>

namespace
{

using namespace rvn::tests;

// With many extremes, where rounding could leave the range.
PngImage noise(PngImage image)
{
    std::mt19937 generator(image.width);
    image.bytes.resize(PNG_IMAGE_SIZE(image));
    for (std::uint8_t& byte : image.bytes)
        byte =
            static_cast<std::uint8_t>(std::clamp(static_cast<int>(generator() % 400) - 72, 0, 255));
    return image;
}

// The error power that is left when a grey picture of 64 x 64 keeps its largest coefficients, all
// computed as the definition says: signs are (-1)^(number of ones in the bits of i AND j).
double droppedPower(const PngImage& image, unsigned length, std::ptrdiff_t kept)
{
    std::vector<double> squares;
    for (unsigned block = 0; block < 64 * 64; block += length * length)
        for (unsigned i = 0; i < length * length; ++i) {
            const unsigned left = block / length % 64, top = block / length / 64 * length;
            double sum = 0;
            for (unsigned j = 0; j < length * length; ++j)
                sum += (image.bytes[(top + j / length) * 64 + left + j % length] - 128) *
                       (std::popcount(i & j) % 2 == 0 ? 1 : -1);
            squares.push_back(sum * sum / (length * length));
        }
    std::ranges::sort(squares);
    return std::accumulate(squares.begin(), squares.end() - kept, 0.0) / (64 * 64);
}

class Hadamard : public ProgramTest
{
protected:
    Hadamard() : ProgramTest(HADAMARD_PROGRAM) {}

    // The result is in out.png.
    RunResult rebuild(const PngImage& image, int order, double share) const
    {
        image.write(path("in.png"));
        return run("in.png -o out.png -b " + std::to_string(order) + " -k " +
                   std::to_string(share));
    }
};

TEST_F(Hadamard, RebuildsExactlyOrAsWellAsItPrints)
{
    // The last: coefficients of the picture in whole blocks.
    const std::tuple<PngImage, int, double, int> cases[] = {
        {{1, 1, PNG_FORMAT_RGB}, 7, 1, 128 * 128 * 3},
        {{600, 20, PNG_FORMAT_LINEAR_RGB}, 10, 1, 1024 * 1024 * 3},

        {{40, 9, PNG_FORMAT_LINEAR_Y_ALPHA}, 2, 1, 40 * 12},
        {{77, 50, PNG_FORMAT_RGB}, 4, 0.25, 80 * 64 * 3},
        {{77, 50, PNG_FORMAT_RGBA}, 2, 0.03, 80 * 52 * 3},
        {{77, 50, PNG_FORMAT_LINEAR_Y}, 5, 0.07, 96 * 64}};
    for (const auto& [kind, order, share, total] : cases) {
        const RunResult result = rebuild(noise(kind), order, share);
        const auto before = PngImage::read(path("in.png")), after = PngImage::read(path("out.png"));
        ASSERT_TRUE(after.format == kind.format && after.bytes.size() == before.bytes.size());
        const bool isDeep = (kind.format & PNG_FORMAT_FLAG_LINEAR) != 0;
        double squares = 0; // alpha adds none: it stays as it is
        int largest = 0;
        for (std::size_t i = 0; i < before.bytes.size(); i += isDeep ? 2 : 1) {
            const int error = before.bytes[i] - after.bytes[i] +
                              (isDeep ? 256 * (before.bytes[i + 1] - after.bytes[i + 1]) : 0);
            largest = std::max(largest, std::abs(error));
            squares += std::pow(error, 2);
        }
        const double samples =
            kind.width * kind.height * ((kind.format & PNG_FORMAT_FLAG_COLOR) != 0 ? 3 : 1);
        const double peak = isDeep ? 65535 : 255;
        EXPECT_EQ(largest == 0, share == 1);
        EXPECT_EQ(result.out.find("rebuilt exactly") != std::string::npos, share == 1);
        if (share < 1) {
            EXPECT_NEAR(result.number("PSNR +([0-9.]+) dB"),
                        10 * std::log10(samples * peak * peak / squares), 0.01);
        }
        EXPECT_EQ(result.number("largest error +([0-9]+) of"), largest);
        EXPECT_EQ(result.number("kept +([0-9]+)"), std::lround(share * total));
        EXPECT_EQ(result.number("kept +[0-9]+ of ([0-9]+)"), total);
        result.expectShare();
        result.expectSpeed(1e6);
    }
}

TEST_F(Hadamard, KeepsTheLargestCoefficients)
{
    PngImage image = {64, 64, PNG_FORMAT_GRAY}, flat = {21, 13, PNG_FORMAT_RGB};
    for (int i = 0; i < 64 * 64; ++i)
        image.bytes.push_back(static_cast<std::uint8_t>(
            128 + 60 * std::sin(i % 64 / 31.0) + 50 * std::cos(i / 64 / 9.0) + i * i / 31 % 16));
    for (const int order : {1, 3, 5})
        for (const double share : {0.5, 0.05, 0.002}) {
            const double power = // rounded to whole numbers
                droppedPower(image, 1u << order, std::lround(share * 64 * 64)) + 1.0 / 12;
            EXPECT_NEAR(rebuild(image, order, share).number("PSNR +([0-9.]+) dB"),
                        10 * std::log10(255 * 255 / power), 0.15);
        }
    // Blocks beyond the edges repeat the last column and row: what is flat stays flat.
    for (int i = 0; i < 21 * 13 * 3; ++i)
        flat.bytes.push_back(
            static_cast<std::uint8_t>(i / 3 % 21 / 8 * 70 + i / 63 / 8 * 51 + i % 3 * 20));
    EXPECT_EQ(rebuild(flat, 3, 1.0 / 64).number("largest error +([0-9]+)"), 0);
}

TEST_F(Hadamard, RefusesBadInputInOneLine)
{
    noise({90, 70, PNG_FORMAT_RGB}).write(path("good.png"));
    noise({40000, 2, PNG_FORMAT_GRAY}).write(path("wide.png"));
    const std::string good = content("good.png");
    // The checksum before the last chunk.
    put("damaged.png", std::string(good).replace(good.size() - 16, 4, "text"));
    expectRefusals({{"", "PICTURE is required"},
                    {"-b 14 good.png", "1 to 13"},
                    {"-k nan good.png", "above 0 to 1"},
                    {"$'two\\nlines.png'", "No such file"},
                    {"damaged.png", "no complete PNG"},
                    {"-b 13 wide.png", "8192 x 8192"},
                    {"good.png -o good.png", "is the input"}});
    EXPECT_EQ(content("good.png"), good);
    expectOldFilesKept("good.png -o older.png", 1, {"older.png"});
    expectHelp({"--block", "--keep"});
}

} // namespace
