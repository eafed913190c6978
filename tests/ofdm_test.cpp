// ofdm_test.cpp - the ofdm example does its job on real files: in white noise, whose channel its
// receiver knows, it makes as many bit errors as the closed forms tell; without noise a picture
// passes through echoes and drift unharmed; equal seeds give equal results; bad input is refused.
//
// OFDM_PROGRAM is the program's path.
#include "png_file.h"
#include "program_test.h"

#include <bit>

namespace
{

using namespace rvn::tests;

class Ofdm : public ProgramTest
{
protected:
    Ofdm() : ProgramTest(OFDM_PROGRAM) {}

    void write(PngImage image) const
    {
        for (std::size_t i = 0; i < PNG_IMAGE_SIZE(image); ++i)
            image.bytes.push_back(static_cast<std::uint8_t>(i < 1000 ? 77 : i * i / 31));
        image.write(path("in.png"));
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
    double sum = 0;
    for (double power = 5e-5; power < 30; power += 1e-4)
        sum += std::exp(-power) * expectedRate(bits, power * ratio) * 1e-4;
    return sum;
}

TEST_F(Ofdm, BitErrorsInWhiteNoiseFollowTheClosedForms)
{
    write({230, 200, PNG_FORMAT_RGB});
    const auto sent = PngImage::read(path("in.png")).bytes;
    for (const std::string spread : {"", "-s 12", "-s 24", "-s 36", "-s 48", "-s 60"})
        for (const auto& [bits, decibels] : {std::pair(2, 5), {2, 9}, {4, 8}, {4, 15}}) {
            const std::string arguments =
                spread + (bits == 2 ? " -m qpsk -n " : " -m 16qam -n ") + std::to_string(decibels);
            SCOPED_TRACE(arguments);
            const RunResult result = run("in.png -o out.png -c white " + arguments);
            const auto received = PngImage::read(path("out.png")).bytes;
            ASSERT_EQ(sent.size(), received.size());
            double errors = 0;
            for (std::size_t i = 0; i < sent.size(); ++i)
                errors += std::popcount(static_cast<unsigned>(sent[i] ^ received[i]));
            const double all = 8 * static_cast<double>(sent.size());
            const double ratio = std::pow(10, decibels / 10.0); // Es/N0
            const double rate = expectedRate(bits, ratio / bits);
            const double fading = expectedFadingRate(bits, ratio / bits);
            EXPECT_NEAR(errors, all * rate, 3 * std::sqrt(all * rate * (1 - rate)));
            EXPECT_EQ(result.number("bit errors +([0-9]+) of"), errors);
            EXPECT_NEAR(result.number("closed form +([^ ]+)"), rate, 1e-3 * rate);
            EXPECT_NEAR(result.number(", ([^ ]+) in the mean of Rayleigh"), fading, 1e-3 * fading);
            EXPECT_NEAR(result.number("EVM +([0-9.]+)"), 100 / std::sqrt(ratio), 0.3);
            result.expectSpeed(1);
        }
}

TEST_F(Ofdm, NoNoiseHarmsNoPictureAndEqualSeedsGiveEqualResults)
{
    const std::string send = "in.png -o out.png --constellation points.png ";
    for (const auto format : {PNG_FORMAT_GRAY + 0u, PNG_FORMAT_RGBA + 0u, PNG_FORMAT_RGB + 0u}) {
        write({61, 43, format});
        for (const char* arguments : {"-m qpsk", "-m 16qam", "-s 12", "-s 36 -m qpsk", "-s 60"}) {
            EXPECT_LT(run(send + "-n inf " + arguments).number("EVM +([0-9.]+)"), 2);
            EXPECT_TRUE(PngImage::read(path("in.png")) == PngImage::read(path("out.png")));
        }
    }
    const auto outcome = [&](const std::string& arguments) {
        EXPECT_EQ(run(send + "-n 14 " + arguments).status, 0);
        return content("out.png") + script();
    };
    EXPECT_TRUE(outcome("--seed 5") == outcome("--seed 5"));
    EXPECT_FALSE(outcome("--seed 5") == outcome("--seed 6"));
    const RunResult spread = run(send + "--ber rates.png -s 24 -n 12");
    EXPECT_LT(spread.number("([0-9.]+) dB for DFT-spread") + 1.5,
              spread.number("([0-9.]+) dB above the mean for OFDM"));
    std::ostringstream point; // the bit error rate of this run
    point << "$run << END\n12 "
          << spread.number("bit errors +([0-9]+) of") / spread.number("bit errors .* of ([0-9]+)");
    EXPECT_NE(script().find(point.str().substr(0, 22)), std::string::npos) << point.str();
}

TEST_F(Ofdm, RefusesWhatItCannotDoInOneLine)
{
    write({30, 20, PNG_FORMAT_RGB});
    PngImage{1, 1, PNG_FORMAT_LINEAR_Y, {1, 2}}.write(path("deep.png"));
    expectRefusals({{"in.png -n nan", "from -20 to 100"},
                    {"in.png -s 13", "12, 24, 36, 48, 60"},
                    {"in.png --ber a.png --constellation a.png", "a name of its own"},
                    {"in.png --ber in.png", "is the input"},
                    {"deep.png", "16 bits"}});
    expectHelp({"--modulation", "--spread", "--snr", "--channel", "--seed", "--ber"});
}

} // namespace
