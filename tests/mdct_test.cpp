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

using Exact = std::vector<double>;

Exact sineWindow(int N)
{
    Exact window;
    for (int n = 0; n < 2 * N; ++n)
        window.push_back(std::sin(pi * (n + 0.5) / (2 * N)));
    return window;
}

// I0 as the sum of (x/2)^2k / k!^2
Exact kaiserBesselWindow(int N)
{
    Exact sums = {0}, window;
    for (int n = 0; n <= N; ++n) {
        const double square = 16 * pi * pi * n * (N - n) / (1.0 * N * N); // (x/2)^2
        double term = 1, value = 0;
        for (int k = 1; k < 60; ++k) {
            value += term;
            term *= square / k / k;
        }
        sums.push_back(sums.back() + value);
    }
    for (int n = 0; n < 2 * N; ++n)
        window.push_back(
            std::sqrt(sums[static_cast<std::size_t>(std::min(n + 1, 2 * N - n))] / sums.back()));
    return window;
}

// Each frame's basis functions, as they lie in the signal: calls visit(coefficient, sample, value).
template <typename Visit> void visitBasis(std::size_t samples, const Exact& window, Visit visit)
{
    const std::size_t N = window.size() / 2;
    for (std::size_t t = 0; t * N < samples + N; ++t)
        for (std::size_t k = 0; k < N; ++k)
            for (std::size_t n = 0; n < 2 * N; ++n) {
                const std::size_t sample = t * N + n; // counted from a hop before the signal
                if (sample < N || sample >= samples + N)
                    continue;
                const double angle = pi / static_cast<double>(N) *
                                     (static_cast<double>(n + N / 2) + 0.5) *
                                     (static_cast<double>(k) + 0.5);
                visit(t * N + k, sample - N,
                      std::sqrt(2.0 / static_cast<double>(N)) * window[n] * std::cos(angle));
            }
}

// The channels made of the strongest coefficients, so many in all.
std::vector<Exact> rebuilt(const std::vector<Signal>& channels, const Exact& window,
                           std::size_t kept)
{
    const std::size_t samples = channels[0].size();
    std::vector<Exact> spectra, results;
    Exact magnitudes;
    for (const Signal& channel : channels) {
        Exact& spectrum = spectra.emplace_back(samples + 2 * window.size());
        visitBasis(samples, window, [&](std::size_t i, std::size_t n, double value) {
            spectrum[i] += value * channel[n];
        });
        for (const double coefficient : spectrum)
            magnitudes.push_back(std::abs(coefficient));
    }
    std::ranges::sort(magnitudes, std::greater<>());
    for (const Exact& spectrum : spectra) {
        Exact& result = results.emplace_back(samples);
        visitBasis(samples, window, [&](std::size_t i, std::size_t n, double value) {
            if (std::abs(spectrum[i]) >= magnitudes[kept - 1])
                result[n] += value * spectrum[i];
        });
    }
    return results;
}

double signalToNoise(const std::vector<Signal>& original, const std::vector<Signal>& result)
{
    double signal = 0, noise = 0;
    for (std::size_t i = 0; i < original.size(); ++i)
        for (std::size_t n = 0; n < original[i].size(); ++n) {
            signal += std::pow(original[i][n], 2.0);
            noise += std::pow(static_cast<double>(original[i][n]) - result.at(i).at(n), 2);
        }
    return 10 * std::log10(signal / noise);
}

class Mdct : public SoundProgramTest
{
protected:
    Mdct() : SoundProgramTest(MDCT_PROGRAM) {}

    std::vector<Signal> rebuild(const std::vector<Signal>& channels, const std::string& arguments)
    {
        return processed(channels, "-p out.png " + arguments);
    }
};

TEST_F(Mdct, RebuildsWhatTheDefinitionMakesOfTheStrongest)
{
    const struct {
        const char *name, *share;
        Exact values;
        std::size_t channels, kept;
    } cases[] = {
        {"sine", "0.25", sineWindow(64), 2, 544},
        {"kbd", "0.03", kaiserBesselWindow(64), 3, 98},
        {"kbd", "1e-9", kaiserBesselWindow(64), 1, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.name << ", " << c.share);
        std::vector<Signal> channels;
        for (unsigned i = 0; i < c.channels; ++i)
            channels.push_back(noise(1000, i, 1.0f / static_cast<float>(1 + i)));
        const std::vector<Signal> output =
            rebuild(channels, std::string("-n 64 -w ") + c.name + " -k " + c.share);
        const std::vector<Exact> exact = rebuilt(channels, c.values, c.kept);
        for (std::size_t i = 0; i < c.channels; ++i)
            for (std::size_t n = 0; n < 1000; ++n)
                ASSERT_NEAR(output.at(i).at(n), exact[i][n], 2e-6) << i << ' ' << n;
        EXPECT_EQ(result_.found("kept +([0-9]+ of [0-9]+)"),
                  std::to_string(c.kept) + " of " + std::to_string(c.channels * 17 * 64));
        EXPECT_NEAR(result_.number("SNR +([^ ]+) dB"), signalToNoise(channels, output), 0.006);
        EXPECT_GT(result_.number("([^ ]+) dB from all"), 125);
        result_.expectShare();
    }
}

