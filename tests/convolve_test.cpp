// convolve_test.cpp - the convolve example does its job on real files: its output is the full
// convolution, its designed responses pass and stop what they should, and bad input is refused in
// one line.
//
// The program runs on recordings made here; what it writes is held against sums of products in
// long double. CONVOLVE_PROGRAM is the program's path.
#include "sound_program_test.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{

using rvn::tests::noise;
using rvn::tests::RunResult;

using Signal = std::vector<float>;

constexpr int rate = 48000;

Signal tone(std::size_t samples, double hertz, double amplitude = 0.5)
{
    Signal signal;
    for (std::size_t n = 0; n < samples; ++n)
        signal.push_back(static_cast<float>(
            amplitude * std::sin(2 * std::numbers::pi * hertz / rate * static_cast<double>(n))));
    return signal;
}

Signal impulse(std::size_t samples, std::size_t place)
{
    Signal signal(samples);
    signal[place] = 0.75f;
    return signal;
}

std::vector<long double> convolution(const Signal& x, const Signal& h)
{
    std::vector<long double> y(x.size() + h.size() - 1);
    for (std::size_t n = 0; n < x.size(); ++n)
        for (std::size_t k = 0; k < h.size(); ++k)
            y[n + k] += static_cast<long double>(x[n]) * h[k];
    return y;
}

template <typename Values> double energy(const Values& values)
{
    double sum = 0;
    for (const auto value : values)
        sum += static_cast<double>(value * value);
    return sum;
}

double relativeError(const Signal& values, const std::vector<long double>& exact)
{
    EXPECT_EQ(values.size(), exact.size());
    long double errors = 0, squares = 0;
    for (std::size_t n = 0; n < std::min(values.size(), exact.size()); ++n) {
        errors += (values[n] - exact[n]) * (values[n] - exact[n]);
        squares += exact[n] * exact[n];
    }
    return static_cast<double>(std::sqrt(errors / squares));
}

// In dB, of the samples that see the whole response.
double level(const Signal& filtered, std::size_t taps)
{
    double power = 0;
    for (std::size_t n = taps; n < filtered.size() - taps; ++n)
        power += filtered[n] * filtered[n];
    return 10 * std::log10(power / static_cast<double>(filtered.size() - 2 * taps));
}

class Convolve : public rvn::tests::SoundProgramTest
{
protected:
    Convolve() : SoundProgramTest(CONVOLVE_PROGRAM) {}
};

TEST_F(Convolve, WritesTheFullConvolution)
{
    for (const std::size_t taps : {1, 32, 33, 34, 65, 66, 257}) {
        const Signal response = noise(taps, static_cast<unsigned>(taps));
        write("response.wav", {response});
        const Signal inputs[] = {impulse(1, 0), impulse(33, 32),     noise(31, 1),   noise(32, 2),
                                 noise(33, 3),  impulse(9000, 8191), noise(20000, 5)};
        for (const Signal& input : inputs) {
            SCOPED_TRACE(testing::Message() << taps << " taps, " << input.size() << " samples");
            const std::vector<Signal> output = processed({input}, "--response response.wav");
            const std::vector<long double> exact = convolution(input, response);
            const double error = relativeError(output.at(0), exact);
            const double ofInput =
                error * std::sqrt(energy(exact) / energy(input) / energy(response));
            EXPECT_LT(error, 5e-7);
            EXPECT_NEAR(result_.number("relative rms ([^ ]+) from"), error, 0.01 * error);
            EXPECT_NEAR(result_.number("([^ ]+) relative to the input's scale"), ofInput,
                        0.01 * ofInput);
        }
    }
}

TEST_F(Convolve, KeepsStereoChannelsApart)
{
    const Signal left = noise(3000, 1), right = noise(3000, 2), silence(3000);
    const Signal response = noise(100, 3);
    write("response.wav", {response});
    std::vector<Signal> output = processed({left, right}, "--response response.wav");
    EXPECT_LT(relativeError(output.at(0), convolution(left, response)), 5e-7);
    EXPECT_LT(relativeError(output.at(1), convolution(right, response)), 5e-7);
    output = processed({left, silence}, "--response response.wav");
    EXPECT_LT(relativeError(output.at(0), convolution(left, response)), 5e-7);
    EXPECT_EQ(output.at(1), Signal(3099));
}

// A billion products and more: the program looks at a part of them, and says so.
TEST_F(Convolve, FiltersWithManyTaps)
{
    const Signal input = noise(130000, 1);
    Signal response(8000);
    response.front() = 1;
    response.back() = 0.5f;
    write("response.wav", {response});
    const Signal output = processed({input}, "--response response.wav").at(0);
    std::vector<long double> exact(input.begin(), input.end());
    exact.resize(input.size() + response.size() - 1);
    for (std::size_t n = 0; n < input.size(); ++n)
        exact[n + response.size() - 1] += 0.5L * input[n];
    const double error = relativeError(output, exact);
    EXPECT_LT(error, 1e-6);
    const double ofInput = error * std::sqrt(energy(exact) / energy(input) / energy(response));
    EXPECT_NEAR(result_.number("([^ ]+) relative to the input's scale"), ofInput, 0.1 * ofInput);
    EXPECT_EQ(result_.found("([0-9]+) % of the output compared"), "50");
}

