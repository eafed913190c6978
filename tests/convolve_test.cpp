// convolve_test.cpp - the convolve example does its job on real files: its output is the full
// convolution, its designed responses pass and stop what they should, and bad input is refused in
// one line.
//
// The program runs on recordings made here; what it writes is held against sums of products in
// long double. CONVOLVE_PROGRAM is the program's path.
#include "program_test.h"
#include "wav_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <numbers>
#include <random>

namespace
{

namespace fs = std::filesystem;
using rvn::tests::RunResult;

using Signal = std::vector<float>;

constexpr int rate = 48000;

Signal noise(std::size_t samples, unsigned seed, float amplitude = 0.5f)
{
    std::minstd_rand generator(seed + 1);
    Signal signal(samples);
    for (float& sample : signal)
        sample = std::uniform_real_distribution(-amplitude, amplitude)(generator);
    return signal;
}

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

class Convolve : public rvn::tests::ProgramTest
{
protected:
    Convolve() : ProgramTest(CONVOLVE_PROGRAM) {}

    void write(const std::string& name, const std::vector<Signal>& channels,
               int sampleRate = rate) const
    {
        rvn::tests::writeWav(path(name), channels, sampleRate);
    }

    // The channels that the program makes of these.
    std::vector<Signal> filter(const std::vector<Signal>& channels, const std::string& arguments)
    {
        write("in.wav", channels);
        result_ = run("in.wav -o out.wav " + arguments);
        EXPECT_EQ(result_.status, 0) << arguments << '\n' << result_.err;
        EXPECT_EQ(result_.err, "");
        const rvn::tests::Recording recording = rvn::tests::readWav(path("out.wav"));
        EXPECT_EQ(recording.info.samplerate, rate);
        EXPECT_EQ(recording.info.format, SF_FORMAT_WAV | SF_FORMAT_FLOAT);
        EXPECT_EQ(recording.channels.size(), channels.size());
        return recording.channels;
    }

