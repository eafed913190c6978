// mdct_test.cpp - the mdct example does its job on real files: all coefficients rebuild a recording
// but for rounding, a share of them rebuilds what the definition makes of it, the picture shows
// what was kept, and bad input is refused in one line.
//
// MDCT_PROGRAM is the program's path.
#include "wav_file.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <span>

namespace
{

using namespace rvn::tests;
using std::numbers::pi;

using Exact = std::vector<double>;

// The windows of 2N values; I0 is the sum of (x/2)^2k / k!^2.
Exact windowOf(const std::string& name, int N)
{
    Exact sums = {0}, window;
    for (int n = 0; n <= N; ++n) {
        double term = 1, value = 0;
        for (int k = 1; k < 60; term *= 16 * pi * pi * n * (N - n) / (1.0 * N * N) / k / k, ++k)
            value += term;
        sums.push_back(sums.back() + value);
    }
    for (int n = 0; n < 2 * N; ++n)
        window.push_back(
            name == "sine" ? std::sin(pi * (n + 0.5) / (2 * N))
                           : std::sqrt(sums[static_cast<std::size_t>(std::min(n + 1, 2 * N - n))] /
                                       sums.back()));
    return window;
}

// Sample n of the basis function k of a frame, which begins t - 1 hops behind the signal's start.
double basis(const Exact& window, std::size_t k, std::size_t n)
{
    const double N = static_cast<double>(window.size()) / 2;
    return std::sqrt(2 / N) * window[n] *
           std::cos(pi / N * (static_cast<double>(n) + 0.5 + N / 2) *
                    (static_cast<double>(k) + 0.5));
}

// All coefficients of a signal, by the sum of the definition.
Exact spectrumOf(const Signal& signal, const Exact& window)
{
    const std::size_t N = window.size() / 2;
    Exact spectrum;
    for (std::size_t t = 0; t * N < signal.size() + N; ++t)
        for (std::size_t k = 0; k < N; ++k) {
            double sum = 0;
            for (std::size_t n = t == 0 ? N : 0; n < 2 * N && (t - 1) * N + n < signal.size(); ++n)
                sum += signal[(t - 1) * N + n] * basis(window, k, n);
            spectrum.push_back(sum);
        }
    return spectrum;
}

double energy(const auto& values)
{
    double sum = 0;
    for (const double value : values)
        sum += value * value;
    return sum;
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

// One coefficient makes one basis function, the strongest; of more the energies tell, since the
// transform is orthogonal.
TEST_F(Mdct, KeepsTheStrongestCoefficientsOfTheDefinition)
{
    for (const std::string name : {"sine", "kbd"}) {
        const Exact window = windowOf(name, 64);
        const Signal signal = noise(1000, 7);
        const Exact spectrum = spectrumOf(signal, window);
        const Signal one = rebuild({signal}, "-n 64 -k 1e-9 -w " + name).at(0);
        const auto strongest = static_cast<std::size_t>(
            std::ranges::max_element(spectrum, {}, [](double x) { return std::abs(x); }) -
            spectrum.begin());
        for (std::size_t n = 0; n < 1000; ++n) {
            const std::size_t inside = n + 64 - strongest / 64 * 64; // wraps before the frame
            const double exact =
                inside < 128 ? spectrum[strongest] * basis(window, strongest % 64, inside) : 0;
            ASSERT_NEAR(one[n], exact, 2e-6) << name << ' ' << n;
        }
        Exact all, other = spectrumOf(noise(1000, 8, 0.2f), window);
        std::ranges::merge(spectrum, other, std::back_inserter(all));
        std::ranges::sort(all, std::greater<>(), [](double x) { return std::abs(x); });
        const std::vector<Signal> in = {signal, noise(1000, 8, 0.2f)};
        const std::vector<Signal> out = rebuild(in, "-n 64 -k 0.25 -w " + name);
        Exact errors;
        for (const std::size_t i : {0u, 1u})
            for (std::size_t n = 0; n < 1000; ++n)
                errors.push_back(static_cast<double>(out[i][n]) - in[i][n]);
        const double ratio = (energy(in[0]) + energy(in[1])) / energy(errors);
        EXPECT_EQ(result_.found("kept +([0-9]+ of [0-9]+)"), "544 of 2176");
        EXPECT_NEAR(result_.number("SNR +([^ ]+) dB"), 10 * std::log10(ratio), 0.006);
        // Of the first and the last frame a part lies outside the signal.
        EXPECT_NEAR(ratio, energy(all) / energy(std::span(all).subspan(544)), 0.04 * ratio);
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
            const auto output = rebuild({left, right}, "-k 1 -n " + std::to_string(hop));
            ASSERT_EQ(output.at(0).size(), samples);
            Exact errors;
            for (std::size_t n = 0; n < samples; ++n) {
                EXPECT_NEAR(output[0][n], left[n], 2e-6);
                errors.push_back(static_cast<double>(output[1][n]) - right[n]);
            }
            EXPECT_LT(energy(errors), 1e-12 * energy(right));
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
