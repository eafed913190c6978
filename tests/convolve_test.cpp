// convolve_test.cpp - the convolve example does its job on real files: its output is the full
// convolution, its designed responses pass and stop what they should, and bad input is refused in
// one line.
//
// What it writes is held against sums of products in long double. CONVOLVE_PROGRAM is the program's
// path.
#include "wav_file.h"

namespace
{

using namespace rvn::tests;

using Exact = std::vector<long double>;

Exact convolution(const Signal& x, const Signal& h)
{
    Exact y(x.size() + h.size() - 1);
    for (std::size_t k = 0; k < h.size(); ++k)
        if (h[k] != 0)
            for (std::size_t n = 0; n < x.size(); ++n)
                y[n + k] += static_cast<long double>(x[n]) * h[k];
    return y;
}

template <typename Values> double energy(const Values& values)
{
    long double sum = 0;
    for (const long double value : values)
        sum += value * value;
    return static_cast<double>(sum);
}

class Convolve : public SoundProgramTest
{
protected:
    Convolve() : SoundProgramTest(CONVOLVE_PROGRAM) {}

    // Filters by that response in a file and compares; the figures that are printed say the same.
    void expectConvolution(const std::vector<Signal>& inputs, const Signal& response,
                           double tolerance = 0.01)
    {
        write("response.wav", {response});
        const std::vector<Signal> outputs = processed(inputs, "--response response.wav");
        double worst = 0, worstOfInput = 0;
        for (std::size_t i = 0; i < inputs.size(); ++i) {
            Exact exact = convolution(inputs[i], response);
            const double size = energy(exact);
            ASSERT_EQ(outputs[i].size(), exact.size());
            for (std::size_t n = 0; n < exact.size(); ++n)
                exact[n] -= outputs[i][n];
            EXPECT_LE(energy(exact), 1e-12 * size);
            if (size > 0 && energy(exact) / size > worst * worst) {
                worst = std::sqrt(energy(exact) / size);
                worstOfInput = std::sqrt(energy(exact) / energy(inputs[i]) / energy(response));
            }
        }
        EXPECT_NEAR(result_.number("relative rms ([^ ]+) from"), worst, tolerance * worst);
        EXPECT_NEAR(result_.number("([^ ]+) relative to the input's scale"), worstOfInput,
                    tolerance * worstOfInput);
        result_.expectSpeed(1e6);
    }
};

TEST_F(Convolve, WritesTheFullConvolution)
{
    const Signal silence(9000);
    Signal impulse = silence;
    impulse[8191] = 0.75f;
    for (const std::size_t taps : {1, 32, 33, 34, 65, 66, 257})
        for (const Signal& input :
             {Signal{0.75f}, noise(31, 1), noise(32, 2), noise(33, 3), impulse, noise(20000, 5)}) {
            SCOPED_TRACE(testing::Message() << taps << " taps, " << input.size() << " samples");
            expectConvolution({input}, noise(taps, 7));
        }
    expectConvolution({noise(9000, 1), silence}, noise(100, 3));
    // A billion products and more: the program looks at a part of them, and says so.
    Signal sparse(8000);
    sparse.front() = 1;
    sparse.back() = 0.5f;
    expectConvolution({noise(130000, 1)}, sparse, 0.1);
    EXPECT_EQ(result_.found("([0-9]+) % of the output compared"), "50");

    put("response.txt", "0.5, -0.25\n\t1e-1\r\n\n+0 2");
    const Signal fromText = processed({noise(500, 1)}, "--response response.txt").at(0);
    write("response.wav", {{0.5f, -0.25f, 0.1f, 0, 2}});
    EXPECT_EQ(fromText, processed({noise(500, 1)}, "--response response.wav").at(0));
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
        const Signal response = processed({{1}}, c.arguments).at(0); // of an impulse
        ASSERT_EQ(response.size(), c.taps);
        const auto gain = [&](double hertz) {
            double sum = 0;
            for (std::size_t i = 0; i < c.taps; ++i)
                sum += response[i] *
                       std::cos(2 * std::numbers::pi * hertz / sampleRate *
                                (static_cast<double>(i) - static_cast<double>(c.taps / 2)));
            return sum;
        };
        for (std::size_t i = 0; i < c.taps; ++i)
            EXPECT_NEAR(response[i], response[c.taps - 1 - i], 1e-6) << c.arguments;
        EXPECT_NEAR(gain(c.unity), 1, 1e-6) << c.arguments;
        for (const double hertz : c.passed)
            EXPECT_NEAR(gain(hertz), 1, 0.02) << c.arguments << ' ' << hertz;
        for (const double hertz : c.stopped)
            EXPECT_NEAR(gain(hertz), 0, 0.01) << c.arguments << ' ' << hertz;
    }
    write("in.wav", {noise(500, 1)});
    EXPECT_EQ(run("--lowpass 2450 in.wav").err, "");
    for (const auto& [band, needed] : {std::pair("--lowpass 10", "7921 taps\n"),
                                       {"--highpass 23900 --taps 257", "793 taps\n"},
                                       {"--bandpass 3000,3500 --taps 257", "317 taps\n"}}) {
        const RunResult result = run(band + std::string(" in.wav"));
        EXPECT_EQ(result.status, 0);
        EXPECT_NE(result.err.find("warning: "), std::string::npos) << band;
        EXPECT_NE(result.err.find(needed), std::string::npos) << result.err;
    }
}