    RunResult result_;
};

TEST_F(Convolve, WritesTheFullConvolution)
{
    for (const std::size_t taps : {1, 2, 32, 33, 34, 64, 65, 66, 257}) {
        const Signal response = noise(taps, static_cast<unsigned>(taps));
        write("response.wav", {response});
        const std::size_t partitions = taps <= 33 ? 1 : (taps + 30) / 32;
        const Signal inputs[] = {impulse(1, 0),  impulse(20, 7),      impulse(33, 32),
                                 noise(31, 1),   noise(32, 2),        noise(33, 3),
                                 noise(1000, 4), impulse(9000, 8191), noise(20000, 5)};
        for (const Signal& input : inputs) {
            SCOPED_TRACE(testing::Message() << taps << " taps, " << input.size() << " samples");
            const std::vector<Signal> output = filter({input}, "--response response.wav");
            const std::vector<long double> exact = convolution(input, response);
            const double error = relativeError(output.at(0), exact);
            const double ofInput =
                error * std::sqrt(energy(exact) / energy(input) / energy(response));
            EXPECT_LT(error, 5e-7);
            EXPECT_NEAR(std::stod(result_.found("relative rms ([^ ]+) from")), error, 0.01 * error);
            EXPECT_NEAR(std::stod(result_.found("([^ ]+) relative to the input's scale")), ofInput,
                        0.01 * ofInput);
            EXPECT_EQ(result_.found(": ([0-9]+ taps? in [0-9]+) partition"),
                      std::to_string(taps) + (taps == 1 ? " tap in " : " taps in ") +
                          std::to_string(partitions));
        }
    }
}

TEST_F(Convolve, KeepsStereoChannelsApart)
{
    const Signal left = noise(3000, 1), right = noise(3000, 2), silence(3000);
    const Signal response = noise(100, 3);
    write("response.wav", {response});
    std::vector<Signal> output = filter({left, right}, "--response response.wav");
    EXPECT_LT(relativeError(output.at(0), convolution(left, response)), 5e-7);
    EXPECT_LT(relativeError(output.at(1), convolution(right, response)), 5e-7);
    output = filter({left, silence}, "--response response.wav");
    EXPECT_LT(relativeError(output.at(0), convolution(left, response)), 5e-7);
    EXPECT_EQ(output.at(1), Signal(3099));
    EXPECT_EQ(result_.found("(2 channels)"), "2 channels");
}

TEST_F(Convolve, PrintsWhatTheFilesTell)
{
    const Signal input = noise(5000, 1);
    const Signal output = filter({input}, "--bandpass 2000,5000 --taps 129").at(0);
    const auto peak = [](const Signal& signal) {
        return std::abs(
            *std::ranges::max_element(signal, {}, [](float sample) { return std::abs(sample); }));
    };
    EXPECT_NEAR(std::stod(result_.found("peak +([^ ]+) in")), peak(input), 1e-6);
    EXPECT_NEAR(std::stod(result_.found("in, ([^ ]+) out")), peak(output), 1e-6);
    EXPECT_EQ(result_.found("out.wav, ([0-9]+) samples"), "5128");
    EXPECT_EQ(result_.found("response +(.*:)"), "band-pass from 2000 to 5000 Hz:");
    EXPECT_EQ(result_.found("(48000 Hz, 5000 samples, .*)"),
              "48000 Hz, 5000 samples, 0.104 s, 1 channel");
    EXPECT_GT(std::stod(result_.found("speed +([^ ]+) million samples per second")), 0);
    EXPECT_EQ(result_.found("\\(5000 samples and ([0-9]+) transforms"), "320"); // 157 blocks and 3
}

// A billion products and more: the program looks at a part of them, and says so.
TEST_F(Convolve, FiltersWithManyTaps)
{
    const Signal input = noise(130000, 1);
    Signal response(8000);
    response.front() = 1;
    response.back() = 0.5f;
    write("response.wav", {response});
    const Signal output = filter({input}, "--response response.wav").at(0);
    std::vector<long double> exact(input.begin(), input.end());
    exact.resize(input.size() + response.size() - 1);
    for (std::size_t n = 0; n < input.size(); ++n)
        exact[n + response.size() - 1] += 0.5L * input[n];
    const double error = relativeError(output, exact);
    EXPECT_LT(error, 1e-6);
    const double ofInput = error * std::sqrt(energy(exact) / energy(input) / energy(response));
    EXPECT_NEAR(std::stod(result_.found("([^ ]+) relative to the input's scale")), ofInput,
                0.1 * ofInput);
    EXPECT_EQ(result_.found("([0-9]+) % of the output compared"), "50");
}

TEST_F(Convolve, ReadsResponsesFromText)
{
    const Signal input = noise(500, 1);
    put("response.txt", "0.5, -0.25\n\t1e-1\r\n\n0 2");
    const Signal output = filter({input}, "--response response.txt").at(0);
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
        {"--lowpass 8000", 33, 0, {100, 4000}, {13000, 20000, 23900}},
        {"--lowpass 1000 --taps 257", 257, 0, {50, 500, 600}, {1400, 5000, 12000, 23990}},
        {"--highpass 1000 --taps 257", 257, 24000, {1400, 5000, 12000, 23990}, {50, 500, 600}},
        {"--bandpass 3000,6000 --taps 129",
         129,
         4500,
         {4000, 4500, 5000},
         {100, 2000, 7000, 23000}},
    };
    for (const auto& c : cases) {
        for (const double hertz : c.passed)
            EXPECT_NEAR(level(filter({tone(6000, hertz)}, c.arguments).at(0), c.taps),
                        20 * std::log10(0.5 / std::sqrt(2)), 0.2)
                << c.arguments << ", " << hertz << " Hz";
        for (const double hertz : c.stopped)
            EXPECT_LT(level(filter({tone(6000, hertz)}, c.arguments).at(0), c.taps),
                      20 * std::log10(0.5 / std::sqrt(2)) - 40)
                << c.arguments << ", " << hertz << " Hz";
        // Symmetric, to be read off an impulse.
        const Signal response = filter({impulse(1, 0)}, c.arguments).at(0);
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
    write("good.wav", {noise(500, 1)});
    write("stereo.wav", {noise(500, 1), noise(500, 2)});
    write("three.wav", {noise(5, 1), noise(5, 2), noise(5, 3)});
    write("empty.wav", {Signal()});
    write("nan.wav", {Signal(500, NAN)});
    write("faint.wav", {noise(500, 1, 2e-43f)}); // where binary32 has few digits left
    write("slow.wav", {noise(5, 1)}, 8000);
    put("text.wav", "This is no audio.\n");
    put("words.txt", "0.5 half 0.5");
    put("nan.txt", "0.5 nan 0.5");
    put("blank.txt", " \n");
    put("nothing.txt", "");
    fs::create_directory(path("folder"));
    const std::string goodBefore = content("good.wav");
    expectRefusals({
        {"--lowpass 1000 missing.wav", "no such file"},
        {"--lowpass 1000 'two\nlines.wav'", "no such file"},
        {"--lowpass 1000 folder", "directory"},
        {"--lowpass 1000 text.wav", "cannot be read as audio"},
        {"--lowpass 1000 empty.wav", "no samples"},
        {"--lowpass 1000 nan.wav", "not finite"},
        {"--lowpass 1000 three.wav", "3 channels"},
        {"--lowpass 1000 faint.wav", "differs from direct convolution"},
        {"--lowpass 24000 good.wav", "not below half the sample rate"},
        {"--highpass 30000 good.wav", "not below half the sample rate"},
        {"--bandpass 100,24001 good.wav", "not below half the sample rate"},
        {"--lowpass 0 good.wav", "above 0, not '0'"},
        {"--lowpass -5 good.wav", "above 0, not '-5'"},
        {"--highpass nan good.wav", "not 'nan'"},
        {"--highpass inf good.wav", "not 'inf'"},
        {"--lowpass 1kHz good.wav", "not '1kHz'"},
        {"--bandpass 1000 good.wav", "LOW,HIGH"},
        {"--bandpass 1000, good.wav", "not ''"},
        {"--bandpass 2000,1000 good.wav", "must begin below its end"},
        {"--lowpass 1000 --taps 32 good.wav", "must be odd"},
        {"--lowpass 1000 --taps 1 good.wav", "from 3 to 8191"},
        {"--lowpass 1000 --taps 8193 good.wav", "from 3 to 8191"},
        {"--lowpass 1000 --taps -33 good.wav", "from 3 to 8191"},
        {"--lowpass 1000 --taps many good.wav", "not 'many'"},
        {"--response good.wav --taps 33 good.wav", "--taps is for"},
        {"--response missing.wav good.wav", "'missing.wav': no such file"},
        {"--response folder good.wav", "directory"},
        {"--response stereo.wav good.wav", "a response has one"},
        {"--response slow.wav good.wav", "8000 Hz, the recording at 48000 Hz"},
        {"--response nan.wav good.wav", "not finite"},
        {"--response words.txt good.wav", "'half' is not a number"},
        {"--response nan.txt good.wav", "'nan' is not a number"},
        {"--response blank.txt good.wav", "no numbers"},
        {"--response nothing.txt good.wav", "cannot be read"},
        {"--lowpass 1000 --highpass 2000 good.wav", "one of --lowpass"},
        {"good.wav", "one of --lowpass"},
        {"--frobnicate good.wav", "unknown option '--frobnicate'"},
        {"-x good.wav", "unknown option '-x'"},
        {"good.wav --lowpass", "'--lowpass' needs a value"},
        {"--lowpass 1000 good.wav stereo.wav", "one input file"},
        {"--lowpass 1000", "no input file"},
        {"--lowpass 1000 -o '' good.wav", "empty"},
        {"--lowpass 1000 -o nowhere/out.wav good.wav", "cannot write 'nowhere/out.wav'"},
        {"--lowpass 1000 -o folder good.wav", "not a plain file"},
        {"--lowpass 1000 -o ./good.wav good.wav", "is the input"},
        {"--response good.wav -o good.wav stereo.wav", "is the response"},
    });
    EXPECT_EQ(content("good.wav"), goodBefore);
}

TEST_F(Convolve, KeepsTheOldFileWhenTheNewOneFails)
{
    write("good.wav", {noise(5000, 1)});
    put("out.wav", "old");
    // A limit on the size of files stops the recording half-way.
    const RunResult full = run("--lowpass 1000 -o out.wav good.wav", "trap '' XFSZ; ulimit -f 8;");
    EXPECT_EQ(full.status, 1) << full.err;
    EXPECT_NE(full.err.find("cannot write 'out.wav'"), std::string::npos) << full.err;
    EXPECT_EQ(content("out.wav"), "old");
    EXPECT_EQ(files(), 4);

    // The name by default; and the same samples make the same bytes.
    EXPECT_EQ(run("--lowpass 1000 -o out.wav good.wav").status, 0);
    EXPECT_EQ(run("--lowpass 1000 good.wav").status, 0);
    EXPECT_TRUE(content("out.wav") == content("good.filtered.wav"));
    EXPECT_EQ(content("out.wav").find("PEAK"), std::string::npos); // that chunk tells the time
}

TEST_F(Convolve, HelpsOnRequest)
{
    expectHelp({"--lowpass", "--highpass", "--bandpass", "--taps", "--response"});
}

} // namespace
