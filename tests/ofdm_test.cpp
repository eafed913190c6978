// ofdm_test.cpp - the ofdm example does its job on real files: in white noise, whose channel its
// receiver knows, it makes as many bit errors as the closed forms tell; without noise a picture
// passes through echoes and drift unharmed; equal seeds give equal results; bad input is refused.
//
// OFDM_PROGRAM is the program's path.
#include "program_test.h"

#include <bit>
#include <png.h>

namespace
{

using namespace rvn::tests;

class Ofdm : public ProgramTest
{
protected:
    Ofdm() : ProgramTest(OFDM_PROGRAM) {}

    void write(const std::string& name, unsigned width, unsigned height, png_uint_32 format) const
    {
        png_image png = {};
        png.version = PNG_IMAGE_VERSION;
        png.width = width;
        png.height = height;
        png.format = format;
        std::vector<std::uint8_t> bytes(PNG_IMAGE_SIZE(png));
        for (std::size_t i = 0; i < bytes.size(); ++i)
            bytes[i] = static_cast<std::uint8_t>(i < bytes.size() / 2 ? 77 : i * i / 31);
        EXPECT_TRUE(png_image_write_to_file(&png, path(name).c_str(), 0, bytes.data(), 0, nullptr));
    }

    std::vector<std::uint8_t> samples(const std::string& name) const
    {
        png_image png = {};
        png.version = PNG_IMAGE_VERSION;
        EXPECT_TRUE(png_image_begin_read_from_file(&png, path(name).c_str())) << png.message;
        png.format = PNG_FORMAT_RGBA;
        std::vector<std::uint8_t> bytes(PNG_IMAGE_SIZE(png));
        EXPECT_TRUE(png_image_finish_read(&png, nullptr, bytes.data(), 0, nullptr));
        return bytes;
    }
    RunResult send(const std::string& arguments) const
    {
        const RunResult result = run("in.png -o out.png " + arguments);
        EXPECT_EQ(result.status, 0) << arguments << '\n' << result.err;
        return result;
    }
};

// The closed form at Eb/N0 as a ratio, for 2 or 4 bits a point.
double expectedRate(int bits, double ratio)
{
    const double x = std::sqrt(0.4 * ratio);
    return bits == 2 ? std::erfc(std::sqrt(ratio)) / 2
                     : (3 * std::erfc(x) + 2 * std::erfc(3 * x) - std::erfc(5 * x)) / 8;
}

// Its mean over the powers of Rayleigh fading, exponentially distributed: a sum of small steps.
double expectedFadingRate(int bits, double ratio)
{
    constexpr double step = 1e-4;
    double sum = 0;
    for (double power = step / 2; power < 30; power += step)
        sum += std::exp(-power) * expectedRate(bits, power * ratio) * step;
    return sum;
}

TEST_F(Ofdm, BitErrorsInWhiteNoiseFollowTheClosedForms)
{
    const struct {
        std::string modulation;
        int bits;
        double decibels; // Es/N0
    } cases[] = {{"qpsk", 2, 5}, {"qpsk", 2, 9}, {"16qam", 4, 8}, {"16qam", 4, 15}};
    write("in.png", 230, 200, PNG_FORMAT_RGB);
    for (const std::string waveform : {"", "-s 12 ", "-s 24 ", "-s 36 ", "-s 48 ", "-s 60 "})
        for (const auto& c : cases) {
            SCOPED_TRACE(waveform + c.modulation + " at " + std::to_string(c.decibels));
            const RunResult result = send(waveform + "-c white -m " + c.modulation + " -n " +
                                          std::to_string(c.decibels));
            const auto sent = samples("in.png"), received = samples("out.png");
            ASSERT_EQ(sent.size(), received.size());
            double errors = 0, squares = 0;
            for (std::size_t i = 0; i < sent.size(); ++i) {
                errors += std::popcount(static_cast<unsigned>(sent[i] ^ received[i]));
                squares += std::pow(sent[i] - received[i], 2);
            }
            const double bits = 6 * static_cast<double>(sent.size()); // without alpha
            const double ratio = std::pow(10, c.decibels / 10);
            const double rate = expectedRate(c.bits, ratio / c.bits);
            const double fading = expectedFadingRate(c.bits, ratio / c.bits);
            EXPECT_NEAR(errors, bits * rate, 3 * std::sqrt(bits * rate * (1 - rate)));
            EXPECT_EQ(result.number("bit errors +([0-9]+) of"), errors);
            EXPECT_NEAR(result.number("closed form +([^ ]+)"), rate, 1e-3 * rate);
            EXPECT_NEAR(result.number(", ([^ ]+) in the mean of Rayleigh"), fading, 1e-3 * fading);
            EXPECT_NEAR(result.number("PSNR +([0-9.]+)"),
                        10 * std::log10(255 * 255 * bits / 8 / squares), 0.006);
            EXPECT_NEAR(result.number("EVM +([0-9.]+)"), 100 / std::sqrt(ratio), 0.3);
            result.expectSpeed(1);
        }
}

TEST_F(Ofdm, APictureWithoutNoisePassesThroughEchoesUnharmed)
{
    for (const png_uint_32 format :
         {PNG_FORMAT_GRAY + 0u, PNG_FORMAT_RGB + 0u, PNG_FORMAT_RGBA + 0u}) {
        write("in.png", 61, 43, format);
        for (const std::string waveform : {"", "-s 12", "-s 24", "-s 36", "-s 48", "-s 60"})
            for (const std::string modulation : {" -m qpsk", " -m 16qam"}) {
                const RunResult result = send(waveform + modulation + " -n inf");
                EXPECT_EQ(result.found("PSNR +([a-z]+)"), "infinite");
                EXPECT_LT(result.number("EVM +([0-9.]+)"), 2);
                EXPECT_TRUE(samples("in.png") == samples("out.png")) << waveform << modulation;
            }
    }
    EXPECT_EQ(send("-n inf").found("8-bit (.*)"), "colour and alpha");
    write("in.png", 1, 1, PNG_FORMAT_GRAY);
    EXPECT_EQ(send("-n inf").found("bit errors +(.*) of"), "0");
}

TEST_F(Ofdm, EqualSeedsGiveEqualResultsAndPlotsSayWhatWasSeen)
{
    write("in.png", 64, 64, PNG_FORMAT_RGB);
    const auto outcome = [&](const std::string& arguments) {
        std::string out = send("-n 14 --constellation points.png " + arguments).out;
        const auto speed = out.find("speed");
        out.erase(speed, out.find('\n', speed) - speed);
        return out + content("out.png") + script();
    };
    EXPECT_TRUE(outcome("--seed 5") == outcome("--seed 5"));
    EXPECT_FALSE(outcome("--seed 5") == outcome("--seed 6"));
    send("-c white -n inf --constellation points.png");
    EXPECT_NE(script().find("'no noise, EVM 0.0 %'"), std::string::npos);

    setGnuplot("tee \"$0.script\" | /usr/bin/gnuplot");
    const RunResult result = send("--ber rates.png --constellation points.png -s 24 -n 12");
    EXPECT_GT(samples("rates.png").size() + samples("points.png").size(), 0u);
    std::ostringstream point; // the bit error rate of this run
    point << "$run << END\n12 "
          << result.number("bit errors +([0-9]+) of") / result.number("bit errors .* of ([0-9]+)");
    EXPECT_NE(script().find(point.str().substr(0, 22)), std::string::npos) << point.str();
    EXPECT_LT(result.number("([0-9.]+) dB for DFT-spread") + 1.5,
              result.number("([0-9.]+) dB above the mean for OFDM"));
}

TEST_F(Ofdm, RefusesWhatItCannotDoInOneLine)
{
    write("good.png", 30, 20, PNG_FORMAT_RGB);
    write("deep.png", 30, 20, PNG_FORMAT_LINEAR_RGB);
    put("half.png", content("good.png").substr(0, 70));
    expectRefusals({{"good.png -n", "--snr"},
                    {"good.png -n 3x", "3x"},
                    {"good.png -n nan", "from -20 to 100"},
                    {"good.png -m 8psk", "8psk"},
                    {"good.png -s 13", "12, 24, 36, 48, 60"},
                    {"good.png -c wire", "wire"},
                    {"good.png --seed -1", "seed"},
                    {"good.png --ber a.png --constellation a.png", "a name of its own"},
                    {"good.png --ber good.png", "is the input"},
                    {"good.png --ber absent/a.png", "No such file"},
                    {"deep.png", "16 bits"},
                    {"half.png", "no complete PNG"},
                    {"absent.png", "No such file"}});
    expectHelp({"--modulation", "--spread", "--snr", "--channel", "--seed", "--ber"});
}

} // namespace
