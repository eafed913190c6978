// convolve_test.cpp - the convolve example does its job on real files: its output is the full
// convolution, its designed responses pass and stop what they should, and bad input is refused in
// one line.
//
// What it writes is held against sums of products in long double. CONVOLVE_PROGRAM is the program's
// path.
#include "wav_file.h"

#include <algorithm>
#include <complex>
#include <functional>
#include <numeric>

namespace
{

using namespace rvn::tests;

struct Convolve : SoundProgramTest {
    Convolve() : SoundProgramTest(CONVOLVE_PROGRAM) {}

    // Filters by that response in a file, beside a silent channel, and compares; the figures that
    // are printed say the same.
    void expectConvolution(const Signal& input, const Signal& response, double tolerance = 0.01)
    {
        SCOPED_TRACE(testing::Message() << response.size() << " taps, " << input.size());
        std::vector<long double> exact(input.size() + response.size() - 1);
        for (std::size_t k = 0; k < response.size(); ++k)
            for (std::size_t n = 0; n < input.size(); ++n)
                exact[n + k] += static_cast<long double>(input[n]) * response[k];
        write("response.wav", {response});
        const auto output = processed({input, Signal(input.size())}, "--response response.wav");
        ASSERT_EQ(output[1], Signal(exact.size()));
        const auto norm = [](const auto& v) {
            return std::sqrt(std::inner_product(v.begin(), v.end(), v.begin(), 0.0));
        };
        const double size = norm(exact), scale = norm(input) * norm(response);
        std::ranges::transform(exact, output[0], exact.begin(), std::minus<>());
        const double error = norm(exact);
        EXPECT_LE(error, 1e-6 * size);
        EXPECT_NEAR(result_.number("rms ([^ ]+) from") * size, error, tolerance * error);
        EXPECT_NEAR(result_.number("([^ ]+) relative to the") * scale, error, tolerance * error);
        result_.expectSpeed(1e6);
    }
};

TEST_F(Convolve, WritesTheFullConvolution)
{
    for (const std::size_t taps : {1, 32, 33, 34, 65, 66, 257})
        for (const std::size_t samples : {1, 31, 32, 33, 20000})
            expectConvolution(noise(samples, 1), noise(taps, 7));
    // A billion products and more: the program looks at a part of them, and says so.
    expectConvolution(noise(130000, 1), noise(8000, 3), 0.1);
    EXPECT_EQ(result_.found("([0-9]+) % of the output compared"), "50");

    put("response.txt", "0.5, -0.25\n\t1e-1\r\n\n+0 2");
    write("response.wav", {{0.5f, -0.25f, 0.1f, 0, 2}});
    EXPECT_EQ(processed({{1}}, "--response response.txt"),
              processed({{1}}, "--response response.wav"));
}

TEST_F(Convolve, DesignedResponsesPassAndStop)
{
    for (const auto& [arguments, taps, passed, stopped] :
         {std::tuple("--lowpass 8000", 33u, std::vector{0., 4e3}, std::vector{13e3, 23.9e3}),
          {"--highpass 1000 --taps 257", 257u, {24000, 1400, 12000}, {50, 600}},
          {"--bandpass 3000,6000 --taps 129", 129u, {4500, 4000, 5000}, {100, 2000, 7000}}}) {
        const Signal response = processed({{1}}, arguments)[0]; // of an impulse
        ASSERT_EQ(response.size(), taps);
        const auto gain = [&](double hertz) { // about the middle tap: real if symmetric
            std::complex sum = 0.0, z = std::polar(1.0, 2 * std::numbers::pi * hertz / sampleRate);
            for (const double tap : response)
                sum = sum * z + tap;
            return sum / std::pow(z, response.size() / 2);
        };
        EXPECT_LE(std::abs(gain(passed[0]) - 1.0), 1e-6) << arguments; // where it is to be 1
        for (const double hertz : passed)
            EXPECT_LE(std::abs(gain(hertz) - 1.0), 0.02) << arguments << ' ' << hertz;
        for (const double hertz : stopped)
            EXPECT_LE(std::abs(gain(hertz)), 0.01) << arguments << ' ' << hertz;
    }
    for (const auto& [band, needed] :
         {std::pair("--lowpass 10", "it takes 7921 taps\n"),
          {"--highpass 23900 --taps 257", "it takes 793 taps\n"},
          {"--bandpass 3000,3500 --taps 257", "it takes 317 taps\n"}}) {
        const RunResult result = run(band + std::string(" in.wav"));
        EXPECT_TRUE(result.status == 0 && result.err.ends_with(needed)) << result.err;
    }
}

// A tone before and after, in the data that gnuplot gets.
TEST_F(Convolve, DrawsLevelsBeforeAndAfter)
{
    Signal two = tone(20000, 0.021, 0.5, 0), high = tone(20000, 0.313, 0.05, 0);
    std::ranges::transform(two, high, two.begin(), std::plus<>());
    processed({two}, "--lowpass 2450 -p picture.png"); // with no more taps than it takes
    const auto levelNear = [text = script()](const char* table, double hertz) {
        std::istringstream rows(text.substr(text.find('\n', text.find(table))));
        double level = -200;
        for (double x, y; rows >> x >> y;)
            level = std::abs(x - hertz) < 100 ? std::max(level, y) : level;
        return level;
    };
    EXPECT_NEAR(levelNear("$before <<", 1000), -6, 1.5);
    EXPECT_NEAR(levelNear("$before <<", 15000), -26, 1.5);
    EXPECT_NEAR(levelNear("$after <<", 1000), -6, 1.5);
    EXPECT_LT(levelNear("$after <<", 15000), -60);
}

TEST_F(Convolve, RefusesBadInputInOneLine)
{
    write("good.wav", {noise(5000, 1)});
    write("faint.wav", {noise(500, 1, 2e-43f), Signal(500)}); // where binary32 has few digits left
    put("words.txt", "0.5 half 0.5");
    put("blank.txt", " \n");
    const std::string goodBefore = content("good.wav");
    expectRefusals({{"--lowpass 4000 faint.wav", "differs from direct convolution"},
                    {"--lowpass 24000 good.wav", "24000 Hz is not below half the sample rate"},
                    {"--bandpass 2000,1000 good.wav", "must begin below its end"},
                    {"--lowpass 1000 --taps 32 good.wav", "must be odd"},
                    {"--response faint.wav good.wav", "a response has one"},
                    {"--response words.txt good.wav", "'half' is not a number"},
                    {"--response blank.txt good.wav", "no numbers"},
                    {"--response words.txt --taps 5 good.wav", "--taps is for designed"},
                    {"--lowpass 1000 --taps 8193 good.wav", "from 3 to 8191"},
                    {"--lowpass 1000 --highpass 2000 good.wav", "only one of --lowpass"},
                    {"--lowpass 1000 -o ./good.wav good.wav", "is the input"},
                    {"--response good.wav -o good.wav faint.wav", "is the response"}});
    EXPECT_EQ(content("good.wav"), goodBefore);
    expectOldFilesKept("--lowpass 4000 good.wav", 8, {"good.filtered.wav"});
    expectHelp({"--lowpass", "--highpass", "--bandpass", "--taps", "--response"});
    // Which would hold the time of day: the same samples make the same bytes.
    EXPECT_EQ(content("good.filtered.wav").find("PEAK"), std::string::npos);
}

} // namespace