TEST_F(Mdct, RebuildsAnyLengthFromAllCoefficients)
{
    for (const std::size_t hop : {64, 1024, 32768})
        for (const std::size_t samples : {std::size_t{1}, hop - 1, hop, hop + 1, 3 * hop + 7}) {
            SCOPED_TRACE(testing::Message() << samples << " samples, hop " << hop);
            const std::vector<Signal> channels = {noise(samples, 1), noise(samples, 2, 1e15f)};
            const std::vector<Signal> output = rebuild(channels, "-k 1 -n " + std::to_string(hop));
            EXPECT_GT(signalToNoise(channels, output), 125);
            EXPECT_EQ(output.at(0).size(), samples);
            EXPECT_EQ(result_.found("frames +([0-9]+)"),
                      std::to_string((samples + hop - 1) / hop + 1));
        }
    EXPECT_EQ(rebuild({Signal(100)}, "").at(0), Signal(100));
    EXPECT_EQ(result_.found("SNR +([a-z]+)"), "infinite");
}

// A tone in the last quarter of the left channel, with noise that is too weak to be kept.
TEST_F(Mdct, DrawsWhatWasKeptAtItsPlace)
{
    constexpr std::size_t samples = 200000; // four frames a pixel
    constexpr double bin = 16.5;
    Signal left = noise(samples, 1, 1e-3f);
    const Signal burst = tone(samples, bin / 128, 0.5, 1);
    for (std::size_t n = samples * 3 / 4; n < samples; ++n)
        left[n] += burst[n];
    rebuild({left, Signal(samples)}, "-n 64 -k 0.005");
    const std::vector<PanelLevels> drawn = panels();
    ASSERT_EQ(drawn.size(), 2u);
    for (const double time : {0.77, 0.9, 0.98}) {
        EXPECT_GT(drawn[0].at(time, bin / 64), -6.02 - 3.5); // by the tone's phase
        EXPECT_LE(drawn[0].at(time, bin / 64), -6);
        EXPECT_EQ(drawn[0].at(time, 0.9), -200);
        EXPECT_EQ(drawn[1].at(time, bin / 64), -200);
    }
    EXPECT_EQ(drawn[0].at(0.73, bin / 64), -200);
    EXPECT_NE(script().find("xrange [0:4.16666"), std::string::npos);
}

TEST_F(Mdct, RefusesBadInputInOneLine)
{
    write("good.wav", {noise(300, 1)});
    write("nine.wav", std::vector<Signal>(9, noise(5, 1)));
    write("nan.wav", {Signal(500, NAN)});
    write("faint.wav", {noise(500, 1, 2e-43f)}); // where binary32 has few digits left
    const std::string goodBefore = content("good.wav");
    expectRefusals({
        {"missing.wav", "no such file"},
        {"nan.wav", "not finite"},
        {"nine.wav", "9 channels; no more than 8"},
        {"faint.wav", "120 dB is due"},
        {"-n 65536 good.wav", "from 64 to 32768"},
        {"-n 1025 good.wav", "power of two, not 1025"},
        {"-k 0 good.wav", "above 0 to 1"},
        {"-k nan good.wav", "above 0 to 1"},
        {"-w hann good.wav", "sine, kbd, not 'hann'"},
        {"-o nowhere/out.wav good.wav", "cannot write 'nowhere/out.wav'"},
        {"-p nowhere/out.png good.wav", "cannot write 'nowhere/out.png'"},
        {"-o ./good.wav good.wav", "is the input; the rebuilt"},
        {"-p ./good.wav good.wav", "is the input; the picture"},
        {"-o same -p ./same good.wav", "cannot write './same'"},
    });
    EXPECT_EQ(content("good.wav"), goodBefore);
    setGnuplot(""); // the picture fails, after the recording is written
    expectOldFilesKept("good.wav", 4, {"good.mdct.wav", "good.mdct.png"});
    expectHelp({"--hop", "--keep", "--window", "--output", "--picture"});
}

} // namespace