TEST_F(Convolve, ReadsResponsesFromText)
{
    const Signal input = noise(500, 1);
    put("response.txt", "0.5, -0.25\n\t1e-1\r\n\n0 2");
    const Signal output = processed({input}, "--response response.txt").at(0);
    EXPECT_LT(relativeError(output, convolution(input, {0.5f, -0.25f, 0.1f, 0, 2})), 5e-7);
}

TEST_F(Convolve, DesignedResponsesPassAndStop)
{
    const struct {
        const char* arguments;
        std::size_t taps;
        double unity; // Hz, where the gain is 1
        std::vector<double> passed, stopped;
    } cases[] = {
        {"--lowpass 8000", 33, 0, {100, 4000}, {13000, 23900}},
        {"--highpass 1000 --taps 257", 257, 24000, {1400, 12000, 23990}, {50, 600}},
        {"--bandpass 3000,6000 --taps 129", 129, 4500, {4000, 5000}, {100, 2000, 7000, 23000}},
    };
    for (const auto& c : cases) {
        for (const double hertz : c.passed)
            EXPECT_NEAR(level(processed({tone(6000, hertz)}, c.arguments).at(0), c.taps),
                        20 * std::log10(0.5 / std::sqrt(2)), 0.2)
                << c.arguments << ", " << hertz << " Hz";
        for (const double hertz : c.stopped)
            EXPECT_LT(level(processed({tone(6000, hertz)}, c.arguments).at(0), c.taps),
                      20 * std::log10(0.5 / std::sqrt(2)) - 40)
                << c.arguments << ", " << hertz << " Hz";
        // Symmetric, to be read off an impulse.
        const Signal response = processed({impulse(1, 0)}, c.arguments).at(0);
        ASSERT_EQ(response.size(), c.taps);
        double gain = 0;
        for (std::size_t i = 0; i < c.taps; ++i) {
            EXPECT_NEAR(response[i], response[c.taps - 1 - i], 1e-6) << c.arguments;
            const double m = static_cast<double>(i) - static_cast<double>(c.taps / 2);
            gain += response[i] * std::cos(2 * std::numbers::pi * c.unity / rate * m);
        }
        EXPECT_NEAR(gain, 0.75, 1e-6) << c.arguments; // the impulse's height
    }
}

TEST_F(Convolve, RefusesBadInputInOneLine)
{
    write("good.wav", {noise(5000, 1)});
    write("stereo.wav", {noise(500, 1), noise(500, 2)});
    write("three.wav", {noise(5, 1), noise(5, 2), noise(5, 3)});
    write("nan.wav", {Signal(500, NAN)});
    write("faint.wav", {noise(500, 1, 2e-43f)}); // where binary32 has few digits left
    put("words.txt", "0.5 half 0.5");
    put("blank.txt", " \n");
    const std::string goodBefore = content("good.wav");
    expectRefusals({
        {"--lowpass 1000 missing.wav", "no such file"},
        {"--lowpass 1000 nan.wav", "not finite"},
        {"--lowpass 1000 three.wav", "3 channels"},
        {"--lowpass 1000 faint.wav", "differs from direct convolution"},
        {"--lowpass 24000 good.wav", "not below half the sample rate"},
        {"--highpass nan good.wav", "not 'nan'"},
        {"--bandpass 2000,1000 good.wav", "must begin below its end"},
        {"--lowpass 1000 --taps 32 good.wav", "must be odd"},
        {"--lowpass 1000 --taps 8193 good.wav", "from 3 to 8191"},
        {"--response stereo.wav good.wav", "a response has one"},
        {"--response nan.wav good.wav", "not finite"},
        {"--response words.txt good.wav", "'half' is not a number"},
        {"--response blank.txt good.wav", "no numbers"},
        {"--lowpass 1000 --highpass 2000 good.wav", "one of --lowpass"},
        {"--frobnicate good.wav", "unknown option '--frobnicate'"},
        {"--lowpass 1000 -o ./good.wav good.wav", "is the input"},
        {"--response good.wav -o good.wav stereo.wav", "is the response"},
    });
    EXPECT_EQ(content("good.wav"), goodBefore);
    expectOldFilesKept("--lowpass 1000 -o out.wav good.wav", 8, {"out.wav"});
    expectHelp({"--lowpass", "--highpass", "--bandpass", "--taps", "--response"});

    // The name by default; and the same samples make the same bytes.
    EXPECT_EQ(run("--lowpass 1000 good.wav").status, 0);
    EXPECT_TRUE(content("out.wav") == content("good.filtered.wav"));
}

} // namespace
