// mdct_test.cpp - the mdct example does its job on real files: all coefficients rebuild a recording
// but for rounding, a share of them rebuilds what the definition makes of it, the picture shows
// what was kept, and bad input is refused in one line.
//
// MDCT_PROGRAM is the program's path.
#include "wav_file.h"

#include <algorithm>
#include <functional>

namespace
{

using namespace rvn::tests;
using std::numbers::pi;

struct Mdct : SoundProgramTest {
    Mdct() : SoundProgramTest(MDCT_PROGRAM) {}
};

TEST_F(Mdct, KeepsTheStrongestCoefficientsOfTheDefinition)
{
    const std::vector<Signal> in = {noise(1000, 7), noise(1000, 8, 0.2f)};
    std::vector<double> sums = {0}; // of the Kaiser window, which make the derived one
    for (int n = 0; n <= 64; ++n)
        sums.push_back(sums.back() + std::cyl_bessel_i(0, 8 * pi * std::sqrt(n * (64 - n)) / 64));
    for (const std::string window : {"sine", "kbd"}) {
        double basis[64][128];
        for (unsigned i = 0; i < 64 * 128; ++i) {
            const unsigned k = i / 128, n = i % 128;
            basis[k][n] = std::cos(pi / 64 * (n + 32.5) * (k + 0.5)) / std::sqrt(32) *
                          (window == "sine" ? std::sin(pi * (n + 0.5) / 128)
                                            : std::sqrt(sums[std::min(n + 1, 128 - n)] / sums[65]));
        }
        std::vector<std::pair<double, std::size_t>> all; // with their channel, k and frame in one
        for (std::size_t i = 0; i < 2 * 17 * 64; ++i) {
            all.push_back({0, i});
            for (std::size_t n = 0; n < 128; ++n)
                if (const std::size_t at = i / 128 * 64 + n - 64; at < 1000) // wraps before 0
                    all[i].first += in[i % 2][at] * basis[i / 2 % 64][n];
        }
        std::ranges::sort(all, std::greater<>(), [](const auto& c) { return std::abs(c.first); });
        all.resize(544);
        double exact[2][18 * 64] = {}, energy = 0, errors = 0; // exact from a hop before 0
        for (const auto& [value, i] : all)
            for (std::size_t n = 0; n < 128; ++n)
                exact[i % 2][i / 128 * 64 + n] += value * basis[i / 2 % 64][n];
        const auto out = processed(in, "-n 64 -k 0.25 -w " + window);
        for (std::size_t i = 0; i < 2000; ++i) {
            const double before = in[i % 2][i / 2], after = out[i % 2][i / 2];
            ASSERT_NEAR(after, exact[i % 2][64 + i / 2], 2e-6) << window << ' ' << i;
            energy += before * before;
            errors += (after - before) * (after - before);
        }
        EXPECT_EQ(result_.found("kept +([0-9]+ of [0-9]+)"), "544 of 2176");
        EXPECT_NEAR(result_.number("SNR +([^ ]+) dB"), 10 * std::log10(energy / errors), 0.006);
        EXPECT_GT(result_.number("([^ ]+) dB from all"), 125);
        result_.expectShare();
    }
}

TEST_F(Mdct, RebuildsAnyLengthFromAllCoefficients)
{
    for (const std::size_t hop : {64, 1024, 32768})
        for (const std::size_t samples : {std::size_t{1}, hop - 1, hop, hop + 1, 3 * hop + 7}) {
            SCOPED_TRACE(testing::Message() << samples << " samples, hop " << hop);
            const Signal left = noise(samples, 1), right = noise(samples, 2, 1e15f);
            const auto output = processed({left, right}, "-k 1 -n " + std::to_string(hop));
            ASSERT_EQ(output.at(0).size(), samples);
            for (std::size_t n = 0; n < samples; ++n) {
                EXPECT_NEAR(output[0][n], left[n], 2e-6);
                EXPECT_NEAR(output[1][n], right[n], 4e9);
            }
        }
    EXPECT_EQ(processed({Signal(100)}, "").at(0), Signal(100));
    EXPECT_EQ(result_.found("SNR +([a-z]+)"), "infinite");
}

// A tone in the last quarter of the left channel, with noise that is too weak to be kept.
TEST_F(Mdct, DrawsWhatWasKeptAtItsPlace)
{
    constexpr double bin = 16.5; // of 64, and four frames a pixel
    Signal left = noise(200000, 1, 1e-3f), burst = tone(200000, bin / 128, 0.5, 1);
    for (std::size_t n = 150000; n < 200000; ++n)
        left[n] += burst[n];
    processed({left, Signal(200000)}, "-n 64 -k 0.005");
    const std::vector<PanelLevels> drawn = panels();
    ASSERT_EQ(drawn.size(), 2u);
    for (const double time : {0.77, 0.9, 0.98}) {
        EXPECT_NEAR(drawn[0].at(time, bin / 64), -7.75, 1.75); // by the tone's phase
        EXPECT_EQ(drawn[0].at(time, 0.9), -200);
        EXPECT_EQ(drawn[1].at(time, bin / 64), -200);
    }
    EXPECT_EQ(drawn[0].at(0.73, bin / 64), -200);
    EXPECT_NE(script().find("xrange [0:4.16666"), std::string::npos);
}

TEST_F(Mdct, RefusesBadInputInOneLine)
{
    write("good.wav", {noise(300, 1)});
    write("faint.wav", {noise(500, 1, 2e-43f)}); // where binary32 has few digits left
    const std::string goodBefore = content("good.wav");
    expectRefusals({{"faint.wav", "120 dB is due"},
                    {"-n 1025 good.wav", "power of two, not 1025"},
                    {"-k 0 good.wav", "above 0 to 1"},
                    {"-o ./good.wav good.wav", "is the input; the rebuilt"},
                    {"-p ./good.wav good.wav", "is the input; the picture"},
                    {"-o same -p ./same good.wav", "cannot write './same'"}});
    EXPECT_EQ(content("good.wav"), goodBefore);
    setGnuplot(""); // the picture fails, after the recording is written
    expectOldFilesKept("good.wav", 4, {"good.mdct.wav", "good.mdct.png"});
    expectHelp({"--hop", "--keep", "--window", "--output", "--picture"});
}

} // namespace