// A tone before and after, in the data that gnuplot gets.
TEST_F(Convolve, DrawsLevelsBeforeAndAfter)
{
    Signal two = tone(20000, 1010.0 / sampleRate, 0.5, 0);
    const Signal high = tone(20000, 15030.0 / sampleRate, 0.05, 0);
    for (std::size_t n = 0; n < two.size(); ++n)
        two[n] += high[n];
    processed({two}, "--lowpass 8000 -p picture.png");
    const auto levelNear = [text = script()](const std::string& table, double hertz) {
        std::istringstream rows(text.substr(text.find("$" + table + " <<")));
        std::string line;
        std::getline(rows, line);
        double level = -200, x, y;
        while (rows >> x >> y)
            if (std::abs(x - hertz) < 100)
                level = std::max(level, y);
        return level;
    };
    EXPECT_NEAR(levelNear("before", 1000), -6, 1.5);
    EXPECT_NEAR(levelNear("before", 15000), -26, 1.5);
    EXPECT_NEAR(levelNear("after", 1000), -6, 1.5);
    EXPECT_LT(levelNear("after", 15000), -60);
}

TEST_F(Convolve, RefusesBadInputInOneLine)
{
    write("good.wav", {noise(5000, 1)});
    write("stereo.wav", {noise(500, 1), noise(500, 2)});
    write("three.wav", {noise(5, 1), noise(5, 2), noise(5, 3)});
    write("faint.wav", {noise(500, 1, 2e-43f)}); // where binary32 has few digits left
    write("nan.wav", {Signal(500, NAN)});
    put("words.txt", "0.5 half 0.5");
    put("blank.txt", " \n");
    put("empty.txt", "");
    const std::string goodBefore = content("good.wav");
    expectRefusals({
        {"--lowpass 1000 missing.wav", "no such file"},
        {"--lowpass 1000 three.wav", "3 channels"},
        {"--lowpass 4000 faint.wav", "differs from direct convolution"},
        {"--lowpass 24000 good.wav", "24000 Hz is not below half the sample rate"},
        {"--highpass nan good.wav", "not 'nan'"},
        {"--bandpass 2000,1000 good.wav", "must begin below its end"},
        {"--lowpass 1000 --taps 32 good.wav", "must be odd"},
        {"--lowpass 1000 --taps 8193 good.wav", "from 3 to 8191"},
        {"--response stereo.wav --taps 5 good.wav", "--taps is for designed"},
        {"--response stereo.wav good.wav", "a response has one"},
        {"--response nan.wav good.wav", "not finite"},
        {"--response words.txt good.wav", "'half' is not a number"},
        {"--response blank.txt good.wav", "no numbers"},
        {"--response empty.txt good.wav", "is empty"},
        {"good.wav", "one of --lowpass"},
        {"--lowpass 1000 --highpass 2000 good.wav", "only one of --lowpass"},
        {"--lowpass 1000 -o ./good.wav good.wav", "is the input"},
        {"--response good.wav -o good.wav stereo.wav", "is the response"},
    });
    EXPECT_EQ(content("good.wav"), goodBefore);
    expectOldFilesKept("--lowpass 4000 -o out.wav good.wav", 8, {"out.wav"});
    expectHelp({"--lowpass", "--highpass", "--bandpass", "--taps", "--response"});

    // The name by default; and the same samples make the same bytes.
    EXPECT_EQ(run("--lowpass 4000 good.wav").status, 0);
    EXPECT_TRUE(content("out.wav") == content("good.filtered.wav"));
    EXPECT_EQ(content("out.wav").find("PEAK"), std::string::npos); // which holds the time of day
}

} // namespace
